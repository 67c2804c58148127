// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/bag/MessageList.h"

#include "rosbridge/bag/RosConversions.h"
#include "rosbridge/protocol/Codec.h"

#include <rosbag/bag.h>
#include <rosbag/view.h>

#include <algorithm>
#include <vector>

namespace rosbridge::bag {

struct MessageList::Messages
{
    std::vector<rosbag::MessageInstance> all;
};

MessageList::MessageList(const rosbag::Bag& bag, const std::string& topic)
    : m_messages(std::make_unique<Messages>())
{
    rosbag::View view(bag, rosbag::TopicQuery(topic));
    for (const rosbag::MessageInstance& message : view)
        m_messages->all.push_back(message);
}

MessageList::MessageList(MessageList&& other) noexcept = default;

MessageList::~MessageList() = default;

std::size_t MessageList::size() const
{
    return m_messages->all.size();
}

MessageList::Time MessageList::time(std::size_t number) const
{
    return fromRos(m_messages->all[number].getTime());
}

std::size_t MessageList::firstAfter(Time time) const
{
    const auto& all = m_messages->all;
    const auto isBefore = [](Time moment, const rosbag::MessageInstance& message) {
        return moment < fromRos(message.getTime());
    };
    return static_cast<std::size_t>(std::upper_bound(all.begin(), all.end(), time, isBefore) -
                                    all.begin());
}

std::optional<QByteArray> MessageList::bytes(std::size_t number, QString* error) const
{
    return bytes(m_messages->all[number], error);
}

std::optional<QByteArray> MessageList::bytes(const rosbag::MessageInstance& message, QString* error)
{
    QString why;
    try {
        const std::uint32_t size = message.size();
        if (size <= protocol::maximumMessageSize) {
            QByteArray bytes(static_cast<int>(size), Qt::Uninitialized);
            ros::serialization::OStream stream(reinterpret_cast<std::uint8_t*>(bytes.data()), size);
            message.write(stream);
            return bytes;
        }
        why = tr("a message has %1 bytes; at most %2 are read")
                  .arg(size)
                  .arg(protocol::maximumMessageSize);
    } catch (const std::exception& damage) {
        why = tr("the bag is damaged: %1").arg(inWords(damage));
    }
    if (error)
        *error = why;
    return std::nullopt;
}

} // namespace rosbridge::bag
