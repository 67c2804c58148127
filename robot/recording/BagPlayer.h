// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_RECORDING_BAGPLAYER_H
#define ROBOT_RECORDING_BAGPLAYER_H

#include "rosbridge/bag/BagReader.h"
#include "rosbridge/serialization/MessageDefinition.h"

#include <QByteArray>
#include <QCborMap>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

namespace robot::recording {

/// Gives the messages of a bag in order, when they are due. It has no timer: its owner says how
/// much time has passed and asks. What a latched topic told before the beginning comes first.
class BagPlayer
{
    Q_DECLARE_TR_FUNCTIONS(robot::recording::BagPlayer)

public:
    using Time = std::chrono::nanoseconds;

    struct Options
    {
        double rate = 1.0;      ///< 2 is twice as fast as it was recorded
        bool isLooping = false; ///< begin again a tenth of a recorded second after the end
        Time start{0};          ///< begin so long after the bag's first message
    };

    struct Topic
    {
        QString name;
        bool isLatched;
        /// Nothing: the type is not known, and nothing of the topic is played.
        std::optional<rosbridge::serialization::MessageDefinition> definition;
    };

    /// Nothing, and in @p error (may be null) the reason, if the bag cannot be read, holds no
    /// topic of a known type, or is over before the start.
    static std::unique_ptr<BagPlayer> open(const QString& file, const Options& options,
                                           QString* error);

    /// What of the bag is left out, and why, for the user.
    const QStringList& problems() const { return m_problems; }

    const std::vector<Topic>& topics() const { return m_topics; }

    /// From the first message to the last.
    Time duration() const { return m_reader->end() - m_reader->begin(); }

    /// When what is due now was recorded, since 1970.
    Time now() const { return m_now; }

    /// Goes back to where it began.
    void restart();

    /// So much time has passed since the last call, or the beginning.
    void advance(Time elapsed);

    /// Goes to the next message that is due, and gives the index of its topic; nothing if none is
    /// due. To be called until it gives nothing.
    std::optional<std::size_t> next();

    /// The message that next() went to; nothing if the bag is damaged there, and @p error says it.
    std::optional<QCborMap> message(QString* error) const;

    /// Whether all messages were given; never when looping.
    bool isFinished() const;

private:
    BagPlayer(std::unique_ptr<rosbridge::bag::BagReader> reader, const Options& options);

    void readTopics();
    void readHeld();

    struct Held
    {
        std::size_t topic;
        QByteArray bytes;
    };

    std::unique_ptr<rosbridge::bag::BagReader> m_reader;
    Options m_options;
    QStringList m_problems;
    std::vector<Topic> m_topics;
    std::vector<Held> m_held; // what latched topics told before the start
    std::size_t m_heldGiven = 0;
    bool m_isAtMessage = false; // the reader is at the one that was given last
    Time m_now{0};
};

} // namespace robot::recording

#endif
