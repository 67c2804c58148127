// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_WEBSOCKET_TRUST_H
#define ROSBRIDGE_WEBSOCKET_TRUST_H

#include <QList>
#include <QString>

QT_BEGIN_NAMESPACE
class QSslCertificate;
QT_END_NAMESPACE

namespace rosbridge::protocol {
struct Address;
} // namespace rosbridge::protocol

namespace rosbridge::websocket {

/// Whom to believe beside the authorities that the system believes.
class Trust
{
public:
    Trust() = default;
    virtual ~Trust() = default;
    Trust(const Trust&) = delete;
    Trust& operator=(const Trust&) = delete;

    /// May vouch for servers, as the system's authorities do.
    virtual QList<QSslCertificate> authorities() const = 0;

    /// The certificate that @p server has shown cannot be verified, for a @p reason in a part of a
    /// sentence. Returns why it is not believed all the same, in sentences that say what to do, or
    /// nothing: then it is.
    virtual QString objection(const protocol::Address& server, const QSslCertificate& shown,
                              const QString& reason) = 0;
};

} // namespace rosbridge::websocket

#endif
