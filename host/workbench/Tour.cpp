#include "host/workbench/Tour.h"

#include "host/device/Device.h"
#include "host/workbench/Hand.h"
#include "host/workbench/Window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDeadlineTimer>
#include <QDir>
#include <QFormLayout>
#include <QHeaderView>
#include <QHostAddress>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QSaveFile>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QTextStream>
#include <QTimer>
#include <QToolBar>
#include <QWindow>

#include <chrono>
#include <cmath>

namespace host::workbench {

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 30s;
constexpr int connected = 3;

constexpr int baseTab = 0;
constexpr int manipulatorTab = 1;
constexpr int laserTab = 2;

constexpr int sequenceNumberRow = 0; // of the laser tab
constexpr int rangeCountRow = 10;

constexpr int recordedRanges = 181;

/// In the tool bar, since a plugin's dialog may hold another one.
template <class Widget>
Widget* inToolBar(const QWidget& window, const char* name = "")
{
    const auto* toolBar = window.findChild<QToolBar*>();
    return toolBar ? toolBar->findChild<Widget*>(QLatin1String(name)) : nullptr;
}

QAbstractButton* connectButton(const QWidget& window)
{
    return inToolBar<QAbstractButton>(window, "OLM GmbH Quandrel ConnectButton");
}

QLineEdit* addressField(const QWidget& window)
{
    return inToolBar<QLineEdit>(window);
}

/// The dialog's open tab has been found to exist by openTab().
QWidget& page(const QWidget& window)
{
    return *window.findChild<QTabWidget*>()->currentWidget();
}

QString logText(const QWidget& page)
{
    const auto* log = page.findChild<QTextEdit*>();
    return log ? log->toPlainText() : QString();
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

void choose(QMenu& menu, QAction& action)
{
    hand::click(menu, menu.actionGeometry(&action).center());
}

bool isOnScreen(const QWidget& window)
{
    return window.windowHandle() && window.windowHandle()->isExposed();
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

/// Paints a menu or a dialog over the picture of the window below, with the frame and the title
/// that a screen would give a dialog.
void paintOver(QPixmap& picture, const QWidget& window, QWidget& widget)
{
    QPainter painter(&picture);
    const QRect place(window.mapFromGlobal(widget.mapToGlobal(QPoint())), widget.size());
    if (!qobject_cast<QMenu*>(&widget)) {
        const QPalette& palette = widget.palette();
        const int height = widget.fontMetrics().height() + 8;
        painter.setPen(palette.color(QPalette::Shadow));
        painter.setBrush(palette.dark());
        painter.drawRect(place.adjusted(-1, -height - 1, 0, 0));
        painter.setPen(palette.color(QPalette::BrightText));
        painter.drawText(QRect(place.left(), place.top() - height, place.width(), height),
                         Qt::AlignCenter,
                         widget.fontMetrics().elidedText(widget.windowTitle(), Qt::ElideRight,
                                                         place.width() - 8));
    }
    painter.drawPixmap(place.topLeft(), widget.grab());
}

} // namespace

Tour::Tour(const QString& folder, Window& window, Window& failureWindow, device::Device& device)
    : m_folder(folder),
      m_window(window),
      m_failureWindow(failureWindow),
      m_device(device)
{
}

bool Tour::run()
{
    m_step = tr("making the folder");
    if (!QDir().mkpath(m_folder))
        return fail(tr("%1 is not a folder and cannot be made one").arg(m_folder));
    return start() && connectRobot() && showBase() && showLaser() && showRecording() &&
           showManipulator() && disconnectRobot() && connectNowhere() && showFailure();
}

bool Tour::start()
{
    m_step = tr("showing the window");
    if (!m_window.failures().isEmpty())
        return fail('\n' + m_window.failures().first().text());
    if (!connectButton(m_window) || !addressField(m_window))
        return fail(tr("the plugin's tool bar has no connect button or no address field"));
    return show(m_window) && takePicture(m_window, "not-connected");
}

bool Tour::connectRobot()
{
    m_step = tr("connecting");
    hand::click(*connectButton(m_window));
    if (m_device.connectionState() < 0)
        return fail(m_device.status());

    m_step = tr("being connected");
    const auto isSettled = [this] {
        return m_device.connectionState() < 0 || m_device.connectionState() >= connected;
    };
    for (int frame = 0; frame < connected; ++frame) {
        if (!waitUntil([&] { return m_device.connectionState() == frame || isSettled(); }))
            return fail(tr("it takes too long: %1").arg(m_device.status()));
        if (isSettled())
            return fail(m_device.status());
        if (!takePicture(m_window, QStringLiteral("connecting-%1").arg(frame + 1)))
            return false;
    }
    return waitForConnection() && takePicture(m_window, "connected");
}

bool Tour::showBase()
{
    m_step = tr("showing the base tab");
    if (!openTab(baseTab))
        return false;
    auto* const drive = page(m_window).findChild<QCheckBox*>();
    if (!drive)
        return fail(tr("the tab has no check box for the drive system"));
    if (!waitUntil([this] { return hasCameraFrequency(page(m_window)); }))
        return fail(tr("no frames arrive"));
    for (int i = 0; i < 2; ++i) { // off and on again: the robot tells of both in its log
        const QString before = logText(page(m_window));
        hand::click(*drive, QPoint(drive->height() / 2, drive->height() / 2));
        if (!waitUntil([&] { return logText(page(m_window)) != before; }))
            return fail(tr("the robot says nothing about its drive system"));
    }
    return takePicture(m_window, "base");
}

bool Tour::showLaser()
{
    m_step = tr("showing the laser tab");
    if (!openTab(laserTab))
        return false;
    const auto hasScan = [this] {
        return valueText(page(m_window), sequenceNumberRow) != QStringLiteral("0");
    };
    if (valueText(page(m_window), rangeCountRow).isEmpty())
        return fail(tr("the tab does not show the values of a scan"));
    return waitUntil(hasScan) ? takePicture(m_window, "laser") : fail(tr("no scans arrive"));
}

bool Tour::showRecording()
{
    m_step = tr("replaying a recording");
    const QTemporaryDir folder;
    QSaveFile file(folder.filePath("walk.log"));
    if (!file.open(QIODevice::WriteOnly) || file.write(recording()) < 0 || !file.commit())
        return fail(tr("%1 cannot be written: %2").arg(file.fileName(), file.errorString()));
    QStringList problems;
    QString error = m_replayRobot.error();
    if (!error.isEmpty() || !m_replayRobot.setLaserLog(file.fileName(), 1.0, &problems, &error))
        return fail(error);

    const QString before = logText(page(m_window));
    hand::click(*connectButton(m_window));
    if (!waitForDisconnection() || !enterAddress(m_replayRobot.address()) || !waitForConnection())
        return false;
    const auto hasScan = [&] {
        return valueText(page(m_window), rangeCountRow) == QString::number(recordedRanges) &&
               logText(page(m_window)) != before; // the robot names the recording
    };
    return waitUntil(hasScan) ? takePicture(m_window, "laser-recorded")
                              : fail(tr("no scans arrive"));
}

bool Tour::showManipulator()
{
    m_step = tr("showing the manipulator tab");
    if (!openTab(manipulatorTab))
        return false;
    auto* const table = page(m_window).findChild<QTableView*>();
    if (!table)
        return fail(tr("the tab has no table of positions"));
    if (!waitUntil([table] { return shownRows(*table) >= 2; }))
        return fail(tr("the table has no two positions"));
    return takePicture(m_window, "manipulator") && editPosition(*table) && fillPositions(*table);
}

bool Tour::editPosition(QTableView& table)
{
    m_step = tr("editing a position");
    constexpr int row = 1;
    constexpr int axis = 3;
    const QPoint cell = table.visualRect(table.model()->index(row, axis)).center();
    hand::click(*table.viewport(), cell);
    hand::press(m_window, Qt::Key_F2);
    const QPointer<QSpinBox> editor = table.viewport()->findChild<QSpinBox*>();
    if (!editor)
        return fail(tr("the cell cannot be edited"));
    hand::type(m_window, QStringLiteral("120"));
    if (!takePicture(m_window, "manipulator-editing"))
        return false;
    hand::press(m_window, Qt::Key_Escape);
    if (!waitUntil([&editor] { return !editor; }))
        return fail(tr("the cell stays in edit"));

    m_step = tr("changing a speed");
    const auto inDialog = [this](QWidget&) { return takePicture(m_window, "manipulator-speed"); };
    const auto inMenu = [&](QWidget& menu) {
        return takePicture(m_window, "manipulator-menu") &&
               within([&menu] { choose(static_cast<QMenu&>(menu), *entries(menu).first()); },
                      inDialog);
    };
    return within([&] { rightClick(table, row, axis); }, inMenu);
}

bool Tour::fillPositions(QTableView& table)
{
    m_step = tr("filling the table of positions");
    constexpr int entriesWithAdd = 3; // add, remove, help
    bool isFull = false;
    const auto addPosition = [&](QWidget& menu) {
        const QList<QAction*> offered = entries(menu);
        isFull = offered.size() < entriesWithAdd;
        if (!isFull)
            choose(static_cast<QMenu&>(menu), *offered.first());
        return true;
    };
    while (!isFull) {
        const int rows = shownRows(table);
        if (!within([&] { rightClick(table, 0, 0); }, addPosition))
            return false;
        if (!isFull && !waitUntil([&] { return shownRows(table) > rows; }))
            return fail(tr("no position is added to the %1 there are").arg(rows));
    }
    // To the last row's first cell. Its menu offers to add no more.
    hand::press(m_window, Qt::Key_End, Qt::ControlModifier);
    hand::press(m_window, Qt::Key_Home);
    return within([&] { rightClick(table, shownRows(table) - 1, 0); },
                  [this](QWidget&) { return takePicture(m_window, "manipulator-full"); });
}

bool Tour::disconnectRobot()
{
    m_step = tr("disconnecting");
    if (!openTab(baseTab))
        return false;
    hand::click(*connectButton(m_window));
    return waitForDisconnection() && takePicture(m_window, "disconnected");
}

bool Tour::connectNowhere()
{
    m_step = tr("being refused");
    // Bound and not listening: this port refuses as long as the socket lives.
    QTcpSocket closedPort;
    if (!closedPort.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress))
        return fail(closedPort.errorString());
    const QString address = QStringLiteral("127.0.0.1:%1").arg(closedPort.localPort());

    const auto* const secondField = page(m_window).findChild<QLineEdit*>();
    if (!secondField)
        return fail(tr("the tab has no address field"));
    if (!enterAddress(address) || !waitForDisconnection())
        return false;
    if (!waitUntil([&] { return secondField->text() == address; }))
        return fail(tr("the tab's address field stays at \"%1\"").arg(secondField->text()));
    return takePicture(m_window, "refused");
}

bool Tour::showFailure()
{
    m_step = tr("showing a missing plugin");
    if (m_failureWindow.failures().isEmpty())
        return fail(tr("the plugin was found"));
    m_window.hide();
    return show(m_failureWindow) && takePicture(m_failureWindow, "plugin-missing");
}

bool Tour::openTab(int index)
{
    auto* const tabs = m_window.findChild<QTabWidget*>();
    if (!tabs || tabs->count() <= index)
        return fail(tr("the plugin's dialog has no such tab"));
    hand::click(*tabs->tabBar(), tabs->tabBar()->tabRect(index).center());
    return tabs->currentIndex() == index || fail(tr("the tab does not open"));
}

/// Connects, too.
bool Tour::enterAddress(const QString& address)
{
    QLineEdit& field = *addressField(m_window);
    if (!waitUntil([&field] { return field.isEnabled(); }))
        return fail(tr("the address field stays disabled"));
    hand::click(field);
    hand::press(m_window, Qt::Key_A, Qt::ControlModifier);
    hand::type(m_window, address);
    if (field.text() != address)
        return fail(
            tr("the address field does not take the keys: it holds \"%1\"").arg(field.text()));
    hand::press(m_window, Qt::Key_Return);
    return true;
}

bool Tour::waitForConnection()
{
    const auto isSettled = [this] {
        return m_device.connectionState() < 0 || m_device.connectionState() >= connected;
    };
    if (!waitUntil(isSettled))
        return fail(tr("it takes too long: %1").arg(m_device.status()));
    return m_device.connectionState() == connected || fail(m_device.status());
}

bool Tour::waitForDisconnection()
{
    return waitUntil([this] { return m_device.connectionState() < 0; }) ||
           fail(tr("it takes too long: %1").arg(m_device.status()));
}

/// Looks after every turn of the event loop, so that no state is too short to be seen.
bool Tour::waitUntil(const std::function<bool()>& condition)
{
    const QDeadlineTimer deadline(patience);
    QTimer alarm; // ends the wait for events that never come
    alarm.start(patience);
    while (!condition()) {
        if (m_isStopped || deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

/// Has @p open bring up a menu or a dialog, which holds it up until it is closed, and does @p act
/// in it meanwhile. False, and said why, if nothing came up or @p act gave false.
bool Tour::within(const std::function<void()>& open, const std::function<bool(QWidget&)>& act)
{
    bool isDone = false;
    bool isOpened = false;
    const QDeadlineTimer deadline(patience);
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        const QPointer<QWidget> opened = QApplication::activePopupWidget()
                                             ? QApplication::activePopupWidget()
                                             : QApplication::activeModalWidget();
        if (!opened || (!isOnScreen(*opened) && !m_isStopped && !deadline.hasExpired()))
            return;
        timer.stop();
        isOpened = isOnScreen(*opened);
        isDone = isOpened && act(*opened);
        if (opened)
            opened->close();
    });
    timer.start();
    open();
    return isDone || (isOpened ? false : fail(tr("no menu and no dialog appears")));
}

bool Tour::show(QWidget& window)
{
    window.show();
    return waitUntil([&window] { return isOnScreen(window); }) ||
           fail(tr("the window does not appear on the screen"));
}

bool Tour::takePicture(QWidget& window, const QString& name)
{
    if (m_isStopped)
        return fail(QString());
    QCoreApplication::sendPostedEvents(); // the plugin's widgets are told of the state out of there
    const QString path = QDir(m_folder).filePath(
        QStringLiteral("%1-%2.png").arg(++m_pictures, 2, 10, QChar('0')).arg(name));
    QPixmap picture = window.grab();
    for (QWidget* above : {QApplication::activeModalWidget(), QApplication::activePopupWidget()}) {
        if (above)
            paintOver(picture, window, *above);
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !picture.save(&file, "PNG") || !file.commit())
        return fail(tr("%1 cannot be written: %2").arg(path, file.errorString()));
    QTextStream(stdout) << path << '\n';
    return true;
}

bool Tour::fail(const QString& why)
{
    const QString reason = m_isStopped ? tr("it was interrupted.") : why;
    QTextStream(stderr) << tr("The tour ended at \"%1\": %2").arg(m_step, reason) << '\n';
    return false;
}

} // namespace host::workbench
