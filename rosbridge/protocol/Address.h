// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_PROTOCOL_ADDRESS_H
#define ROSBRIDGE_PROTOCOL_ADDRESS_H

#include <QCoreApplication>
#include <QString>

#include <optional>

namespace rosbridge::protocol {

/// Where a robot listens: a host name or IP address, a TCP port, whether it speaks TLS there, and
/// at which path. It says nothing about whether the host exists or answers.
struct Address
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::protocol::Address)

public:
    static constexpr quint16 defaultPort = 9090;  ///< rosbridge's own
    static constexpr quint16 webPort = 80;        ///< of "ws://host", as the web has it
    static constexpr quint16 secureWebPort = 443; ///< of "wss://host"
    static constexpr const char* defaultHost = "127.0.0.1";

    QString host = QString::fromLatin1(defaultHost); ///< IPv6 without brackets
    quint16 port = defaultPort;
    bool isSecure = false; ///< through TLS
    QString path{};        ///< percent-encoded, with the query; empty for "/"

    /// Reads what a person typed: "host", "host:port", "[v6]" or "[v6]:port"; a bare IPv6
    /// address only where its last group cannot be meant as the port. Or what a person pasted: one
    /// of these after "ws://" or "wss://", and a path behind it. Nothing is looked up.
    /// On failure @p error (may be null) names the text and says what to write instead.
    static std::optional<Address> parse(const QString& text, QString* error);

    /// "host:port", IPv6 in brackets, between a scheme and a path only where there is more to say;
    /// parse() reads it back.
    QString toString() const;

    /// "host:port", IPv6 in brackets.
    QString authority() const;

private:
    static std::optional<Address> parseAuthority(const QString& text, const QString& authority,
                                                 quint16 usualPort, QString* error);
};

inline bool operator==(const Address& a, const Address& b)
{
    return a.host == b.host && a.port == b.port && a.isSecure == b.isSecure && a.path == b.path;
}

inline bool operator!=(const Address& a, const Address& b)
{
    return !(a == b);
}

} // namespace rosbridge::protocol

#endif
