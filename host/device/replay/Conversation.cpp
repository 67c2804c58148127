// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/replay/Conversation.h"

#include "host/device/recording/PluginTopics.h"
#include "rosbridge/bag/BagReader.h"

#include <QJsonDocument>

#include <algorithm>
#include <utility>

namespace host::device::replay {

using recording::CallText;
using recording::DeviceState;
using recording::RecordedCall;
using rosbridge::bag::BagReader;
using rosbridge::bag::MessageList;

std::unique_ptr<Conversation> Conversation::open(const QString& file, QString* error)
{
    auto reader = BagReader::open(file, error);
    if (!reader)
        return nullptr;
    std::unique_ptr<Conversation> conversation(new Conversation(file, std::move(reader)));
    if (conversation->m_calls.isEmpty()) {
        conversation->fail(tr("there are no calls between host and plugin in it (topic %1); choose "
                              "a recording of device-workbench")
                               .arg(recording::callsTopic.name));
    } else if (const auto state = conversation->readState(conversation->m_calls, 0)) {
        conversation->m_initialState = *state;
        return conversation;
    }
    *error = conversation->error();
    return nullptr;
}

Conversation::Conversation(const QString& file, std::unique_ptr<BagReader> reader)
    : m_file(file),
      m_reader(std::move(reader)),
      m_calls(m_reader->messages(recording::callsTopic.name)),
      m_states(m_reader->messages(recording::stateTopic.name)),
      m_longCalls(m_reader->messages(recording::longCallsTopic.name))
{
}

Conversation::~Conversation() = default;

QStringList Conversation::problems() const
{
    return m_reader->problems();
}

Conversation::Time Conversation::duration() const
{
    return since(m_calls, m_calls.size() - 1);
}

std::optional<PlayedCall> Conversation::next()
{
    for (; m_ready.empty() && m_error.isEmpty() && m_next < m_calls.size(); ++m_next) {
        const auto object = readObject(m_calls, m_next);
        if (!object)
            break;
        QString why;
        auto call = CallText::read(*object, &why);
        if (call)
            take(std::move(*call), since(m_calls, m_next));
        else
            fail(why);
    }
    if (m_ready.empty() && m_error.isEmpty()) { // the recording ends within a call
        for (PlayedCall& call : std::exchange(m_open, {}))
            m_ready.push_back(std::move(call));
    }
    if (m_ready.empty())
        return std::nullopt;
    PlayedCall call = std::move(m_ready.front());
    m_ready.pop_front();
    return call;
}

std::optional<DeviceState> Conversation::rewind(Time time)
{
    const MessageList::Time begin = m_calls.time(0);
    m_open.clear();
    m_ended.clear();
    m_ready.clear();
    m_error.clear();
    const std::size_t states = m_states.firstAfter(begin + time);
    if (states == 0) {
        m_next = 1;
        return m_initialState;
    }
    m_next = m_calls.firstAfter(m_states.time(states - 1));
    return readState(m_states, states - 1);
}

std::optional<Conversation::Time> Conversation::longCallAfter(Time time) const
{
    const std::size_t number = m_longCalls.firstAfter(m_calls.time(0) + time);
    if (number == m_longCalls.size())
        return std::nullopt;
    return since(m_longCalls, number);
}

Conversation::Time Conversation::since(const MessageList& list, std::size_t number) const
{
    return list.time(number) - m_calls.time(0);
}

std::optional<QJsonObject> Conversation::readObject(const MessageList& list, std::size_t number)
{
    QString why;
    if (const auto bytes = list.bytes(number, &why)) {
        QJsonParseError fault;
        constexpr int lengthSize = 4; // of a std_msgs/String
        const auto document = QJsonDocument::fromJson(bytes->mid(lengthSize), &fault);
        if (document.isObject())
            return document.object();
        why = fault.errorString();
    }
    fail(why);
    return std::nullopt;
}

std::optional<DeviceState> Conversation::readState(const MessageList& list, std::size_t number)
{
    const auto object = readObject(list, number);
    if (!object)
        return std::nullopt;
    QString why;
    auto state = DeviceState::read(*object, &why);
    if (!state)
        fail(why);
    return state;
}

void Conversation::take(RecordedCall call, Time time)
{
    if (call.part == RecordedCall::Part::Begin)
        begin(call, time);
    else if (call.part == RecordedCall::Part::End)
        end(call);
    else if (m_open.empty())
        m_ready.push_back({time, call, {}});
    else
        m_open.back().answers.push_back(std::move(call));
}

void Conversation::begin(const RecordedCall& call, Time time)
{
    if (!call.argumentsOf) {
        m_arguments = call.arguments;
        m_argumentsOf = call.number;
    } else if (*call.argumentsOf != m_argumentsOf) {
        fail(tr("the call %1 names arguments that are not those before it").arg(call.number));
        return;
    }
    m_open.push_back({time, call, {}});
    m_open.back().call.arguments = m_arguments;
}

void Conversation::end(const RecordedCall& call)
{
    if (m_open.empty() || m_open.back().call.number != call.number) {
        fail(tr("the call %1 ends and had not begun").arg(call.number));
        return;
    }
    PlayedCall ended = std::move(m_open.back());
    m_open.pop_back();
    ended.call.duration = call.duration;
    ended.call.result = call.result;
    ended.call.hasThrown = call.hasThrown;
    std::sort(ended.answers.begin(), ended.answers.end(),
              [](const RecordedCall& a, const RecordedCall& b) { return a.number < b.number; });
    if (!m_open.empty()) {
        m_ended.push_back(std::move(ended));
        return;
    }
    m_ready.push_back(std::move(ended));
    for (PlayedCall& inner : std::exchange(m_ended, {}))
        m_ready.push_back(std::move(inner));
}

void Conversation::fail(const QString& why)
{
    m_error = QStringLiteral("%1: %2").arg(m_file, why);
}

} // namespace host::device::replay
