// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/faults/FaultsMenu.h"

#include "host/device/Device.h"
#include "host/workbench/faults/MessageDialog.h"
#include "host/workbench/values/OutsideText.h"
#include "host/workbench/variables/VariableModel.h"

#include <QAction>
#include <QActionGroup>
#include <QEvent>

#include <set>

namespace host::workbench::faults {

using device::connection::Connection;
using device::variables::Variables;
using ::plugin::gui::VariableKind;

FaultsMenu::FaultsMenu(device::Device& device, QWidget* parent)
    : QMenu(parent),
      m_device(device),
      m_faults(device.faults())
{
    setToolTipsVisible(true);
    m_drop = addAction(QString());
    m_refuse = addToggle(&Faults::isNextRefused, &Faults::setNextRefused);
    m_controller = addToggle(&Faults::hasOtherController, &Faults::setOtherController);
    addSeparator();
    m_delay = addStrengths(
        {0, 500, 2000, 10000}, [this] { return static_cast<int>(m_faults.delay().count()); },
        [this](int value) { m_faults.setDelay(std::chrono::milliseconds(value)); },
        [](int value) {
            return value < 1000 ? tr("%1 ms").arg(value) : tr("%1 s").arg(value / 1000);
        });
    m_lose = addStrengths(
        {0, 2, 5, 20}, [this] { return m_faults.dropInterval(); },
        [this](int value) { m_faults.setDropInterval(value); },
        [](int value) { return tr("One in %1").arg(value); });
    m_freeze = addToggle(&Faults::isScanFrozen, &Faults::setScanFrozen);
    addSeparator();
    m_writes = addToggle(&Faults::areWritesRefused, &Faults::setWritesRefused);
    m_types = addMenu(QString());
    addSeparator();
    m_send = addAction(QString());
    addSeparator();
    m_end = addAction(QString());

    m_drop->setObjectName("drop");
    m_refuse->setObjectName("refuse");
    m_controller->setObjectName("controller");
    m_delay->setObjectName("delay");
    m_lose->setObjectName("lose");
    m_freeze->setObjectName("freeze");
    m_writes->setObjectName("writes");
    m_types->setObjectName("types");
    m_send->setObjectName("send");
    m_end->setObjectName("end");

    connect(m_drop, &QAction::triggered, &m_faults, &Faults::dropLink);
    connect(m_types, &QMenu::aboutToShow, this, &FaultsMenu::listVariables);
    connect(m_send, &QAction::triggered, this, &FaultsMenu::openDialog);
    connect(m_end, &QAction::triggered, &m_faults, &Faults::endAll);
    connect(&m_faults, &Faults::changed, this, &FaultsMenu::refresh);
    connect(&device, &device::Device::connectionStateChanged, this, &FaultsMenu::refresh);
    translate();
    refresh();
}

void FaultsMenu::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QMenu::changeEvent(event);
}

QAction* FaultsMenu::addToggle(bool (Faults::*isOn)() const, void (Faults::*set)(bool on))
{
    QAction* const action = addAction(QString());
    action->setCheckable(true);
    connect(action, &QAction::triggered, &m_faults, set);
    m_toggles.push_back({action, isOn});
    return action;
}

QMenu* FaultsMenu::addStrengths(std::initializer_list<int> values,
                                const std::function<int()>& chosen,
                                const std::function<void(int)>& choose, QString (*words)(int value))
{
    QMenu* const menu = addMenu(QString());
    auto* group = new QActionGroup(menu);
    for (const int value : values) {
        QAction* const action = group->addAction(menu->addAction(QString()));
        action->setCheckable(true);
        action->setData(value);
        connect(action, &QAction::triggered, this, [choose, value] { choose(value); });
    }
    m_strengths.push_back({menu, chosen, words});
    return menu;
}

/// What a widget follows, settings only if there are any, as of the arm's many positions; and what
/// is wrong though nobody follows it any more.
void FaultsMenu::listVariables()
{
    m_types->clear();
    const Variables& variables = m_device.variables();
    std::set<Variables::Key> keys = m_faults.wrongTypes();
    for (const Variables::Key& key : variables.keys()) {
        const bool isThere = key.first != VariableKind::Config || variables.find(key);
        if (isThere && variables.isFollowed(key))
            keys.insert(key);
    }
    for (const Variables::Key& key : keys) {
        const QString name = QString::fromLatin1(key.second.c_str());
        QAction* const action = m_types->addAction(QString(name).replace('&', "&&") + '\t' +
                                                   variables::VariableModel::kindName(key.first));
        action->setToolTip(values::plainToolTip(name));
        action->setObjectName(name);
        action->setCheckable(true);
        action->setChecked(m_faults.wrongTypes().count(key) > 0);
        connect(action, &QAction::triggered, &m_faults,
                [this, key](bool on) { m_faults.setWrongType(key, on); });
    }
    if (keys.empty())
        m_types->addAction(tr("No widget has registered a variable"))->setEnabled(false);
}

void FaultsMenu::translate()
{
    setTitle(tr("Fa&ults"));
    m_drop->setText(tr("&Drop the link"));
    m_drop->setToolTip(tr("The connection ends as if the robot had vanished."));
    m_refuse->setText(tr("&Refuse the next connection"));
    m_refuse->setToolTip(
        tr("The next attempt to connect fails as if no robot were listening. Only that one."));
    m_controller->setText(tr("&Another client in control"));
    m_controller->setToolTip(tr("The device is connected passively, at once or from the next "
                                "connection on: it receives data but cannot command the robot."));
    m_delay->setTitle(tr("&Slow answers"));
    m_delay->menuAction()->setToolTip(
        tr("Connecting and each of the robot's answers take that much longer. The device still "
           "waits 5 s for each: anything slower fails."));
    m_lose->setTitle(tr("&Lose messages"));
    m_lose->menuAction()->setToolTip(
        tr("One in so many of the robot's messages on each topic does not arrive."));
    m_freeze->setText(tr("&Freeze the scan"));
    m_freeze->setToolTip(tr("No new scan reaches the plugin."));
    m_writes->setText(tr("Refuse &writes"));
    m_writes->setToolTip(
        tr("What a widget writes to the configuration is discarded: the widget reads the old value "
           "and is notified of it, and the base log reports it."));
    m_types->setTitle(tr("Wrong &type"));
    m_types->menuAction()->setToolTip(tr("Widgets get a value of another type for the checked "
                                         "variables. The device keeps the right one."));
    m_send->setText(tr("Send a &message…"));
    m_send->setToolTip(tr("Sends all widgets a message of any role and value."));
    m_end->setText(tr("&End all faults"));
    m_end->setToolTip(tr("The device works normally again."));
    for (QMenu* menu : {m_delay, m_lose, m_types})
        menu->setAccessibleName(menu->title().remove('&'));
    for (const StrengthMenu& strengths : m_strengths) {
        const auto actions = strengths.menu->actions();
        for (QAction* action : actions) {
            const int value = action->data().toInt();
            action->setText(value == 0 ? tr("Off") : strengths.words(value));
        }
    }
}

void FaultsMenu::refresh()
{
    m_drop->setEnabled(m_device.connectionState() != Connection::notConnected);
    m_end->setEnabled(m_faults.isAnyOn());
    for (const Toggle& toggle : m_toggles)
        toggle.action->setChecked((m_faults.*toggle.isOn)());
    for (const StrengthMenu& strengths : m_strengths) {
        const auto actions = strengths.menu->actions();
        for (QAction* action : actions)
            action->setChecked(action->data().toInt() == strengths.chosen());
    }
}

void FaultsMenu::openDialog()
{
    if (!m_dialog)
        m_dialog = new MessageDialog(m_device, parentWidget());
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}

} // namespace host::workbench::faults
