// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_SERVERIDENTITY_H
#define QUANDREL_SERVERIDENTITY_H

#include <QFile>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>

/// A file in the folder certificates/, "self-signed.pem".
inline QString certificateFile(const QString& name)
{
    return QStringLiteral(TEST_CERTIFICATES "/") + name;
}

inline QSslCertificate certificate(const QString& name)
{
    return QSslCertificate::fromPath(certificateFile(name)).value(0);
}

/// What a server needs to show the certificate @p name as its own.
inline QSslConfiguration serverIdentity(const QString& name)
{
    QFile file(certificateFile(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no test certificate");
    QSslConfiguration configuration;
    configuration.setLocalCertificate(certificate(name));
    configuration.setPrivateKey(QSslKey(&file, QSsl::Ec));
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    return configuration;
}

#endif
