// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/stage/Stage.h"

#include "host/check/stage/Failure.h"
#include "host/check/stage/Progress.h"
#include "host/check/stage/Subject.h"
#include "host/check/stage/Values.h"
#include "host/device/trace/CallUnderWay.h"
#include "plugin/gui/Interface.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>

#include <exception>
#include <utility>

namespace host::check::stage {

using plugin::gui::DeviceWidget;

namespace {

constexpr int windowPatience = 1000; // ms
constexpr int roles[] = {-1, 0, 1, 2, 3, 1000, 1001, 1002, 1003, 1004, 1005, 1006};

} // namespace

std::unique_ptr<DeviceWidget> load(Subject& subject, const QByteArray& device,
                                   const QByteArray& widget, RecordingHost& host)
{
    const ::plugin::gui::Interface& factory = subject.interface();
    const QString name = QString::fromLatin1(widget);
    try {
        const device::trace::CallUnderWay call("loadDeviceWidget");
        return std::unique_ptr<DeviceWidget>(
            factory.loadDeviceWidget(device.constData(), widget.constData(), host.delegate()));
    } catch (const std::exception& e) {
        fail(QStringLiteral("its factory threw an exception for the widget \"%1\": %2")
                 .arg(name, QString::fromUtf8(e.what())));
    } catch (...) {
        fail(QStringLiteral(
                 "its factory threw an exception of an unknown type for the widget \"%1\"")
                 .arg(name));
    }
}

Stage::Stage(Subject& subject)
    : Stage(subject, std::make_unique<RecordingHost>(subject.complaints()))
{
}

Stage::Stage(Subject& subject, std::unique_ptr<RecordingHost> host) : m_host(std::move(host))
{
    m_widget = load(subject, subject.device(), subject.widget(), *m_host).release();
    if (!m_widget)
        fail(QStringLiteral("gives no widget \"%1\"").arg(QString::fromLatin1(subject.widget())));
}

Stage::~Stage()
{
    strike();
}

void Stage::strike()
{
    const device::trace::CallUnderWay call("destructor of a widget");
    delete m_widget;
}

void Stage::show()
{
    m_widget->show();
    m_widget->activateWindow();
    QElapsedTimer clock;
    clock.start();
    do
        settle();
    while (m_widget && !m_widget->isActiveWindow() && clock.elapsed() < windowPatience);
}

void Stage::tellEverything()
{
    m_host->connected();
    for (const Variant& value : usualValues()) {
        const auto registered = m_host->usage().registered; // an update may register more
        for (const Variable& variable : registered) {
            Progress::note("an update of the " + inWords(variable, value));
            m_host->change(variable, value);
        }
        for (const int role : roles) {
            Progress::note(
                QStringLiteral("a message of role %1, %2").arg(role).arg(inWords(value)));
            m_host->message(role, value);
        }
    }
    Progress::note(QString());
    m_host->disconnected();
    settle();
}

void settle()
{
    constexpr int rounds = 3; // what is due may post more
    for (int i = 0; i < rounds; ++i) {
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void wait(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
    settle();
}

} // namespace host::check::stage
