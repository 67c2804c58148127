// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "DefectsTest.h"

namespace access_defects_test {

namespace {

const std::vector<defects::Defect> all{
    {"crashes-with-power-on", "monkey", "crashed", "; 2 actions bring it about ("},
    {"dies-with-menu-open", "deletion-open", "crashed",
     "was deleted with what this opens: right-click"},
    {"nameless-control", "names", "failed", "cannot name: QSlider"},
    {"unreachable-control", "tab-key", "failed", "Tab does not reach: QPushButton"},
    {"keeps-tab-key", "tab-key", "failed", "Tab does not leave: QTextEdit"},
    {"breaks-model-rules", "item-models", "failed", "breaks Qt's rules"},
    {"faint-text", "contrast", "failed", "QLabel"},
    {"cuts-text", "clipping", "failed", "QPushButton"},
    {"cuts-text", "clipping-large", "failed", "QPushButton"},
    {"cuts-text-on-sharp-screens", "clipping-scale", "failed", "QPushButton"},
};

} // namespace

/// Levels 6 and 8: what breaks when people use a widget, and what keeps them from it.
class AccessDefectsTest : public DefectsTest
{
public:
    AccessDefectsTest() : DefectsTest(all) {}
};

TEST_WITHOUT_WINDOWS(AccessDefectsTest)

} // namespace access_defects_test
