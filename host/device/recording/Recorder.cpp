// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/recording/Recorder.h"

#include "host/device/connection/Connection.h"
#include "host/device/connection/Offer.h"
#include "host/device/recording/BagThread.h"
#include "host/device/recording/CallText.h"
#include "host/device/recording/DeviceState.h"
#include "host/device/recording/PluginTopics.h"
#include "host/device/trace/Traffic.h"
#include "host/device/variables/Variables.h"
#include "rosbridge/protocol/CanonicalName.h"

#include <QCoreApplication>

#include <algorithm>

namespace host::device::recording {

using connection::Remappings;
using trace::PluginCall;

Recorder::Recorder(const Sources& sources) : m_sources(sources) {}

Recorder::~Recorder()
{
    stop();
}

bool Recorder::start(const QString& file, QString* error, qint64 most)
{
    stop();
    m_thread = BagThread::create(file, most, error);
    if (!m_thread)
        return false;
    m_file = file;
    m_begin = std::chrono::system_clock::now().time_since_epoch();
    m_newest = {};
    m_sinceBegin.start();
    m_firstCall = m_sources.traffic.end();
    m_arguments = nullptr;
    listen();
    Q_EMIT changed();
    return true;
}

void Recorder::listen()
{
    // Queued: the recording ends within neither a call of the plugin's nor a message.
    connect(m_thread.get(), &BagThread::ended, this, &Recorder::onFull, Qt::QueuedConnection);
    connect(m_thread.get(), &BagThread::leftOut, this, &Recorder::problem, Qt::QueuedConnection);
    connect(&m_sources.traffic, &trace::Traffic::began, this, &Recorder::onBegan);
    connect(&m_sources.traffic, &trace::Traffic::ended, this, &Recorder::onEnded);
    connect(&m_sources.connection.followers(), &connection::Followers::received, this,
            &Recorder::onReceived);

    addState(callsTopic);
    m_sources.connection.followers().subscribeAgain(); // for what the robot tells only once
}

void Recorder::stop()
{
    if (!m_thread)
        return;
    disconnect(&m_sources.traffic, nullptr, this, nullptr);
    disconnect(&m_sources.connection.followers(), nullptr, this, nullptr);
    const auto thread = std::move(m_thread);
    const QString words = thread->finish();
    if (!words.isEmpty())
        Q_EMIT problem(words);
    Q_EMIT changed();
}

std::chrono::milliseconds Recorder::elapsed() const
{
    return std::chrono::milliseconds(m_thread ? m_sinceBegin.elapsed() : 0);
}

qint64 Recorder::size() const
{
    return m_thread ? m_thread->size() : 0;
}

/// Since 1970.
std::chrono::nanoseconds Recorder::now() const
{
    return m_begin + std::chrono::nanoseconds(m_sinceBegin.nsecsElapsed());
}

/// No two messages have the same time: that is their order.
void Recorder::add(const QString& topic, const QString& type, const QCborMap& message)
{
    m_newest = std::max(now(), m_newest + std::chrono::nanoseconds(1));
    m_thread->add({topic, type, m_newest, message});
}

void Recorder::addText(const rosbridge::protocol::Topic& topic, const QByteArray& json)
{
    add(topic.name, topic.type, {{QStringLiteral("data"), QString::fromUtf8(json)}});
}

/// Who reads on from it needs nothing that was told before.
void Recorder::addState(const rosbridge::protocol::Topic& topic)
{
    DeviceState state = DeviceState::of(m_sources.variables);
    state.program =
        QCoreApplication::applicationName() + ' ' + QCoreApplication::applicationVersion();
    state.device = m_sources.device;
    state.connectionState = m_sources.connection.state();
    addText(topic, state.toJson());
    m_newestState = m_newest;
    m_arguments = nullptr;
}

void Recorder::onBegan(const PluginCall& call)
{
    if (call.depth == 0 && now() - m_newestState >= stateInterval)
        addState(stateTopic);
    if (call.direction == PluginCall::Direction::ToHost)
        return; // told when it has ended
    const bool isShared = call.arguments == m_arguments && !call.arguments->empty();
    addText(callsTopic,
            CallText::begin(call, isShared ? std::optional<quint64>(m_argumentsOf) : std::nullopt));
    if (isShared)
        return;
    m_arguments = call.arguments;
    m_argumentsOf = call.number;
}

void Recorder::onEnded(const PluginCall& call)
{
    if (call.number < m_firstCall)
        return; // its beginning is not recorded
    const bool isToPlugin = call.direction == PluginCall::Direction::ToPlugin;
    addText(callsTopic, isToPlugin ? CallText::end(call) : CallText::whole(call));
    if (isToPlugin && call.depth == 0 && call.isTooLong())
        addText(longCallsTopic, CallText::end(call));
}

void Recorder::onReceived(const QString& topic, const QString& type, const QCborMap& message)
{
    QString its = type.isEmpty() ? m_sources.offer.typeOf(topic) : type;
    const Remappings::Entry* const entry = Remappings::find(topic);
    if (its.isEmpty() && entry)
        its = entry->type;
    add(m_sources.connection.remappings().theirs(topic), rosbridge::protocol::canonicalType(its),
        message);
}

void Recorder::onFull(const QString& why)
{
    stop();
    Q_EMIT problem(tr("The recording has ended: %1. All that was recorded until then is in %2.")
                       .arg(why, m_file));
}

} // namespace host::device::recording
