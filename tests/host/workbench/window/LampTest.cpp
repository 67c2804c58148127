// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/device/connection/Connection.h"
#include "host/workbench/window/Lamp.h"

#include <QtTest>

namespace lamp_test {

using host::device::connection::Connection;
using host::workbench::window::Lamp;

/// Lamp: each state of a connection looks different.
class LampTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void each_state_looks_different();
};

void LampTest::each_state_looks_different()
{
    Lamp lamp;
    const auto picture = [&lamp](int state, bool isLost) {
        lamp.setState(state, isLost);
        return lamp.pixmap(Qt::ReturnByValue).toImage();
    };
    const QList<QImage> pictures = {picture(Connection::notConnected, false),
                                    picture(Connection::notConnected, true), picture(0, false),
                                    picture(Connection::connected, false),
                                    picture(Connection::passive, false)};
    for (int i = 0; i < pictures.size(); ++i) {
        for (int j = 0; j < i; ++j)
            QVERIFY2(pictures.at(i) != pictures.at(j), qPrintable(QString("%1, %2").arg(i).arg(j)));
    }
    QCOMPARE(picture(2, true), picture(0, false)); // connecting is connecting
}

TEST_WITH_WINDOWS(LampTest)

} // namespace lamp_test

#include "LampTest.moc"
