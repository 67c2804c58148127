// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/websocket/Connector.h"

#include "rosbridge/websocket/Socket.h"
#include "rosbridge/websocket/Trust.h"

#include <QSslConfiguration>
#include <QSslError>
#include <QSslSocket>
#include <QTcpSocket>

#include <optional>
#include <utility>

namespace rosbridge::websocket {

namespace {

// Of what a server says in its headers.
constexpr int longestWords = 200;

QString words(const QByteArray& header)
{
    return QString::fromLatin1(header.left(longestWords));
}

QString reason(const QSslError& error)
{
    switch (error.error()) {
    case QSslError::SelfSignedCertificate:
    case QSslError::SelfSignedCertificateInChain:
        return Connector::tr("nobody but itself vouches for it");
    case QSslError::UnableToGetIssuerCertificate:
    case QSslError::UnableToGetLocalIssuerCertificate:
    case QSslError::UnableToVerifyFirstCertificate:
    case QSslError::CertificateUntrusted:
        return Connector::tr("this computer does not know who issued it");
    case QSslError::HostNameMismatch:
        return Connector::tr("it was issued for another host");
    case QSslError::CertificateExpired:
        return Connector::tr("it has expired");
    case QSslError::CertificateNotYetValid:
        return Connector::tr("it is not valid yet, by this computer's clock");
    default:
        return error.errorString();
    }
}

QString reason(const QList<QSslError>& errors)
{
    QStringList reasons;
    for (const QSslError& error : errors)
        reasons << reason(error);
    reasons.removeDuplicates();
    return reasons.join(QLatin1String(", "));
}

} // namespace

Connector::Connector(qint64 maximumBytes, Trust* trust, QObject* parent)
    : QObject(parent),
      m_maximumBytes(maximumBytes),
      m_trust(trust),
      m_key(randomKey())
{
}

void Connector::open(const protocol::Address& address)
{
    m_address = address;
    if (address.isSecure && !QSslSocket::supportsSsl())
        return fail(Failure::NoTls, QString());
    m_ssl = address.isSecure ? new QSslSocket(this) : nullptr;
    m_tcp = m_ssl ? m_ssl : new QTcpSocket(this);
    m_tcp->setReadBufferSize(maximumHandshakeBytes);
    connect(m_tcp, &QTcpSocket::connected, this, [this] { m_isReached = true; });
    connect(m_tcp, &QTcpSocket::readyRead, this, &Connector::onReadyRead);
    connect(m_tcp, &QTcpSocket::errorOccurred, this, &Connector::onError);
    if (m_ssl) {
        openSecurely();
    } else {
        connect(m_tcp, &QTcpSocket::connected, this, &Connector::onReached);
        m_tcp->connectToHost(address.host, address.port);
    }
}

void Connector::openSecurely()
{
    const QList<QSslCertificate> further =
        m_trust ? m_trust->authorities() : QList<QSslCertificate>();
    if (!further.isEmpty()) {
        QSslConfiguration configuration = m_ssl->sslConfiguration();
        configuration.setCaCertificates(QSslConfiguration::systemCaCertificates() + further);
        m_ssl->setSslConfiguration(configuration);
    }
    connect(m_ssl, &QSslSocket::encrypted, this, &Connector::onReached);
    connect(m_ssl, QOverload<const QList<QSslError>&>::of(&QSslSocket::sslErrors), this,
            &Connector::onSslErrors);
    m_ssl->connectToHostEncrypted(m_address.host, m_address.port);
}

void Connector::abort()
{
    if (!m_tcp)
        return;
    m_tcp->disconnect(this);
    m_tcp->abort();
}

void Connector::onReached()
{
    m_tcp->write(request(m_address, m_key));
}

void Connector::onReadyRead()
{
    const std::optional<Handshake> answer = readHandshake(*m_tcp);
    if (!answer) {
        if (isHandshakeTooLong(*m_tcp))
            fail(Failure::NotWebSocket, tr("its answer does not end"));
        return;
    }
    if (!isAgreement(*answer, m_key)) {
        failAnswered(*answer);
        return;
    }
    m_tcp->disconnect(this);
    Q_EMIT connected(new Socket(std::exchange(m_tcp, nullptr), Role::Client, m_maximumBytes));
}

void Connector::onSslErrors(const QList<QSslError>& errors)
{
    m_objection = m_trust ? m_trust->objection(m_address, m_ssl->peerCertificate(), reason(errors))
                          : tr("Its certificate cannot be verified: %1.").arg(reason(errors));
    if (m_objection.isEmpty())
        m_ssl->ignoreSslErrors(errors); // and no others
}

void Connector::onError(QAbstractSocket::SocketError error)
{
    if (m_isReached)
        return onErrorReached(error);
    switch (error) {
    case QAbstractSocket::ConnectionRefusedError:
        fail(Failure::Refused, QString());
        break;
    case QAbstractSocket::HostNotFoundError:
        fail(Failure::NoHost, QString());
        break;
    case QAbstractSocket::NetworkError:
        fail(Failure::Unreachable, tr("there is no route to it"));
        break;
    case QAbstractSocket::SocketTimeoutError:
        fail(Failure::Unreachable, tr("it does not answer"));
        break;
    case QAbstractSocket::SocketAccessError:
        fail(Failure::Unreachable, tr("this computer does not allow the connection"));
        break;
    case QAbstractSocket::SocketResourceError:
        fail(Failure::Unreachable, tr("this computer has too many connections open"));
        break;
    default:
        fail(Failure::Unreachable, tr("the connection failed"));
    }
}

void Connector::onErrorReached(QAbstractSocket::SocketError error)
{
    if (!m_objection.isEmpty())
        fail(Failure::Untrusted, m_objection);
    else if (error == QAbstractSocket::SslHandshakeFailedError || (m_ssl && !m_ssl->isEncrypted()))
        fail(Failure::NotTls, QString());
    else if (m_ssl)
        fail(Failure::NotWebSocket, tr("it closed the connection without an answer"));
    else
        fail(Failure::NotWebSocket,
             tr("it closed the connection without an answer (if it encrypts, "
                "write wss:// before the address)"));
}

void Connector::fail(Failure failure, const QString& why)
{
    abort();
    Q_EMIT failed(failure, why);
}

void Connector::failAnswered(const Handshake& answer)
{
    const QByteArray status = answer.status();
    const int code = status.left(3).toInt();
    switch (code) {
    case 301:
    case 302:
    case 303:
    case 307:
    case 308:
        fail(Failure::Moved, words(answer.headers.value("location")));
        break;
    case 401:
    case 407:
        fail(Failure::NeedsLogin, words(status));
        break;
    case 403:
        fail(Failure::Forbidden, words(status));
        break;
    case 404:
        fail(Failure::NoSuchPath, words(status));
        break;
    case 101:
        fail(Failure::NotWebSocket, tr("its handshake does not follow WebSocket"));
        break;
    default:
        fail(Failure::NotWebSocket, status.isEmpty() ? tr("it does not speak HTTP")
                                                     : tr("it answers \"%1\"").arg(words(status)));
    }
}

} // namespace rosbridge::websocket
