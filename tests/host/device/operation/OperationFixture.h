// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_OPERATION_TESTS_OPERATIONFIXTURE_H
#define HOST_DEVICE_OPERATION_TESTS_OPERATIONFIXTURE_H

#include "Patience.h"
#include "tests/host/device/connection/NamesFixture.h"

#include "rosbridge/protocol/Topics.h"

#include <QTimer>

/// A device of a robot that a person works with.
struct OperationFixture : NamesFixture
{
    using NamesFixture::NamesFixture;

    /// As our own robot: with a service to stop it, and one client in control.
    void offerStop()
    {
        topics[QStringLiteral("/stopped")] = QStringLiteral("std_msgs/Bool");
        robotServices << QStringLiteral("/stop") << QStringLiteral("/stop/release");
        offerAllBut({});
        robot.answerTrigger(QStringLiteral("/stop"), true);
        robot.answerTrigger(QStringLiteral("/stop/release"), true);
    }

    /// As a robot of somebody else, with these types by topics.
    void beForeign(ros_types::Ros ros, const QMap<QString, QString>& types)
    {
        robot.answer(QStringLiteral("/rosapi/services"),
                     {{QStringLiteral("services"), QCborArray()}});
        robot.obeyRules(ros, types);
    }

    /// The robot tells of itself, ten times faster than a driver needs it.
    void beAlive()
    {
        QObject::connect(&m_life, &QTimer::timeout, &m_life,
                         [this] { robot.publish(QStringLiteral("/odom"), {}); });
        m_life.start(100);
    }
    void fallSilent() { m_life.stop(); }

    void tellStopped(bool isStopped)
    {
        robot.publish(QStringLiteral("/stopped"), {{QStringLiteral("data"), isStopped}});
    }

    bool hears(const char* call) const
    {
        return QTest::qWaitFor([&] { return probe->count(call) > 0; }, patience);
    }

    int calls(const char* service) const
    {
        return int(robot.calls().filter(QLatin1String(service) + QLatin1Char(' ')).size());
    }

    /// Of the commands to drive: each as "linear angular".
    QStringList velocities() const
    {
        QStringList velocities;
        for (const QString& publication : robot.publications()) {
            if (!publication.startsWith(QLatin1String("/cmd_vel ")))
                continue;
            const auto twist =
                QJsonDocument::fromJson(publication.section(QLatin1Char(' '), 1).toUtf8());
            velocities += QStringLiteral("%1 %2")
                              .arg(twist["linear"]["x"].toDouble())
                              .arg(twist["angular"]["z"].toDouble());
        }
        return velocities;
    }

    QStringList problems() const
    {
        QStringList words;
        for (const QVariantList& arguments : m_problems)
            words += arguments.first().toString();
        return words;
    }

    bool hasProblem(const QString& part) const
    {
        return QTest::qWaitFor([&] { return problems().join(QLatin1Char('\n')).contains(part); },
                               patience);
    }

private:
    QTimer m_life;
    QSignalSpy m_problems{&device, &host::device::Device::problem};
};

#endif
