// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/recording/BagPlayer.h"

#include "rosbridge/serialization/MessageReader.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace robot::recording {

using rosbridge::bag::BagReader;
using rosbridge::serialization::MessageDefinition;
using rosbridge::serialization::MessageReader;

namespace {

/// In recorded time, so that a bag of one message is no flood.
constexpr std::chrono::milliseconds pauseBetweenRounds(100);

} // namespace

std::unique_ptr<BagPlayer> BagPlayer::open(const QString& file, const Options& options,
                                           QString* error)
{
    std::unique_ptr<BagReader> reader = BagReader::open(file, error);
    if (!reader)
        return nullptr;
    std::unique_ptr<BagPlayer> player(new BagPlayer(std::move(reader), options));
    const std::vector<Topic>& topics = player->topics();
    const bool isAnyKnown = std::any_of(topics.cbegin(), topics.cend(), [](const Topic& topic) {
        return topic.definition.has_value();
    });
    QString why;
    if (!isAnyKnown)
        why = tr("there is no topic in it that can be played");
    else if (options.start > player->duration())
        why = tr("it is only %1 s long")
                  .arg(std::chrono::duration<double>(player->duration()).count());
    else
        return player;
    if (error)
        *error = QStringLiteral("%1: %2").arg(file, why);
    return nullptr;
}

BagPlayer::BagPlayer(std::unique_ptr<BagReader> reader, const Options& options)
    : m_reader(std::move(reader)),
      m_options(options),
      m_problems(m_reader->problems())
{
    readTopics();
    readHeld();
    restart();
}

void BagPlayer::readTopics()
{
    for (const BagReader::Topic& topic : m_reader->topics()) {
        QString why;
        std::optional<MessageDefinition> definition =
            MessageDefinition::parse(topic.type, topic.definition, &why);
        if (!definition)
            m_problems.append(tr("%1 is left out: %2").arg(topic.name, why));
        m_topics.push_back({topic.name, topic.isLatched, std::move(definition)});
    }
}

void BagPlayer::readHeld()
{
    std::map<std::size_t, QByteArray> last;
    const Time start = m_reader->begin() + m_options.start;
    for (; !m_reader->isAtEnd() && m_reader->time() < start; m_reader->advance()) {
        const std::size_t topic = m_reader->topic();
        const auto bytes =
            m_topics[topic].isLatched ? m_reader->bytes(nullptr) : std::optional<QByteArray>();
        if (bytes)
            last[topic] = *bytes;
    }
    for (const auto& [topic, bytes] : last)
        m_held.push_back({topic, bytes});
}

void BagPlayer::restart()
{
    m_now = m_reader->begin() + m_options.start;
    m_reader->seek(m_now);
    m_heldGiven = 0;
    m_isAtMessage = false;
}

void BagPlayer::advance(Time elapsed)
{
    m_now += Time(std::llround(static_cast<double>(elapsed.count()) * m_options.rate));
    if (m_options.isLooping && m_reader->isAtEnd() && m_now > m_reader->end() + pauseBetweenRounds)
        restart();
}

std::optional<std::size_t> BagPlayer::next()
{
    if (m_heldGiven < m_held.size())
        return m_held[m_heldGiven++].topic;
    if (m_isAtMessage)
        m_reader->advance();
    m_isAtMessage = !m_reader->isAtEnd() && m_reader->time() <= m_now;
    return m_isAtMessage ? std::optional(m_reader->topic()) : std::nullopt;
}

std::optional<QCborMap> BagPlayer::message(QString* error) const
{
    const std::size_t topic = m_isAtMessage ? m_reader->topic() : m_held[m_heldGiven - 1].topic;
    const std::optional<QByteArray> bytes =
        m_isAtMessage ? m_reader->bytes(error) : m_held[m_heldGiven - 1].bytes;
    const std::optional<MessageDefinition>& definition = m_topics[topic].definition;
    return bytes && definition ? MessageReader::read(*definition, *bytes, error) : std::nullopt;
}

bool BagPlayer::isFinished() const
{
    return m_reader->isAtEnd() && !m_options.isLooping;
}

} // namespace robot::recording
