// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/tour/PluginTour.h"

#include "host/device/Device.h"
#include "host/tour/Hand.h"
#include "host/workbench/window/Window.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QHostAddress>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QSaveFile>
#include <QSpinBox>
#include <QTableView>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>

#include <cmath>

namespace host::tour {

namespace {

constexpr int baseTab = 0;
constexpr int manipulatorTab = 1;
constexpr int laserTab = 2;

constexpr int sequenceNumberRow = 0; // of the laser tab
constexpr int rangeCountRow = 10;

constexpr int recordedRanges = 181;

QString logText(const QWidget& page)
{
    const auto* log = page.findChild<QTextEdit*>();
    return log ? log->toPlainText() : QString();
}

/// Lines are in a log before they are on the screen.
bool isShown(const QWidget& page, const QString& line)
{
    const auto* log = page.findChild<QTextEdit*>();
    return log && log->toPlainText().contains(line) &&
           log->document()->lastBlock().layout()->lineCount() > 0;
}

/// A value of the laser tab; empty where there is no such row.
QString valueText(const QWidget& page, int row)
{
    const auto* form = page.findChild<QFormLayout*>();
    auto* item = form ? form->itemAt(row, QFormLayout::FieldRole) : nullptr;
    const auto* label = item ? qobject_cast<QLabel*>(item->widget()) : nullptr;
    return label ? label->text() : QString();
}

bool hasCameraFrequency(const QWidget& page)
{
    for (const QLabel* label : page.findChildren<QLabel*>()) {
        if (label->text().endsWith(QStringLiteral(" Hz")))
            return label->text() != QStringLiteral("0 Hz");
    }
    return false;
}

int shownRows(const QTableView& table)
{
    return table.verticalHeader()->count();
}

void rightClick(const QTableView& table, int row, int column)
{
    const QPoint place = table.visualRect(table.model()->index(row, column)).center();
    hand::click(*table.viewport(), place, Qt::RightButton);
}

/// The menu's entries without its separators.
QList<QAction*> entries(const QWidget& menu)
{
    QList<QAction*> entries;
    for (QAction* action : menu.actions()) {
        if (!action->isSeparator())
            entries.append(action);
    }
    return entries;
}

/// A CARMEN log of ten seconds: somebody walks past the robot, in a room three metres deep.
QByteArray recording()
{
    QByteArray lines;
    for (int scan = 0; scan < 100; ++scan) {
        lines += "FLASER " + QByteArray::number(recordedRanges);
        for (int ray = 0; ray < recordedRanges; ++ray)
            lines += std::abs(ray - scan) < 8 ? " 1.2" : " 3.0";
        const QByteArray time = QByteArray::number(scan / 10.0, 'f', 1);
        lines += " 0 0 0 0 0 0 " + time + " robot " + time + '\n';
    }
    return lines;
}

} // namespace

PluginTour::PluginTour(Operator& person) : m_operator(person) {}

bool PluginTour::run()
{
    return m_operator.takePicture("not-connected") && connectRobot() && showBase() && showLaser() &&
           showRecording() && showManipulator() && disconnectRobot() && connectNowhere();
}

bool PluginTour::connectRobot()
{
    m_operator.begin(tr("connecting"));
    hand::click(*m_operator.connectButton());
    if (m_operator.device().connectionState() < 0)
        return m_operator.fail(m_operator.device().status());

    m_operator.begin(tr("being connected"));
    const auto isSettled = [this] {
        return m_operator.device().connectionState() < 0 ||
               m_operator.device().connectionState() >= device::connection::Connection::connected;
    };
    for (int frame = 0; frame < device::connection::Connection::connected; ++frame) {
        if (!m_operator.waitUntil(
                [&] { return m_operator.device().connectionState() == frame || isSettled(); }))
            return m_operator.fail(tr("it takes too long: %1").arg(m_operator.device().status()));
        if (isSettled())
            return m_operator.fail(m_operator.device().status());
        if (!m_operator.takePicture(QStringLiteral("connecting-%1").arg(frame + 1)))
            return false;
    }
    return m_operator.waitForConnection() && m_operator.waitForRobot(m_operator.window()) &&
           m_operator.takePicture("connected");
}

bool PluginTour::showBase()
{
    m_operator.begin(tr("showing the base tab"));
    if (!m_operator.openTab(baseTab))
        return false;
    auto* const drive = m_operator.page().findChild<QCheckBox*>();
    if (!drive)
        return m_operator.fail(tr("the tab has no check box for the drive system"));
    if (!m_operator.waitUntil([this] { return hasCameraFrequency(m_operator.page()); }))
        return m_operator.fail(tr("no frames arrive"));
    if (!m_operator.waitUntil([this] { return !logText(m_operator.page()).isEmpty(); }))
        return m_operator.fail(tr("the robot does not say who controls it"));
    for (int i = 0; i < 2; ++i) { // off and on again: the robot tells of both in its log
        const QString before = logText(m_operator.page());
        hand::click(*drive, QPoint(drive->height() / 2, drive->height() / 2));
        if (!m_operator.waitUntil([&] { return logText(m_operator.page()) != before; }))
            return m_operator.fail(tr("the robot says nothing about its drive system"));
    }
    return m_operator.takePicture("base");
}

bool PluginTour::showLaser()
{
    m_operator.begin(tr("showing the laser tab"));
    if (!m_operator.openTab(laserTab))
        return false;
    const auto hasScan = [this] {
        return valueText(m_operator.page(), sequenceNumberRow) != QStringLiteral("0");
    };
    if (valueText(m_operator.page(), rangeCountRow).isEmpty())
        return m_operator.fail(tr("the tab does not show the values of a scan"));
    return m_operator.waitUntil(hasScan) ? m_operator.takePicture("laser")
                                         : m_operator.fail(tr("no scans arrive"));
}

bool PluginTour::showRecording()
{
    m_operator.begin(tr("replaying a recording"));
    const QTemporaryDir folder;
    QSaveFile file(folder.filePath("walk.log"));
    if (!file.open(QIODevice::WriteOnly) || file.write(recording()) < 0 || !file.commit())
        return m_operator.fail(
            tr("%1 cannot be written: %2").arg(file.fileName(), file.errorString()));
    QStringList problems;
    QString error = m_replayRobot.error();
    if (!error.isEmpty() || !m_replayRobot.setLaserLog(file.fileName(), 1.0, &problems, &error))
        return m_operator.fail(error);

    const QString before = logText(m_operator.page());
    hand::click(*m_operator.connectButton());
    if (!m_operator.waitForDisconnection() || !m_operator.enterAddress(m_replayRobot.address()) ||
        !m_operator.waitForConnection() || !m_operator.waitForRobot(m_operator.window()))
        return false;
    const auto hasScan = [&] {
        return valueText(m_operator.page(), rangeCountRow) == QString::number(recordedRanges) &&
               logText(m_operator.page()) != before; // the robot names the recording
    };
    return m_operator.waitUntil(hasScan) ? m_operator.takePicture("laser-recorded")
                                         : m_operator.fail(tr("no scans arrive"));
}

bool PluginTour::showManipulator()
{
    m_operator.begin(tr("showing the manipulator tab"));
    if (!m_operator.openTab(manipulatorTab))
        return false;
    auto* const table = m_operator.page().findChild<QTableView*>();
    if (!table)
        return m_operator.fail(tr("the tab has no table of positions"));
    if (!m_operator.waitUntil([table] { return shownRows(*table) >= 2; }))
        return m_operator.fail(tr("the table has fewer than two positions"));
    return m_operator.takePicture("manipulator") && editPosition(*table) && fillPositions(*table);
}

bool PluginTour::editPosition(QTableView& table)
{
    m_operator.begin(tr("editing a position"));
    constexpr int row = 1;
    constexpr int axis = 3;
    const QPoint cell = table.visualRect(table.model()->index(row, axis)).center();
    hand::click(*table.viewport(), cell);
    hand::press(m_operator.window(), Qt::Key_F2);
    const QPointer<QSpinBox> editor = table.viewport()->findChild<QSpinBox*>();
    if (!editor)
        return m_operator.fail(tr("the cell cannot be edited"));
    hand::type(m_operator.window(), QStringLiteral("120"));
    if (!m_operator.takePicture("manipulator-editing"))
        return false;
    hand::press(m_operator.window(), Qt::Key_Escape);
    if (!m_operator.waitUntil([&editor] { return !editor; }))
        return m_operator.fail(tr("the cell stays in edit mode"));

    m_operator.begin(tr("changing a speed"));
    const auto inDialog = [this](QWidget&) { return m_operator.takePicture("manipulator-speed"); };
    const auto inMenu = [&](QWidget& menu) {
        return m_operator.takePicture("manipulator-menu") &&
               m_operator.within(
                   [&menu] { hand::choose(static_cast<QMenu&>(menu), *entries(menu).first()); },
                   inDialog);
    };
    return m_operator.within([&] { rightClick(table, row, axis); }, inMenu);
}

bool PluginTour::fillPositions(QTableView& table)
{
    m_operator.begin(tr("filling the table of positions"));
    constexpr int entriesWithAdd = 3; // add, remove, help
    bool isFull = false;
    const auto addPosition = [&](QWidget& menu) {
        const QList<QAction*> offered = entries(menu);
        isFull = offered.size() < entriesWithAdd;
        if (!isFull)
            hand::choose(static_cast<QMenu&>(menu), *offered.first());
        return true;
    };
    while (!isFull) {
        const int rows = shownRows(table);
        if (!m_operator.within([&] { rightClick(table, 0, 0); }, addPosition))
            return false;
        if (!isFull && !m_operator.waitUntil([&] { return shownRows(table) > rows; }))
            return m_operator.fail(tr("no position is added to the %1 there are").arg(rows));
    }
    // To the last row's first cell. Its menu offers to add no more.
    hand::press(m_operator.window(), Qt::Key_End, Qt::ControlModifier);
    hand::press(m_operator.window(), Qt::Key_Home);
    return m_operator.within(
        [&] { rightClick(table, shownRows(table) - 1, 0); },
        [this](QWidget&) { return m_operator.takePicture("manipulator-full"); });
}

bool PluginTour::disconnectRobot()
{
    m_operator.begin(tr("disconnecting"));
    if (!m_operator.openTab(baseTab))
        return false;
    hand::click(*m_operator.connectButton());
    return m_operator.waitForDisconnection() && m_operator.takePicture("disconnected");
}

bool PluginTour::connectNowhere()
{
    m_operator.begin(tr("being refused"));
    // Bound and not listening: this port refuses as long as the socket lives.
    QTcpSocket closedPort;
    if (!closedPort.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress))
        return m_operator.fail(closedPort.errorString());
    const QString address = QStringLiteral("127.0.0.1:%1").arg(closedPort.localPort());

    const auto* const secondField = m_operator.page().findChild<QLineEdit*>();
    if (!secondField)
        return m_operator.fail(tr("the tab has no address field"));
    if (!m_operator.enterAddress(address))
        return false;
    const auto isRefused = [&] {
        const QString reason = m_operator.device().status();
        return m_operator.device().connectionState() < 0 && reason.contains(address) &&
               isShown(m_operator.page(), reason);
    };
    if (!m_operator.waitUntil(isRefused))
        return m_operator.fail(tr("the tab does not say that nothing answers"));
    if (!m_operator.waitForDisconnection())
        return false;
    if (!m_operator.waitUntil([&] { return secondField->text() == address; }))
        return m_operator.fail(
            tr("the tab's address field stays at \"%1\"").arg(secondField->text()));
    return m_operator.takePicture("refused");
}

} // namespace host::tour
