// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/workbench/bugreport/Privacy.h"

#include <QDir>
#include <QJsonArray>
#include <QtTest>

namespace privacy_test {

using host::workbench::bugreport::Privacy;

/// Privacy: what is left of texts and settings.
class PrivacyTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void an_address_is_taken_out_data();
    void an_address_is_taken_out();
    void other_texts_stay_as_they_are_data();
    void other_texts_stay_as_they_are();
    void settings_lose_the_values_of_what_is_private_alone();
};

void PrivacyTest::an_address_is_taken_out_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("left");
    QTest::newRow("known") << "to north.example:9090!"
                           << "to (address)!";
    QTest::newRow("known host") << "north.example refuses; north.example."
                                << "(address) refuses; (address).";
    QTest::newRow("known with a path") << "wss://south.example/a/b is closed"
                                       << "(address) is closed";
    QTest::newRow("numbers") << "from 10.0.0.7:4711, 192.168.1.2."
                             << "from (address), (address).";
    QTest::newRow("IPv6") << "from [fe80::1%eth0]:80 and [::1]"
                          << "from (address) and (address)";
    QTest::newRow("any URL") << "\"ws://other/x\""
                             << "\"(address)\"";
    QTest::newRow("home") << QDir::homePath() + "/plugins/a.so"
                          << "~/plugins/a.so";
}

void PrivacyTest::an_address_is_taken_out()
{
    QFETCH(QString, text);
    const Privacy privacy({"north.example:9090", "wss://south.example/a"});
    QTEST(privacy.clean(text), "left");
}

void PrivacyTest::other_texts_stay_as_they_are_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"northern.example", "a.north.example", "device-workbench 0.1.0",
                             "12:30:15.123456", "[0.5, 1, -2.25]", "[1:2]x"})
        QTest::newRow(text) << text;
}

void PrivacyTest::other_texts_stay_as_they_are()
{
    QFETCH(QString, text);
    QCOMPARE(Privacy({"north.example", "a", ""}).clean(text), text);
}

void PrivacyTest::settings_lose_the_values_of_what_is_private_alone()
{
    const QJsonObject value{{"type", "string"}, {"value", "north"}};
    const QJsonObject settings{{"ipAddress", value},
                               {"ipAddressHistory", QJsonArray{"north"}},
                               {"brightness", 70},
                               {"note", QJsonObject{{"value", "beside 10.0.0.7"}}}};
    const QJsonObject left{{"ipAddress", "(left out)"},
                           {"ipAddressHistory", "(left out)"},
                           {"brightness", 70},
                           {"note", QJsonObject{{"value", "beside (address)"}}}};
    QCOMPARE(Privacy({}).clean(settings), left);
}

TEST_WITHOUT_WINDOWS(PrivacyTest)

} // namespace privacy_test

#include "PrivacyTest.moc"
