// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/server/Publication.h"

#include <utility>

namespace rosbridge::server {

Publication::Publication(const QString& topic, const QCborMap& msg, MakeRaw makeRaw)
    : m_topic(topic),
      m_msg(msg),
      m_makeRaw(std::move(makeRaw))
{
}

EncodedMessage Publication::frame(const QString& name, Encoding encoding) const
{
    const auto key = qMakePair(name, static_cast<int>(encoding));
    auto frame = m_frames.find(key);
    if (frame == m_frames.end()) {
        const QCborMap message{
            {QStringLiteral("op"), QStringLiteral("publish")},
            {QStringLiteral("topic"), name},
            {QStringLiteral("msg"), encoding == Encoding::CborRaw ? m_makeRaw(m_msg) : m_msg}};
        frame = m_frames.insert(key, encode(message, encoding));
    }
    return *frame;
}

} // namespace rosbridge::server
