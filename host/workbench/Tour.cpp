#include "host/workbench/Tour.h"

#include "host/device/Device.h"
#include "host/workbench/Window.h"

#include <QAbstractButton>
#include <QDeadlineTimer>
#include <QDir>
#include <QHostAddress>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPixmap>
#include <QSaveFile>
#include <QTcpSocket>
#include <QTextStream>
#include <QTimer>
#include <QToolBar>
#include <QWindow>

#include <chrono>

namespace host::workbench {

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 30s;
constexpr int connected = 3;

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
    return start() && connectRobot() && disconnectRobot() && connectNowhere() && showFailure();
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
    click(*connectButton(m_window));
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
    if (!waitUntil(isSettled))
        return fail(tr("it takes too long: %1").arg(m_device.status()));
    if (m_device.connectionState() != connected)
        return fail(m_device.status());
    return takePicture(m_window, "connected");
}

bool Tour::disconnectRobot()
{
    m_step = tr("disconnecting");
    click(*connectButton(m_window));
    if (!waitUntil([this] { return m_device.connectionState() < 0; }))
        return fail(tr("it takes too long: %1").arg(m_device.status()));
    return takePicture(m_window, "disconnected");
}

bool Tour::connectNowhere()
{
    m_step = tr("being refused");
    // Bound and not listening: this port refuses as long as the socket lives.
    QTcpSocket closedPort;
    if (!closedPort.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress))
        return fail(closedPort.errorString());
    const QString address = QStringLiteral("127.0.0.1:%1").arg(closedPort.localPort());

    QLineEdit& field = *addressField(m_window);
    if (!waitUntil([&field] { return field.isEnabled(); }))
        return fail(tr("the address field stays disabled"));
    click(field);
    press(Qt::Key_A, Qt::ControlModifier, QString());
    for (const QChar c : address)
        press(0, Qt::NoModifier, c);
    if (field.text() != address)
        return fail(
            tr("the address field does not take the keys: it holds \"%1\"").arg(field.text()));

    press(Qt::Key_Return, Qt::NoModifier, "\r");
    if (!waitUntil([this] { return m_device.connectionState() < 0; }))
        return fail(tr("it takes too long: %1").arg(m_device.status()));
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

bool Tour::show(QWidget& window)
{
    window.show();
    const bool isShown = waitUntil(
        [&window] { return window.windowHandle() && window.windowHandle()->isExposed(); });
    return isShown || fail(tr("the window does not appear on the screen"));
}

void Tour::click(QWidget& target)
{
    const QPoint inWindow = target.mapTo(&m_window, target.rect().center());
    const QPoint onScreen = target.mapToGlobal(target.rect().center());
    QMouseEvent down(QEvent::MouseButtonPress, inWindow, onScreen, Qt::LeftButton, Qt::LeftButton,
                     Qt::NoModifier);
    QMouseEvent up(QEvent::MouseButtonRelease, inWindow, onScreen, Qt::LeftButton, Qt::NoButton,
                   Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.windowHandle(), &down);
    QCoreApplication::sendEvent(m_window.windowHandle(), &up);
}

void Tour::press(int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
    QKeyEvent up(QEvent::KeyRelease, key, modifiers, text);
    QCoreApplication::sendEvent(m_window.windowHandle(), &down);
    QCoreApplication::sendEvent(m_window.windowHandle(), &up);
}

bool Tour::takePicture(QWidget& window, const QString& name)
{
    if (m_isStopped)
        return fail(QString());
    QCoreApplication::sendPostedEvents(); // the plugin's widgets are told of the state out of there
    const QString path = QDir(m_folder).filePath(
        QStringLiteral("%1-%2.png").arg(++m_pictures, 2, 10, QChar('0')).arg(name));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !window.grab().save(&file, "PNG") || !file.commit())
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
