// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_CERTIFICATES_H
#define HOST_DEVICE_CONNECTION_CERTIFICATES_H

#include "host/device/variables/SettingsFile.h"
#include "rosbridge/websocket/Trust.h"

#include <QList>
#include <QObject>
#include <QSslCertificate>
#include <QString>

#include <optional>

namespace host::device::connection {

/// The certificates that a device believes although no authority vouches for them: those of the
/// command line, and those that a person trusts, which are remembered for the device. What is
/// unknown is refused, and a question for a person remains.
class Certificates : public QObject, public rosbridge::websocket::Trust
{
    Q_OBJECT

public:
    struct Question
    {
        QString server;      ///< "host:port"
        QString fingerprint; ///< of the certificate that it has shown
        QString words;       ///< what is wrong with it and what to do, in sentences
    };

    /// Of the whole certificate, by SHA-256: pairs of digits with spaces between, for people.
    static QString fingerprint(const QSslCertificate& certificate);

    /// Until now none is remembered: from now on they are, for the device. Returns the problem, or
    /// nothing.
    QString load(const QString& folder, const QString& deviceName);

    /// These are believed as long as the program runs, and so is whom they vouch for.
    void believe(const QList<QSslCertificate>& certificates) { m_believed += certificates; }

    /// Of the last attempt to connect; none while nobody needs to decide.
    const std::optional<Question>& question() const { return m_question; }

    /// A person trusts the certificate in question: it is remembered in place of an earlier one of
    /// the same server.
    void trust();

    /// Nobody is asked any more, and nothing is trusted.
    void dismiss();

    QList<QSslCertificate> authorities() const override { return m_believed; }
    QString objection(const rosbridge::protocol::Address& server, const QSslCertificate& shown,
                      const QString& reason) override;

Q_SIGNALS:
    /// There is another question, or none any more.
    void questionChanged();
    /// What was trusted cannot be remembered, with what to do.
    void problem(const QString& words);

private:
    std::optional<variables::SettingsFile> m_file; // fingerprints by server; none until load()
    QList<QSslCertificate> m_believed;
    std::optional<Question> m_question;
};

} // namespace host::device::connection

#endif
