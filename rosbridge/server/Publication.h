// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_PUBLICATION_H
#define ROSBRIDGE_SERVER_PUBLICATION_H

#include "rosbridge/server/EncodedMessage.h"

#include <QCborMap>
#include <QHash>
#include <QPair>
#include <QString>

namespace rosbridge::server {

/// One message on its way to all who subscribed: encoded when the first of them needs it, once
/// for each form, however many clients there are.
class Publication
{
public:
    /// @p topic in its canonical form.
    Publication(const QString& topic, const QCborMap& msg);

    const QString& topic() const { return m_topic; }

    /// @p name is the topic as the client wrote it: clients match by that text.
    EncodedMessage frame(const QString& name, Encoding encoding) const;

private:
    QString m_topic;
    QCborMap m_msg;
    mutable QHash<QPair<QString, int>, EncodedMessage> m_frames;
};

} // namespace rosbridge::server

#endif
