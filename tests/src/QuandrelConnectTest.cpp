// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "AddressInput.h"
#include "Addresses.h"
#include "Quandrel.h"
#include "TestCase.h"
#include "VariantMetaType.h"

#include <QtTest>

#include <climits>

namespace quandrel_connect_test {

/// How a Quandrel stores the address and its history, connects and disconnects.
class QuandrelConnectTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_address_is_read_from_the_host_every_time();
    void a_new_address_is_stored_as_a_byte_string_whatever_its_form_data();
    void a_new_address_is_stored_as_a_byte_string_whatever_its_form();
    void the_stored_address_is_not_stored_again();
    void the_display_waits_for_the_host();

    void connecting_keeps_to_its_order();
    void the_hosts_answer_is_returned();
    void a_new_address_becomes_the_first_of_the_history();
    void a_known_address_leaves_the_history_as_it_is();
    void an_address_that_differs_in_case_is_a_new_entry();
    void an_empty_address_is_recorded_like_any_other();
    void the_history_records_what_the_host_made_of_the_address();
    void the_history_has_no_limit();

    void the_present_state_decides_between_connect_and_disconnect_data();
    void the_present_state_decides_between_connect_and_disconnect();
    void toggling_uses_the_connect_operation_of_a_derived_class();
};

void QuandrelConnectTest::the_address_is_read_from_the_host_every_time()
{
    FakeHost host;
    const Quandrel quandrel(host, nullptr, QString());
    QCOMPARE(quandrel.ipAddress(), QString());
    QCOMPARE(quandrel.ipAddressHistory(), QStringList());
    setAddress(host, "r\xf6hre.lan");
    setHistory(host, {"10.0.0.2", "r\xf6hre.lan"});
    QCOMPARE(quandrel.ipAddress(), QString::fromUtf8("röhre.lan"));
    QCOMPARE(quandrel.ipAddressHistory(),
             (QStringList{"10.0.0.2", QString::fromUtf8("röhre.lan")}));
    host.set(Kind::Config, "ipAddress", 42); // converted like any value
    QCOMPARE(quandrel.ipAddress(), QString("42"));
    host.set(Kind::Config, "ipAddressHistory", 42);
    QCOMPARE(quandrel.ipAddressHistory(), QStringList());
}

void QuandrelConnectTest::a_new_address_is_stored_as_a_byte_string_whatever_its_form_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("an address") << "10.0.0.2" << QByteArray("10.0.0.2");
    QTest::newRow("a host name") << "myhost.lan" << QByteArray("myhost.lan");
    QTest::newRow("nothing") << "" << QByteArray("");
    QTest::newRow("blanks") << "  a b " << QByteArray("  a b ");
    QTest::newRow("another case") << "STORED" << QByteArray("STORED");
    QTest::newRow("Latin-1") << QString::fromUtf8("röhre") << QByteArray("r\xf6hre");
    QTest::newRow("beyond Latin-1") << QString::fromUtf8("Ω") << QByteArray("?");
}

void QuandrelConnectTest::a_new_address_is_stored_as_a_byte_string_whatever_its_form()
{
    QFETCH(QString, address);
    QFETCH(QByteArray, bytes);
    FakeHost host;
    setAddress(host, "stored");
    Quandrel quandrel(host, nullptr, QString());
    host.calls.clear();
    quandrel.setIpAddress(address);
    QCOMPARE(host.calls, (QStringList{"read config ipAddress", "write config ipAddress"}));
    bool isByteString = false;
    const std::string written = host.writes.at(0).second.get<std::string>(&isByteString);
    QVERIFY(isByteString);
    QCOMPARE(QByteArray::fromStdString(written), bytes);
}

void QuandrelConnectTest::the_stored_address_is_not_stored_again()
{
    FakeHost host;
    setAddress(host, "10.0.0.2");
    Quandrel quandrel(host, nullptr, QString());
    quandrel.setIpAddress("10.0.0.2");
    QVERIFY(host.writes.empty());
}

void QuandrelConnectTest::the_display_waits_for_the_host()
{
    FakeHost host;
    setAddress(host, "10.0.0.1");
    Quandrel quandrel(host, nullptr, QString());
    quandrel.setIpAddress("10.0.0.2");
    QCOMPARE(quandrel.addressInput()->text(), QString("10.0.0.1"));
    quandrel.addressInput()->setEditText("10.0.0.3");
    quandrel.connectDevice();
    QCOMPARE(quandrel.addressInput()->count(), 0); // the history shows when the host reports it
}

void QuandrelConnectTest::connecting_keeps_to_its_order()
{
    FakeHost host;
    setAddress(host, "10.0.0.1");
    Quandrel quandrel(host, nullptr, QString());
    quandrel.addressInput()->setEditText("10.0.0.2");
    host.calls.clear();
    quandrel.connectDevice();
    QCOMPARE(host.calls,
             (QStringList{"begin Set IP Address", "read config ipAddress", "write config ipAddress",
                          "read config ipAddress", "read config ipAddressHistory",
                          "write config ipAddressHistory", "end", "connect"}));

    // The second time there is nothing to store.
    host.dictionary = {{"Set IP Address", "Adresse setzen"}}; // not for the user's eyes
    host.calls.clear();
    quandrel.connectDevice();
    QCOMPARE(host.calls,
             (QStringList{"begin Set IP Address", "read config ipAddress", "read config ipAddress",
                          "read config ipAddressHistory", "end", "connect"}));
}

void QuandrelConnectTest::the_hosts_answer_is_returned()
{
    FakeHost host;
    Quandrel quandrel(host, nullptr, QString());
    QVERIFY(quandrel.connectDevice());
    host.connectAnswer = false;
    QVERIFY(!quandrel.connectDevice());
    QVERIFY(quandrel.addressInput()->isEnabled()); // a refusal changes nothing
}

void QuandrelConnectTest::a_new_address_becomes_the_first_of_the_history()
{
    FakeHost host;
    setHistory(host, {"10.0.0.2", "10.0.0.1"});
    Quandrel quandrel(host, nullptr, QString());
    quandrel.addressInput()->setEditText("10.0.0.3");
    quandrel.connectDevice();
    QCOMPARE(storedAddress(host), QString("10.0.0.3"));
    QCOMPARE(storedHistory(host), (QStringList{"10.0.0.3", "10.0.0.2", "10.0.0.1"}));
    bool isStringList = false;
    host.writes.back().second.get<olm::core::StringList>(&isStringList);
    QVERIFY(isStringList);
}

void QuandrelConnectTest::a_known_address_leaves_the_history_as_it_is()
{
    FakeHost host;
    setHistory(host, {"10.0.0.2", "10.0.0.1"});
    Quandrel quandrel(host, nullptr, QString());
    quandrel.addressInput()->setEditText("10.0.0.1");
    quandrel.connectDevice();
    quandrel.connectDevice();
    QCOMPARE(writtenAddresses(host), QStringList{"10.0.0.1"});
    QCOMPARE(host.writes.size(), std::size_t(1));
    QCOMPARE(storedHistory(host), (QStringList{"10.0.0.2", "10.0.0.1"}));
}

void QuandrelConnectTest::an_address_that_differs_in_case_is_a_new_entry()
{
    FakeHost host;
    setHistory(host, {"myhost.lan"});
    Quandrel quandrel(host, nullptr, QString());
    quandrel.addressInput()->setEditText("MyHost.lan");
    quandrel.connectDevice();
    QCOMPARE(storedHistory(host), (QStringList{"MyHost.lan", "myhost.lan"}));
    quandrel.addressInput()->setEditText("myhost"); // whole entries are compared
    quandrel.connectDevice();
    QCOMPARE(storedHistory(host), (QStringList{"myhost", "MyHost.lan", "myhost.lan"}));
}

void QuandrelConnectTest::an_empty_address_is_recorded_like_any_other()
{
    FakeHost host;
    setAddress(host, "10.0.0.1");
    setHistory(host, {"10.0.0.1"});
    Quandrel quandrel(host, nullptr, QString());
    quandrel.addressInput()->setEditText(QString());
    quandrel.connectDevice();
    QCOMPARE(storedHistory(host), (QStringList{"", "10.0.0.1"}));
}

void QuandrelConnectTest::the_history_records_what_the_host_made_of_the_address()
{
    struct Host : FakeHost
    {
        void write(Kind kind, const char* name, const Variant& value) override
        {
            const bool isAddress = std::string(name) == "ipAddress";
            FakeHost::write(kind, name, isAddress ? Variant(std::string("10.0.0.1")) : value);
        }
    } host;
    Quandrel quandrel(host, nullptr, QString());
    quandrel.addressInput()->setEditText("10.1");
    quandrel.connectDevice();
    QCOMPARE(storedHistory(host), QStringList{"10.0.0.1"});
}

void QuandrelConnectTest::the_history_has_no_limit()
{
    FakeHost host;
    olm::core::StringList history;
    for (int i = 0; i < 5000; ++i)
        history.append("10.0." + std::to_string(i / 250) + "." + std::to_string(i % 250));
    host.set(Kind::Config, "ipAddressHistory", history);
    Quandrel quandrel(host, nullptr, QString());
    quandrel.addressInput()->setEditText("one more");
    quandrel.connectDevice();
    const QStringList stored = storedHistory(host);
    QCOMPARE(stored.size(), 5001);
    QCOMPARE(stored.first(), QString("one more"));
    QCOMPARE(stored.at(1), QString("10.0.0.0"));
    QCOMPARE(stored.last(), QString("10.0.19.249"));
}

void QuandrelConnectTest::the_present_state_decides_between_connect_and_disconnect_data()
{
    QTest::addColumn<Variant>("state");
    QTest::addColumn<QString>("request");
    for (int state : {INT_MIN, -2, -1})
        QTest::addRow("%d", state) << Variant(state) << "connect";
    for (int state : {0, 1, 2, 3, 4, 7, INT_MAX})
        QTest::addRow("%d", state) << Variant(state) << "disconnect";
    QTest::newRow("no answer") << Variant() << "disconnect"; // reads as 0
    QTest::newRow("no integer") << Variant(std::string("none")) << "disconnect";
    QTest::newRow("a text with an integer") << Variant(std::string("-1")) << "connect";
}

void QuandrelConnectTest::the_present_state_decides_between_connect_and_disconnect()
{
    QFETCH(Variant, state);
    QFETCH(QString, request);
    FakeHost host;
    Quandrel quandrel(host, nullptr, QString()); // shows "not connected"
    for (bool answer : {true, false}) {
        host.connectAnswer = answer;
        host.answers[ConnectionStateRole] = state;
        host.calls.clear();
        quandrel.toggleConnectionState();
        QCOMPARE(host.calls.first(), QString("exec 1005"));
        QVERIFY(host.sent.at(ConnectionStateRole).isEmpty());
        QCOMPARE(host.calls.last(), request);
        if (request == "disconnect")
            QCOMPARE(host.calls.size(), 2);
    }
}

void QuandrelConnectTest::toggling_uses_the_connect_operation_of_a_derived_class()
{
    struct Derived : Quandrel
    {
        using Quandrel::Quandrel;
        bool connectDevice() override { return ++connects, true; }
        int connects = 0;
    };
    FakeHost host;
    Derived derived(host, nullptr, QString());
    host.calls.clear();
    derived.toggleConnectionState();
    QCOMPARE(derived.connects, 1);
    QCOMPARE(host.calls, QStringList{"exec 1005"});
}

TEST_WITH_WINDOWS(QuandrelConnectTest)

} // namespace quandrel_connect_test

#include "QuandrelConnectTest.moc"
