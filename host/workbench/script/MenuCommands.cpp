// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/script/MenuCommands.h"

#include "host/input/Hand.h"
#include "host/workbench/script/Controls.h"
#include "host/workbench/script/Gesture.h"
#include "host/workbench/script/Scene.h"
#include "host/workbench/window/Window.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <memory>

namespace host::workbench::script {

namespace hand = input::hand;

Commands MenuCommands::all()
{
    return {{"choose ENTRY…", Command::Kind::Act, [](Scene& scene, const Arguments& arguments) {
                 const std::shared_ptr<MenuCommands> choice(
                     new MenuCommands(scene, arguments.values("ENTRY")));
                 return Attempt([choice] { return choice->proceed(); });
             }}};
}

MenuCommands::MenuCommands(Scene& scene, const QStringList& path) : m_scene(scene), m_path(path) {}

Progress MenuCommands::proceed()
{
    if (m_choosing) {
        Progress progress = m_choosing();
        if (progress.state != Progress::State::Done)
            return progress;
        m_choosing = {};
    }
    if (m_path.isEmpty() && !(m_chosen && m_chosen->menu()))
        return Progress::done();
    QString problem;
    QWidget* const menu = this->menu(&problem);
    if (menu && m_path.isEmpty())
        return Progress::done(); // a menu that stays open
    QAction* const entry = menu ? this->entry(*menu, m_path.first(), &problem) : nullptr;
    if (!entry)
        return Progress::waiting(problem);
    m_path.removeFirst();
    m_chosen = entry;
    m_choosing = Gesture([menu = QPointer<QWidget>(menu), entry = m_chosen] {
        if (!menu || !entry)
            return;
        if (auto* bar = qobject_cast<QMenuBar*>(menu))
            hand::click(*bar, bar->actionGeometry(entry).center());
        else
            hand::choose(static_cast<QMenu&>(*menu), *entry);
    });
    return Progress::waiting(tr("the menu does not react"));
}

/// Where the next entry is: in the menu of the one before, in the menu that was open, or in the
/// menu bar.
QWidget* MenuCommands::menu(QString* problem) const
{
    auto* const open = qobject_cast<QMenu*>(Controls::topmost());
    if (!m_chosen && !open)
        return m_scene.window().menuBar();
    if (m_chosen && !m_chosen->menu()) {
        *problem = tr("\"%1\" is no menu").arg(Controls::plain(m_chosen->text()));
        return nullptr;
    }
    const bool isRight = open && (!m_chosen || open == m_chosen->menu());
    if (isRight && Controls::isOnScreen(*open))
        return open;
    *problem = tr("the menu does not open");
    return nullptr;
}

QAction* MenuCommands::entry(const QWidget& menu, const QString& name, QString* problem)
{
    QStringList names;
    for (QAction* action : menu.actions()) {
        if (action->isSeparator() || !action->isVisible())
            continue;
        const QString text = Controls::plain(action->text());
        names << text;
        const bool isMeant = text == Controls::plain(name) || action->objectName() == name ||
                             (action->menu() && action->menu()->objectName() == name) ||
                             names.size() == name.toInt();
        if (!isMeant)
            continue;
        if (action->isEnabled())
            return action;
        *problem = tr("\"%1\" is disabled").arg(text);
        return nullptr;
    }
    *problem = tr("there is no entry \"%1\"; there are: %2").arg(name, names.join(", "));
    return nullptr;
}

} // namespace host::workbench::script
