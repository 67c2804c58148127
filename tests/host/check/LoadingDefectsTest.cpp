// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "DefectsTest.h"

namespace loading_defects_test {

namespace {

const std::vector<defects::Defect> all{
    {"slow-to-load", "load-time", "failed", "to load"},
    {"exports-function", "exported-symbols", "failed", "helpers::help()"},
    {"exports-weak", "exported-symbols", "failed", "helpers::help()"},
#ifndef __clang__ // which makes no such symbols
    {"exports-unique", "exported-symbols", "failed", "number (unique)"},
#endif
    {"../UndefinedSymbol", "undefined-symbols", "failed", "functionOfALaterHost"},
    {"../UndefinedSymbol", "load-now-local", "failed", "functionOfALaterHost"},
    {"../NoFactory", "load-lazy-global", "failed",
     "does not export the function pluginGuiInterface"},
    {"../NullFactory", "load-now-global", "failed", "gives no object"},
    {"../ThrowingFactory", "load-lazy-local", "failed", "the licence has expired"},
    {"../OtherVersion", "info", "failed", "another version"},
    {"another-factory", "factory-twice", "failed", "another object each time"},
    {"unsafe-factory", "factory-threads", "failed", "different objects"},
    {"no-vendor", "info", "failed", "does not say its vendor"},
    {"throws-in-second-init", "init-deinit", "failed", "throws"},
    {"no-widget", "offers-widget", "failed", "gives no widget \"dialog\""},
    {"throws-in-constructor", "offers-widget", "failed", "no such picture"},
#ifndef QUANDREL_SANITIZERS // which have a status of their own for what was not freed
    {"ends-process", "offers-widget", "failed", "ended the process of its host, with status 0"},
#endif
    {"aborts", "offers-widget", "crashed", "loadDeviceWidget"},
    {"answers-any-device", "other-names", "failed", "which it does not have"},
    {"answers-any-widget", "other-names", "failed", "which it does not have"},
    {"ignores-case", "other-names", "failed", "broken works lamp"},
    {"trims-names", "other-names", "failed", "which it does not have"},
    {"crashes-on-unknown-name", "other-names", "crashed", "it was asked for the widget"},
    {"prints", "prints-nothing", "failed", "standard output, which belongs to its host: hello"},
    {"prints-errors", "prints-nothing", "failed", "standard error: something is wrong"},
    {"warns", "no-warnings", "failed", "noSuchSignal"},
};

} // namespace

/// Level 1: what is wrong with a library and its factory.
class LoadingDefectsTest : public DefectsTest
{
public:
    LoadingDefectsTest() : DefectsTest(all) {}
};

TEST_WITHOUT_WINDOWS(LoadingDefectsTest)

} // namespace loading_defects_test
