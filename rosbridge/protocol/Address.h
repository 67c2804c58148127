// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_PROTOCOL_ADDRESS_H
#define ROSBRIDGE_PROTOCOL_ADDRESS_H

#include <QCoreApplication>
#include <QString>
#include <QUrl>

#include <optional>

namespace rosbridge::protocol {

/// Where a robot listens: a host name or IP address, and a TCP port.
/// It says nothing about whether the host exists or answers.
struct Address
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::protocol::Address)

public:
    static constexpr quint16 defaultPort = 9090; ///< rosbridge's own
    static constexpr const char* defaultHost = "127.0.0.1";

    QString host = QString::fromLatin1(defaultHost); ///< IPv6 without brackets
    quint16 port = defaultPort;

    /// Reads what a person typed: "host", "host:port", "[v6]" or "[v6]:port"; a bare IPv6
    /// address only where its last group cannot be meant as the port. Nothing is looked up.
    /// On failure @p error (may be null) names the text and says what to write instead.
    static std::optional<Address> parse(const QString& text, QString* error);

    /// "host:port", IPv6 in brackets; parse() reads it back.
    QString toString() const;

    /// "ws://host:port", which is what a WebSocket is opened with.
    QUrl url() const;
};

inline bool operator==(const Address& a, const Address& b)
{
    return a.host == b.host && a.port == b.port;
}

inline bool operator!=(const Address& a, const Address& b)
{
    return !(a == b);
}

} // namespace rosbridge::protocol

#endif
