// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_BAG_MESSAGELIST_H
#define ROSBRIDGE_BAG_MESSAGELIST_H

#include <QByteArray>
#include <QCoreApplication>

#include <chrono>
#include <memory>
#include <optional>

namespace rosbag {
class Bag;
class MessageInstance;
} // namespace rosbag

namespace rosbridge::bag {

/// The messages of one topic of a bag, in the order in which they were recorded, to be read in any
/// other. How many there are, and when, is known from the bag's index: nothing is read for that.
class MessageList
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::bag::MessageList)

public:
    /// When a message was recorded, since 1970.
    using Time = std::chrono::nanoseconds;

    /// Empty where @p bag, which outlives the list, has no such topic.
    MessageList(const rosbag::Bag& bag, const std::string& topic);
    MessageList(MessageList&& other) noexcept;
    ~MessageList();

    std::size_t size() const;
    bool isEmpty() const { return size() == 0; }

    /// Of the message with that number, counted from 0.
    Time time(std::size_t number) const;
    /// The number of the first message after @p time; size() where there is none.
    std::size_t firstAfter(Time time) const;

    /// The message, serialized; nothing if it is too large or the file is damaged there, and
    /// @p error (may be null) says it.
    std::optional<QByteArray> bytes(std::size_t number, QString* error) const;

    /// The same of any message of a bag.
    static std::optional<QByteArray> bytes(const rosbag::MessageInstance& message, QString* error);

private:
    struct Messages; // what of it needs rosbag's headers

    std::unique_ptr<Messages> m_messages;
};

} // namespace rosbridge::bag

#endif
