// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef PLUGIN_GUI_HISTORYBUNDLE_H
#define PLUGIN_GUI_HISTORYBUNDLE_H

#include "olm/core/Export.h"

namespace plugin {
namespace gui {

class HistoryBundleContent; // what the host puts into a bundle
class VariableHistoryBuffer;

/// The registered variables that changed since the last bundle. Each getter answers null for a
/// variable that did not; the buffers belong to the bundle.
class OLM_EXPORT HistoryBundle
{
public:
    /// The content must outlive the bundle.
    explicit HistoryBundle(const HistoryBundleContent& content);

    const VariableHistoryBuffer* getInputHistory(const char* name) const;
    const VariableHistoryBuffer* getOutputHistory(const char* name) const;
    const VariableHistoryBuffer* getStateVariableHistory(const char* name) const;
    const VariableHistoryBuffer* getConfigVariableHistory(const char* name) const;

private:
    const HistoryBundleContent& m_content;
};

} // namespace gui
} // namespace plugin

#endif
