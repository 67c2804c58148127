// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/replay/Conversation.h"

#include "host/device/recording/PluginTopic.h"
#include "rosbridge/bag/BagReader.h"

#include <QJsonDocument>

#include <algorithm>
#include <utility>

namespace host::device::replay {

using recording::CallText;
using recording::InitialState;
using recording::RecordedCall;
using rosbridge::bag::BagReader;

std::unique_ptr<Conversation> Conversation::open(const QString& file, QString* error)
{
    auto reader = BagReader::open(file, error);
    if (!reader)
        return nullptr;
    std::unique_ptr<Conversation> conversation(new Conversation(file, std::move(reader)));
    if (conversation->readInitialState())
        return conversation;
    *error = conversation->error();
    return nullptr;
}

Conversation::Conversation(const QString& file, std::unique_ptr<BagReader> reader)
    : m_file(file),
      m_reader(std::move(reader)),
      m_begin(m_reader->begin())
{
}

Conversation::~Conversation() = default;

bool Conversation::readInitialState()
{
    const auto object = readObject();
    if (!object)
        return m_error.isEmpty() ? fail(tr("there is no conversation with a plugin in it")) : false;
    QString why;
    const auto state = InitialState::read(*object, &why);
    if (!state)
        return fail(why);
    m_initialState = *state;
    return true;
}

std::optional<PlayedCall> Conversation::next()
{
    while (m_ready.empty() && m_error.isEmpty()) {
        const auto object = readObject();
        if (!object)
            break;
        QString why;
        auto call = CallText::read(*object, &why);
        if (call)
            take(std::move(*call), m_time - m_begin);
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

/// The next message about the plugin.
std::optional<QJsonObject> Conversation::readObject()
{
    for (; !m_reader->isAtEnd(); m_reader->advance()) {
        if (m_reader->topics().at(m_reader->topic()).name != recording::pluginTopic.name)
            continue;
        QString why;
        const auto bytes = m_reader->bytes(&why);
        m_time = m_reader->time();
        if (!bytes) {
            fail(why);
            return std::nullopt;
        }
        m_reader->advance();
        QJsonParseError fault;
        constexpr int lengthSize = 4; // of a std_msgs/String
        const auto document = QJsonDocument::fromJson(bytes->mid(lengthSize), &fault);
        if (document.isObject())
            return document.object();
        fail(fault.errorString());
        return std::nullopt;
    }
    return std::nullopt;
}

void Conversation::take(RecordedCall call, std::chrono::nanoseconds time)
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

void Conversation::begin(const RecordedCall& call, std::chrono::nanoseconds time)
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

bool Conversation::fail(const QString& why)
{
    m_error = QStringLiteral("%1: %2").arg(m_file, why);
    return false;
}

} // namespace host::device::replay
