// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TESTS_PLUGINS_TESTINTERFACE_H
#define TESTS_PLUGINS_TESTINTERFACE_H

#include "plugin/gui/Interface.h"

/// What the test plugins have in common: a name.
class TestInterface : public plugin::gui::Interface
{
public:
    TestInterface() : Interface({"tests", "test plugin", "", 0, -1, -1, -1}) {}
};

#endif
