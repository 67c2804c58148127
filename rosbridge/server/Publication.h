// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_PUBLICATION_H
#define ROSBRIDGE_SERVER_PUBLICATION_H

#include "rosbridge/server/EncodedMessage.h"

#include <QCborMap>
#include <QHash>
#include <QPair>
#include <QString>

#include <functional>

namespace rosbridge::server {

/// One message on its way to all who subscribed: encoded when the first of them needs it, once
/// for each form, however many clients there are.
class Publication
{
public:
    /// What "msg" is with the compression "cbor-raw": the message serialized, and the time.
    using MakeRaw = std::function<QCborMap(const QCborMap& msg)>;

    /// @p topic in its canonical form. @p makeRaw may be empty if nobody can ask for that.
    Publication(const QString& topic, const QCborMap& msg, MakeRaw makeRaw = {});

    const QString& topic() const { return m_topic; }

    /// @p name is the topic as the client wrote it: clients match by that text.
    EncodedMessage frame(const QString& name, Encoding encoding) const;

private:
    QString m_topic;
    QCborMap m_msg;
    MakeRaw m_makeRaw;
    mutable QHash<QPair<QString, int>, EncodedMessage> m_frames;
};

} // namespace rosbridge::server

#endif
