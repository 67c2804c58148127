// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/tour/Operator.h"

#include "host/device/Device.h"
#include "host/tour/Hand.h"
#include "host/workbench/robotview/RobotFeed.h"
#include "host/workbench/window/Window.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QSaveFile>
#include <QTabBar>
#include <QTabWidget>
#include <QTextStream>
#include <QTimer>
#include <QToolBar>
#include <QWindow>

#include <algorithm>
#include <chrono>

namespace host::tour {

namespace {

constexpr QSize pictureSize(1000, 640);

using namespace std::chrono_literals;

constexpr auto patience = 30s;

/// The plugin's widget in the tool bar; null without one.
const QWidget* toolBarWidget(const QWidget& window)
{
    const auto* toolBar = window.findChild<QToolBar*>();
    return toolBar && !toolBar->actions().isEmpty()
               ? toolBar->widgetForAction(toolBar->actions().first())
               : nullptr;
}

/// The first of its kind in the tool bar, since a plugin's dialog may hold another.
template <class Widget>
Widget* inToolBar(const QWidget& window)
{
    const QWidget* const widget = toolBarWidget(window);
    return widget ? widget->findChild<Widget*>() : nullptr;
}

bool isOnScreen(const QWidget& window)
{
    return window.windowHandle() && window.windowHandle()->isExposed();
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

Operator::Operator(const QString& folder, workbench::window::Window& window, device::Device& device)
    : m_folder(folder),
      m_window(window),
      m_device(device)
{
}

bool Operator::start()
{
    begin(tr("making the folder"));
    if (!QDir().mkpath(m_folder))
        return fail(tr("%1 is not a folder, and none can be made there").arg(m_folder));
    begin(tr("showing the window"));
    if (!m_window.failures().isEmpty())
        return fail('\n' + m_window.failures().first().text());
    if (!connectButton() || !addressField())
        return fail(tr("the plugin's tool bar has no connect button or no address field"));
    return show(m_window);
}

QAbstractButton* Operator::connectButton() const
{
    return inToolBar<QAbstractButton>(m_window);
}

QLineEdit* Operator::addressField() const
{
    return inToolBar<QLineEdit>(m_window);
}

QWidget& Operator::page() const
{
    return *m_window.findChild<QTabWidget*>()->currentWidget();
}

bool Operator::openTab(int index)
{
    auto* const tabs = m_window.findChild<QTabWidget*>();
    if (!tabs || tabs->count() <= index)
        return fail(tr("the plugin's dialog has no such tab"));
    hand::click(*tabs->tabBar(), tabs->tabBar()->tabRect(index).center());
    return tabs->currentIndex() == index || fail(tr("the tab does not open"));
}

bool Operator::enterAddress(const QString& address)
{
    QLineEdit& field = *addressField();
    if (!waitUntil([&field] { return field.isEnabled(); }))
        return fail(tr("the address field stays disabled"));
    hand::click(field);
    hand::press(m_window, Qt::Key_A, Qt::ControlModifier);
    hand::type(m_window, address);
    if (field.text() != address)
        return fail(
            tr("the address field does not accept the keys: it contains \"%1\"").arg(field.text()));
    hand::press(m_window, Qt::Key_Return);
    return true;
}

bool Operator::waitForConnection()
{
    const auto isSettled = [this] {
        return m_device.connectionState() < 0 ||
               m_device.connectionState() >= device::connection::Connection::connected;
    };
    if (!waitUntil(isSettled))
        return fail(tr("it takes too long: %1").arg(m_device.status()));
    return m_device.connectionState() == device::connection::Connection::connected ||
           fail(m_device.status());
}

bool Operator::waitForRobot(QWidget& window)
{
    const auto isShown = [](const QDockWidget* dock) {
        const auto* const notes = dock->findChild<QLabel*>("notes"); // what is missing
        const auto* const parts = dock->findChild<QAbstractItemView*>("parts");
        const auto isAngle = [parts](int column) {
            return parts->model()->index(0, column).data().toString().contains(QChar(0x00b0));
        };
        const auto* const feed = dock->findChild<workbench::robotview::RobotFeed*>();
        const auto& robot = feed->state();
        return notes->isHidden() && isAngle(1) && isAngle(2) && robot.map() && robot.robotPlace() &&
               robot.raysPlace();
    };
    const auto docks = window.findChildren<QDockWidget*>("RobotDock");
    return waitUntil([&] { return std::all_of(docks.begin(), docks.end(), isShown); }) ||
           fail(tr("the dock does not show the robot"));
}

bool Operator::waitForDisconnection()
{
    // The status line follows at its own pace.
    const auto* const words = m_window.findChild<const QLabel*>("status");
    return waitUntil([&] {
               return m_device.connectionState() < 0 &&
                      (!words || words->text() == m_device.status());
           }) ||
           fail(tr("it takes too long: %1").arg(m_device.status()));
}

/// Looks after every turn of the event loop, so that no state is too short to be seen.
bool Operator::waitUntil(const std::function<bool()>& condition)
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

bool Operator::within(const std::function<void()>& open, const std::function<bool(QWidget&)>& act)
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
    waitUntil([&timer] { return !timer.isActive(); });
    return isDone || (isOpened ? false : fail(tr("no menu and no dialog appears")));
}

bool Operator::show(QWidget& window)
{
    window.resize(pictureSize); // whatever the screen
    window.show();
    return waitUntil([&window] { return isOnScreen(window); }) ||
           fail(tr("the window does not appear on the screen"));
}

bool Operator::takePicture(QWidget& window, const QString& name)
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

bool Operator::takePicture(const QString& name)
{
    return takePicture(m_window, name);
}

bool Operator::fail(const QString& why)
{
    const QString reason = m_isStopped ? tr("it was interrupted.") : why;
    QTextStream(stderr) << tr("The tour ended at \"%1\": %2").arg(m_step, reason) << '\n';
    return false;
}

} // namespace host::tour
