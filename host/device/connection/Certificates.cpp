// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/connection/Certificates.h"

#include "rosbridge/protocol/Address.h"

#include <QCryptographicHash>

#include <utility>

namespace host::device::connection {

namespace {

/// What is wrong with a file's entries, or nothing.
QString fingerprintFault(const QJsonObject& entries)
{
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        if (!entry->isString())
            return Certificates::tr("the fingerprint of \"%1\" is not text").arg(entry.key());
    }
    return {};
}

} // namespace

QString Certificates::fingerprint(const QSslCertificate& certificate)
{
    return QString::fromLatin1(certificate.digest(QCryptographicHash::Sha256).toHex(' ')).toUpper();
}

QString Certificates::load(const QString& folder, const QString& deviceName)
{
    m_file.emplace(folder, deviceName, QStringLiteral(".certificates"), &fingerprintFault);
    return m_file->load();
}

void Certificates::trust()
{
    if (!m_question)
        return;
    if (m_file) {
        m_file->insert(m_question->server, m_question->fingerprint);
        const QString words = m_file->save();
        if (!words.isEmpty())
            Q_EMIT problem(words);
    }
    dismiss();
}

void Certificates::dismiss()
{
    if (std::exchange(m_question, std::nullopt))
        Q_EMIT questionChanged();
}

QString Certificates::objection(const rosbridge::protocol::Address& server,
                                const QSslCertificate& shown, const QString& reason)
{
    const QString name = server.authority();
    const QString print = fingerprint(shown);
    const QString trusted = m_file ? m_file->entries().value(name).toString() : QString();
    if (print == trusted || m_believed.contains(shown))
        return {};
    QString words =
        trusted.isEmpty()
            ? tr("Its certificate cannot be verified: %1. The SHA-256 fingerprint is %2. If the "
                 "robot's certificate has the same one, trust it, or start with --trust FILE, a "
                 "PEM file with it.")
                  .arg(reason, print)
            : tr("Its certificate has changed since it was trusted, and cannot be verified: %1. "
                 "Another computer may pose as the robot: ask who changed it. The SHA-256 "
                 "fingerprint was %2 and is now %3. If the robot's certificate has the new one, "
                 "trust it, or start with --trust FILE, a PEM file with it.")
                  .arg(reason, trusted, print);
    m_question = Question{name, print, words};
    Q_EMIT questionChanged();
    return words;
}

} // namespace host::device::connection
