// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_BAG_BAGREADER_H
#define ROSBRIDGE_BAG_BAGREADER_H

#include "rosbridge/bag/MessageList.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

namespace rosbridge::bag {

/// Reads a ROS bag message by message, in the order in which they were recorded. Of a bag that was
/// cut off, as by kill -9, all messages that are whole.
class BagReader
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::bag::BagReader)

public:
    struct Topic
    {
        QString name;       ///< in its canonical form
        QString type;       ///< as ROS 1 writes it
        QString definition; ///< its full text, see MessageDefinition
        bool isLatched;     ///< its last message holds until the next one
    };

    /// When a message was recorded, since 1970.
    using Time = std::chrono::nanoseconds;

    /// Nothing, and in @p error (may be null) the file's name and the reason, if the file cannot be
    /// read, is no bag or holds no message.
    static std::unique_ptr<BagReader> open(const QString& file, QString* error);
    ~BagReader();

    /// What the user should know: that the bag was cut off, and what of it is not read.
    const QStringList& problems() const { return m_problems; }

    const std::vector<Topic>& topics() const { return m_topics; }

    /// Of the first and of the last message.
    Time begin() const { return m_begin; }
    Time end() const { return m_end; }

    /// Goes to the first message that is not before @p time; the reader begins at begin().
    void seek(Time time);
    /// Whether there are no further messages; if so, none of the following may be called.
    bool isAtEnd() const;
    /// Goes to the next message.
    void advance();
    /// Of the present message, its index in topics().
    std::size_t topic() const;
    Time time() const;
    /// The message, serialized; nothing if the file is damaged there, and @p error (may be null)
    /// says it.
    std::optional<QByteArray> bytes(QString* error) const;

    /// All messages of @p topic, which is named as in topics(); the reader outlives them.
    MessageList messages(const QString& topic) const;

private:
    struct File; // what of it needs rosbag's headers

    explicit BagReader(std::unique_ptr<File> file);

    void readTopics();
    void skipUnread();

    std::unique_ptr<File> m_file;
    QStringList m_problems;
    std::vector<Topic> m_topics;
    Time m_begin{0};
    Time m_end{0};
};

} // namespace rosbridge::bag

#endif
