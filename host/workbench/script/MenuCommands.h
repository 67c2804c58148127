// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_MENUCOMMANDS_H
#define HOST_WORKBENCH_SCRIPT_MENUCOMMANDS_H

#include "host/workbench/script/Command.h"

#include <QCoreApplication>
#include <QPointer>

class QAction;
class QWidget;

namespace host::workbench::script {

/// Entries of the menu that is open, or of the menu bar, chosen with the mouse.
class MenuCommands
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::script::MenuCommands)

public:
    static Commands all();

private:
    MenuCommands(Scene& scene, const QStringList& path);

    Progress proceed();
    QWidget* menu(QString* problem) const;
    static QAction* entry(const QWidget& menu, const QString& name, QString* problem);

    Scene& m_scene;
    QStringList m_path; // what is still to be chosen
    QPointer<QAction> m_chosen;
    Attempt m_choosing; // of m_chosen, while that is under way
};

} // namespace host::workbench::script

#endif
