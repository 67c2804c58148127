// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_INPUTCOMMANDS_H
#define HOST_WORKBENCH_SCRIPT_INPUTCOMMANDS_H

#include "host/workbench/script/Command.h"

#include <QCoreApplication>
#include <QPoint>
#include <QPointer>

class QAction;
class QWidget;

namespace host::workbench::script {

/// What a person does with mouse and keys. Each waits until what it is about is in sight and can be
/// used.
class InputCommands
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::script::InputCommands)

public:
    static Commands all();

    /// What is expected of the placeholder @p name in place of @p value; empty if that is fine.
    static QString expected(const QString& name, const QString& value);

    /// Lets go of what is held, if anything is.
    static void release(Scene& scene);

private:
    using Act = std::function<void(QWidget& target, QPoint place)>;

    static Attempt post(const std::function<void()>& act);
    static Attempt onControl(Scene& scene, const Arguments& arguments, const Act& act);
    static QWidget* cell(QWidget& control, const Arguments& arguments, QPoint* place,
                         QString* problem);
    static QWidget* target();

    static Attempt type(Scene& scene, const Arguments& arguments);
    static Attempt press(Scene& scene, const Arguments& arguments);
    static Attempt hold(Scene& scene, const Arguments& arguments);
    static Attempt select(Scene& scene, const Arguments& arguments);
    static Attempt openTab(Scene& scene, const Arguments& arguments);
    static Attempt showDock(Scene& scene, const Arguments& arguments);
};

} // namespace host::workbench::script

#endif
