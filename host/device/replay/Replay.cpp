// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/replay/Replay.h"

#include "host/device/connection/MessageRole.h"
#include "host/device/connection/SimulationDirectExecRole.h"
#include "plugin/gui/Interface.h"

#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace host::device::replay {

using namespace std::chrono_literals;

using recording::RecordedCall;
using trace::PluginCall;

namespace {

constexpr auto frame = 20ms;
constexpr auto longestWork = 20ms; // before whoever uses the window is heard

const QLatin1String messageFunction("on_messageReceived");

bool isConnected(int state)
{
    return state >= 3;
}

/// Whether a widget wants something of the robot, or changes a setting.
bool isWish(const PluginCall& call)
{
    const QByteArray name(call.name);
    if (name == "simulationDirectExec") {
        const auto role = call.arguments->at(0).value.get<SimulationDirectExecRole>();
        return role != connection::currentConnectionState && role != connection::laserStartText;
    }
    return name == "connectDevice" || name == "disconnectDevice" || name.startsWith("write");
}

} // namespace

Replay::Replay(std::unique_ptr<Conversation> conversation, Environment& environment)
    : m_conversation(std::move(conversation)),
      m_device(m_conversation->initialState(), environment)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &Replay::playOn);
    connect(&traffic(), &trace::Traffic::began, this, &Replay::onCalled);
}

Replay::~Replay()
{
    disconnect(&traffic(), nullptr, this, nullptr);
}

plugin::gui::DeviceWidget* Replay::loadWidget(const plugin::gui::Interface& factory,
                                              const char* widgetName)
{
    const std::string device = factory.info().vendor() + ' ' + factory.info().name();
    plugin::gui::DeviceWidget* const widget = m_widgets.build(factory, device.c_str(), widgetName);
    translateWidgets();
    return widget;
}

void Replay::translateWidgets()
{
    m_widgets.deliverToAll("translate", {});
}

void Replay::play()
{
    if (isPlaying())
        return;
    if (!peek())
        jump(Time(0));
    keepTime();
    m_timer.start(m_speed ? frame : 0ms);
    Q_EMIT changed();
}

void Replay::pause()
{
    m_timer.stop();
    Q_EMIT changed();
}

void Replay::step()
{
    if (m_isBusy)
        return;
    if (!advance())
        tellError();
    keepTime();
    Q_EMIT changed();
}

void Replay::jump(Time time)
{
    if (m_isBusy)
        return;
    m_position = std::clamp(time, Time(0), duration());
    m_present.reset();
    m_next.reset();
    if (const auto state = m_conversation->rewind(m_position)) {
        m_device.restore(*state);
        while (peek() && m_next->time <= m_position) {
            if (m_present)
                skip(*m_present);
            m_present = std::exchange(m_next, std::nullopt);
        }
        tellAll();
        if (m_present)
            deliver(*m_present);
    }
    tellError();
    keepTime();
    Q_EMIT changed();
}

bool Replay::jumpToLongCall()
{
    const auto time = m_conversation->longCallAfter(m_position);
    if (!time)
        return false;
    pause();
    jump(*time);
    return true;
}

void Replay::setSpeed(std::optional<double> speed)
{
    m_speed = speed;
    keepTime();
    if (isPlaying())
        m_timer.start(m_speed ? frame : 0ms);
}

/// The next call; null at the end, or where nothing can be read any more.
const PlayedCall* Replay::peek()
{
    if (!m_next)
        m_next = m_conversation->next();
    return m_next ? &*m_next : nullptr;
}

/// Plays the next call; false if there is none.
bool Replay::advance()
{
    if (!peek())
        return false;
    m_present = std::exchange(m_next, std::nullopt);
    m_position = std::max(m_position, m_present->time);
    deliver(*m_present);
    return true;
}

void Replay::playOn()
{
    if (m_isBusy)
        return;
    QElapsedTimer work;
    work.start();
    const Time until =
        m_speed ? m_start + Time(static_cast<Time::rep>(
                                static_cast<double>(m_sinceStart.nsecsElapsed()) * *m_speed))
                : Time::max();
    while (peek() && m_next->time <= until) {
        advance();
        if (work.elapsed() < longestWork.count())
            continue;
        keepTime(); // it is late, and goes on from here
        return Q_EMIT changed();
    }
    m_position = std::min(until, duration());
    if (!peek())
        end();
    Q_EMIT changed();
}

void Replay::end()
{
    if (tellError() || !m_isLooping)
        pause();
    else
        jump(Time(0));
}

/// Time passes from the position on.
void Replay::keepTime()
{
    m_start = m_position;
    m_sinceStart.start();
}

void Replay::deliver(const PlayedCall& call)
{
    m_isBusy = true; // the plugin may run an event loop
    const auto finish = qScopeGuard([this] { m_isBusy = false; });
    if (call.call.part == RecordedCall::Part::Begin && call.call.function != loadFunction) {
        // What it reads is what it was then: of several values of a variable, the first one.
        for (auto answer = call.answers.rbegin(); answer != call.answers.rend(); ++answer)
            m_device.learn(*answer);
        learnArguments(call.call);
        m_widgets.deliver(call.call);
        if (call.call.function == messageFunction)
            m_toldConnection = m_device.connectionState();
    }
    learn(call);
}

/// It is as if the call had been played.
void Replay::skip(const PlayedCall& call)
{
    if (call.call.part == RecordedCall::Part::Begin && call.call.function != loadFunction)
        m_widgets.skip(call.call);
    learn(call);
}

/// The device is what it was after the call.
void Replay::learn(const PlayedCall& call)
{
    learnArguments(call.call);
    for (const RecordedCall& answer : call.answers)
        m_device.learn(answer);
    if (call.call.part == RecordedCall::Part::Whole)
        m_device.learn(call.call);
}

/// Of a call to the plugin, before it.
void Replay::learnArguments(const RecordedCall& call)
{
    const trace::Arguments& arguments = *call.arguments;
    for (const trace::Argument& argument : arguments) {
        if (argument.kind)
            m_device.set(*argument.kind, argument.name, argument.value);
    }
    if (call.function == messageFunction && arguments.size() == 2 &&
        arguments[0].value.get<int>() == connection::connectionStateMessage)
        m_device.setConnectionState(arguments[1].value.get<int>());
}

/// As a host tells widgets that have just registered their variables.
void Replay::tellAll()
{
    m_isBusy = true;
    const auto finish = qScopeGuard([this] { m_isBusy = false; });
    const trace::Arguments news = m_device.followed();
    if (!news.empty())
        m_widgets.deliverToAll("update", news);
    const int state = m_device.connectionState();
    const int told = std::exchange(m_toldConnection, state);
    if (state == told)
        return;
    m_widgets.deliverToAll(
        "on_messageReceived",
        {{"role", static_cast<int>(connection::connectionStateMessage)}, {"value", state}});
    if (isConnected(state) != isConnected(told))
        m_widgets.deliverToAll(isConnected(state) ? "connected" : "disconnected", {});
}

/// True if the recording cannot be read on.
bool Replay::tellError()
{
    const QString error = m_conversation->error();
    if (!error.isEmpty())
        Q_EMIT problem(tr("The recording cannot be read on here: %1. Another place may still be "
                          "read: move the slider beyond it.")
                           .arg(error));
    return !error.isEmpty();
}

/// Told once: whoever tries again knows it.
void Replay::onCalled(const PluginCall& call)
{
    const bool isByItself = call.direction == PluginCall::Direction::ToHost && call.depth == 0;
    if (!isByItself || m_isBusy || !isWish(call) || std::exchange(m_isWishTold, true))
        return;
    Q_EMIT problem(tr("This is a replay: there is no robot to connect to, and nothing is sent or "
                      "stored. What you change stays until the recording tells another value."));
}

} // namespace host::device::replay
