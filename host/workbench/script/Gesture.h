// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_GESTURE_H
#define HOST_WORKBENCH_SCRIPT_GESTURE_H

#include "host/workbench/script/Command.h"

#include <QCoreApplication>

#include <functional>
#include <memory>

class QWidget;

namespace host::workbench::script {

/// An attempt at something that a menu or a dialog may hold up which it opens: it is done when it
/// has ended, or when that is on the screen. Carried out once, out of the event loop.
class Gesture
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::script::Gesture)

public:
    explicit Gesture(const std::function<void()>& act);

    Progress operator()() const;

private:
    struct State
    {
        QWidget* before = nullptr; // only to be compared
        bool isBegun = false;
        bool isEnded = false;
    };

    std::shared_ptr<State> m_state;
};

} // namespace host::workbench::script

#endif
