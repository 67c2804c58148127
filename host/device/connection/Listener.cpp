// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/connection/Listener.h"

#include "host/device/connection/Connection.h"

#include <memory>

namespace host::device::connection {

void Listener::listen(const rosbridge::protocol::Topic& topic, plugin::plugin::DataRole log,
                      const Read& read)
{
    const auto lastWords = std::make_shared<QString>();
    const auto hear = [this, name = QString(topic.name), log, read,
                       lastWords](const QCborMap& message) {
        const QString fault = read(message);
        const QString words = fault.isEmpty()
                                  ? QString()
                                  : tr("A message on the topic %1 was ignored: %2.")
                                        .arg(m_connection.remappings().theirs(name), fault);
        if (words == *lastWords)
            return;
        *lastWords = words;
        if (!words.isEmpty())
            Q_EMIT this->message(log, words);
    };
    m_connection.follow(topic.name, topic.type, hear);
}

} // namespace host::device::connection
