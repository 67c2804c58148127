// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_TESTS_JOURNAL_H
#define HOST_DEVICE_CONNECTION_TESTS_JOURNAL_H

#include "host/device/connection/Connection.h"

#include <QtTest>

/// Keeps what a connection says: "state 3", "status …", "1004 …", "simulator 1".
class Journal : public QObject
{
public:
    using Connection = host::device::connection::Connection;

    explicit Journal(const Connection& connection)
    {
        connect(&connection, &Connection::stateChanged, this, [this](int state) {
            m_states.append(state);
            if (state < 0 || state >= Connection::connected) // frames are a matter of time
                m_lines.append(QStringLiteral("state %1").arg(state));
        });
        connect(&connection, &Connection::statusChanged, this, [this](const QString& words) {
            m_lines.append(QStringLiteral("status ") + words);
        });
        connect(&connection, &Connection::message, this,
                [this](plugin::plugin::DataRole role, const QString& text) {
                    m_messages.append(QStringLiteral("%1 ").arg(role) + text);
                });
        connect(&connection, &Connection::simulatorChanged, this, [this](bool isSimulator) {
            m_lines.append(QStringLiteral("simulator %1").arg(isSimulator));
        });
    }

    QList<int> states() const { return m_states; }

    QStringList lines() const { return m_lines; }

    QStringList messages() const { return m_messages; }

private:
    QList<int> m_states;
    QStringList m_lines;
    QStringList m_messages;
};

/// Fails the test unless the state becomes -1, with words in which all of @p parts stand, said as
/// the status and as a message.
inline void verifyFailed(const host::device::connection::Connection& connection,
                         const Journal& journal, const QStringList& parts)
{
    constexpr int patience = 60000;
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(),
                              host::device::connection::Connection::notConnected, patience);
    const QString words = connection.status();
    for (const QString& part : parts)
        QVERIFY2(words.contains(part), qPrintable(words));
    QCOMPARE(journal.messages(), QStringList("1004 " + words));
    QCOMPARE(journal.lines().mid(journal.lines().size() - 2),
             QStringList({"status " + words, "state -1"}));
}

#endif
