// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Quandrel.h"

#include "AddressInput.h"
#include "Addresses.h"
#include "ConnectButton.h"
#include "Delivery.h"
#include "TestCase.h"

#include <QtTest>

#include <climits>

namespace quandrel_test {

class QuandrelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void construction_calls_the_host_in_order();
    void the_children_are_its_own_the_address_first();
    void the_state_decides_at_construction_whether_the_address_may_be_edited_data();
    void the_state_decides_at_construction_whether_the_address_may_be_edited();
    void a_state_that_is_no_integer_is_shown_as_the_number_it_converts_to();

    void a_bundle_with_the_address_sets_the_shown_text();
    void a_bundle_with_the_history_rebuilds_the_list_and_reads_the_address();
    void a_bundle_with_both_ends_with_the_stored_address();
    void a_bundle_without_either_changes_nothing();
    void what_the_device_reports_is_never_written_back();

    void a_message_shows_the_state_data();
    void a_message_shows_the_state();
    void a_message_of_another_role_is_ignored_data();
    void a_message_of_another_role_is_ignored();
    void connected_disables_the_address();
    void disconnected_alone_does_not_enable_the_address();
    void the_connecting_animation_is_what_the_host_reports();

    void translate_sets_the_tool_tip_again_for_the_present_state();
    void help_is_about_the_context_of_the_constructor();
};

void QuandrelTest::construction_calls_the_host_in_order()
{
    FakeHost host;
    const Quandrel quandrel(host, nullptr, "word");
    QCOMPARE(host.calls, (QStringList{"read config ipAddressHistory", "read config ipAddress",
                                      "register config ipAddress true",
                                      "register config ipAddressHistory true", "exec 1005"}));
    QVERIFY(host.sent.at(ConnectionStateRole).isEmpty());
    QCOMPARE(host.widgets.size(), 1);

    FakeHost connectedHost;
    connectedHost.answers[ConnectionStateRole] = 3;
    const Quandrel connectedQuandrel(connectedHost, nullptr, "word");
    QCOMPARE(connectedHost.calls, host.calls + QStringList{"read config ipAddress"});
}

void QuandrelTest::the_children_are_its_own_the_address_first()
{
    FakeHost host;
    QWidget parent;
    auto* quandrel = new Quandrel(host, &parent, QString());
    QCOMPARE(quandrel->parent(), &parent);
    const QObjectList children{quandrel->addressInput(), quandrel->connectButton()};
    QCOMPARE(quandrel->children(), children);
    QVERIFY(!quandrel->layout());
}

void QuandrelTest::the_state_decides_at_construction_whether_the_address_may_be_edited_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("editable");
    for (int state : {INT_MIN, -2, -1, 0, 1, 2, 3, 4, 7, INT_MAX})
        QTest::addRow("%d", state) << state << (state == -1);
}

void QuandrelTest::the_state_decides_at_construction_whether_the_address_may_be_edited()
{
    QFETCH(int, state);
    QFETCH(bool, editable);
    FakeHost host;
    host.answers[ConnectionStateRole] = state;
    const Quandrel quandrel(host, nullptr, QString());
    QCOMPARE(quandrel.addressInput()->isEnabled(), editable);
    QCOMPARE(quandrel.connectButton()->icon().isNull(), state < -1 || state > 4);
}

void QuandrelTest::a_state_that_is_no_integer_is_shown_as_the_number_it_converts_to()
{
    for (const Variant& answer : {Variant(), Variant(std::string("no number")), Variant(true)}) {
        FakeHost host;
        setAddress(host, "10.0.0.1");
        host.answers[ConnectionStateRole] = answer;
        const Quandrel quandrel(host, nullptr, QString());
        QCOMPARE(quandrel.connectButton()->toolTip(), QString("Connecting to 10.0.0.1."));
        QVERIFY(!quandrel.addressInput()->isEnabled());
    }
    FakeHost host;
    host.answers[ConnectionStateRole] = std::string("-1");
    const Quandrel quandrel(host, nullptr, QString());
    QCOMPARE(quandrel.connectButton()->toolTip(), QString("Not connected."));
    QVERIFY(quandrel.addressInput()->isEnabled());

    // The state of a message likewise.
    for (const int role : {0, 1005}) {
        message(host, role, std::string("3"));
        QCOMPARE(quandrel.connectButton()->toolTip(), QString("Connected to ."));
        QCOMPARE(quandrel.addressInput()->isEnabled(), role == 0);
        message(host, role, std::string("-1"));
        QCOMPARE(quandrel.connectButton()->toolTip(), QString("Not connected."));
        message(host, role, Variant());
        QCOMPARE(quandrel.connectButton()->toolTip(), QString("Connecting to ."));
    }
}

void QuandrelTest::a_bundle_with_the_address_sets_the_shown_text()
{
    FakeHost host;
    const Quandrel quandrel(host, nullptr, QString());
    host.calls.clear();
    change(host, Kind::Config, "ipAddress", std::string("10.0.0.7"));
    QCOMPARE(quandrel.addressInput()->text(), QString("10.0.0.7"));
    QCOMPARE(host.calls, QStringList()); // the bundle says it all

    change(host, Kind::Config, "ipAddress", std::string("r\xf6hre")); // Latin-1
    QCOMPARE(quandrel.addressInput()->text(), QString::fromUtf8("röhre"));
    change(host, Kind::Config, "ipAddress", Variant());
    QCOMPARE(quandrel.addressInput()->text(), QString());
}

void QuandrelTest::a_bundle_with_the_history_rebuilds_the_list_and_reads_the_address()
{
    FakeHost host;
    setAddress(host, "10.0.0.9");
    const Quandrel quandrel(host, nullptr, QString());
    quandrel.addressInput()->setEditText("half typed");
    host.calls.clear();
    change(host, Kind::Config, "ipAddressHistory", list({"10.0.0.2", "10.0.0.1"}));
    QCOMPARE(host.calls, (QStringList{"read config ipAddressHistory", "read config ipAddress"}));
    QCOMPARE(quandrel.addressInput()->count(), 2);
    QCOMPARE(quandrel.addressInput()->itemText(0), QString("10.0.0.2"));
    QCOMPARE(quandrel.addressInput()->text(), QString("10.0.0.9"));
}

void QuandrelTest::a_bundle_with_both_ends_with_the_stored_address()
{
    FakeHost host;
    const Quandrel quandrel(host, nullptr, QString());
    setAddress(host, "stored");
    setHistory(host, {"used"});
    plugin::gui::HistoryBundleContent content;
    content.insert(Kind::Config, "ipAddress", std::string("reported"));
    content.insert(Kind::Config, "ipAddressHistory", Variant());
    deliver(host, content);
    QCOMPARE(quandrel.addressInput()->text(), QString("stored"));
    QCOMPARE(quandrel.addressInput()->itemText(0), QString("used"));
}

void QuandrelTest::a_bundle_without_either_changes_nothing()
{
    FakeHost host;
    setAddress(host, "10.0.0.1");
    setHistory(host, {"10.0.0.2"});
    const Quandrel quandrel(host, nullptr, QString());
    quandrel.addressInput()->setEditText("half typed");
    setHistory(host, {});
    host.calls.clear();

    deliver(host, plugin::gui::HistoryBundleContent());
    change(host, Kind::Config, "num_pos", 3);
    change(host, Kind::State, "ipAddress", std::string("a state of that name"));
    change(host, Kind::Input, "ipAddressHistory", list({"an input of that name"}));
    QCOMPARE(quandrel.addressInput()->text(), QString("half typed"));
    QCOMPARE(quandrel.addressInput()->count(), 1);
    QCOMPARE(host.calls, QStringList());
}

void QuandrelTest::what_the_device_reports_is_never_written_back()
{
    FakeHost host;
    Quandrel quandrel(host, nullptr, QString());
    change(host, Kind::Config, "ipAddress", std::string("myhost.lan"));
    change(host, Kind::Config, "ipAddressHistory", list({"myhost.lan", "other"}));
    for (int state = -2; state < 8; ++state)
        message(host, 1005, state);
    quandrel.connected();
    quandrel.disconnected();
    quandrel.translate();
    QVERIFY(host.writes.empty());
    QVERIFY(!host.calls.contains("connect") && !host.calls.contains("disconnect"));
}

void QuandrelTest::a_message_shows_the_state_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("toolTip");
    for (int role : {0, 1005}) {
        for (int state : {-2, -1, 0, 1, 2, 3, 4, 5, 7}) {
            const QString toolTip = state == -1               ? "Not connected."
                                    : state >= 0 && state < 3 ? "Connecting to 10.0.0.1."
                                    : state == 3              ? "Connected to 10.0.0.1."
                                                              : "as before";
            QTest::addRow("role %d, state %d", role, state) << role << state << toolTip;
        }
    }
}

void QuandrelTest::a_message_shows_the_state()
{
    QFETCH(int, role);
    QFETCH(int, state);
    QFETCH(QString, toolTip);
    for (bool enabledBefore : {true, false}) {
        FakeHost host;
        setAddress(host, "10.0.0.1");
        const Quandrel quandrel(host, nullptr, QString());
        quandrel.connectButton()->setToolTip("as before");
        quandrel.addressInput()->setEnabled(enabledBefore);
        host.calls.clear();

        message(host, role, state);
        QCOMPARE(quandrel.connectButton()->toolTip(), toolTip);
        QCOMPARE(quandrel.connectButton()->icon().isNull(), state < -1 || state > 4);
        QCOMPARE(quandrel.addressInput()->isEnabled(), role == 0 ? enabledBefore : state == -1);
        QVERIFY(!host.calls.contains("exec 1005")); // the message says it all
    }
}

void QuandrelTest::a_message_of_another_role_is_ignored_data()
{
    QTest::addColumn<int>("role");
    for (int role : {-1, 1, 2, 255, 1000, 1001, 1002, 1003, 1004, 1006, 1007, 1010, INT_MAX})
        QTest::addRow("%d", role) << role;
}

void QuandrelTest::a_message_of_another_role_is_ignored()
{
    QFETCH(int, role);
    FakeHost host;
    const Quandrel quandrel(host, nullptr, QString());
    const auto icon = quandrel.connectButton()->icon().cacheKey();
    host.calls.clear();
    message(host, role, 3);
    message(host, role, QString("text"));
    QCOMPARE(quandrel.connectButton()->icon().cacheKey(), icon);
    QCOMPARE(quandrel.connectButton()->toolTip(), QString("Not connected."));
    QVERIFY(quandrel.addressInput()->isEnabled());
    QCOMPARE(host.calls, QStringList());
}

void QuandrelTest::connected_disables_the_address()
{
    FakeHost host;
    Quandrel quandrel(host, nullptr, QString());
    host.calls.clear();
    quandrel.connected();
    QVERIFY(!quandrel.addressInput()->isEnabled());
    QCOMPARE(quandrel.connectButton()->toolTip(), QString("Not connected."));
    QCOMPARE(host.calls, QStringList());
}

void QuandrelTest::disconnected_alone_does_not_enable_the_address()
{
    FakeHost host;
    Quandrel quandrel(host, nullptr, QString());
    quandrel.connected();
    quandrel.disconnected();
    QVERIFY(!quandrel.addressInput()->isEnabled());
    message(host, 0, -1);
    QCOMPARE(quandrel.connectButton()->toolTip(), QString("Not connected."));
    QVERIFY(!quandrel.addressInput()->isEnabled());
    message(host, 1005, -1);
    QVERIFY(quandrel.addressInput()->isEnabled());
    quandrel.disconnected();
    QVERIFY(quandrel.addressInput()->isEnabled());
}

void QuandrelTest::the_connecting_animation_is_what_the_host_reports()
{
    FakeHost host;
    const Quandrel quandrel(host, nullptr, QString());
    for (int state : {0, 1, 2, 0, 1, 2, 3, 4, 3, -1}) {
        message(host, 0, state);
        const QString icon = state == -1 ? "wifi_disconnect"
                             : state == 4
                                 ? "wifi_connect3passive"
                                 : QString("wifi_connect%1").arg(state == 3 ? 3 : state + 1);
        const QPixmap expected(QString(":/device_quandrel_gui/icons/%1.png").arg(icon));
        QVERIFY(!expected.isNull());
        QCOMPARE(quandrel.connectButton()->icon().pixmap(40, 40).toImage(), expected.toImage());
    }
    QVERIFY(quandrel.findChildren<QTimer*>().isEmpty());
}

void QuandrelTest::translate_sets_the_tool_tip_again_for_the_present_state()
{
    FakeHost host;
    setAddress(host, "10.0.0.1");
    Quandrel quandrel(host, nullptr, QString());
    const auto icon = quandrel.connectButton()->icon().cacheKey();
    host.dictionary = {{"Not connected.", "Nicht verbunden."},
                       {"Connecting to %1.", "Verbinde mit %1."},
                       {"Connected to %1.", "Mit %1 verbunden."}};
    host.calls.clear();
    quandrel.translate();
    QCOMPARE(host.calls, QStringList{"exec 1005"});
    QVERIFY(host.sent.at(ConnectionStateRole).isEmpty());
    QCOMPARE(quandrel.connectButton()->toolTip(), QString("Nicht verbunden."));

    host.answers[ConnectionStateRole] = 1;
    quandrel.translate();
    QCOMPARE(quandrel.connectButton()->toolTip(), QString("Verbinde mit 10.0.0.1."));
    host.answers[ConnectionStateRole] = 3;
    quandrel.translate();
    QCOMPARE(quandrel.connectButton()->toolTip(), QString("Mit 10.0.0.1 verbunden."));
    host.answers[ConnectionStateRole] = 4;
    host.dictionary.clear();
    quandrel.translate();
    QCOMPARE(quandrel.connectButton()->toolTip(), QString("Mit 10.0.0.1 verbunden."));

    // Only the text is set again.
    QCOMPARE(quandrel.connectButton()->icon().cacheKey(), icon);
    QVERIFY(quandrel.addressInput()->isEnabled());
}

void QuandrelTest::help_is_about_the_context_of_the_constructor()
{
    FakeHost host;
    const Quandrel quandrel(host, nullptr, "word");
    const Quandrel plain(host, nullptr, QString());
    QCOMPARE(quandrel.helpContext(), QString("word"));
    QCOMPARE(plain.helpContext(), QString());
    host.calls.clear();
    QCOMPARE(quandrel.helpAction(), host.helpAction("word"));
    QCOMPARE(plain.helpAction(), host.helpAction(QString()));
    QCOMPARE(quandrel.helpAction("other"), host.helpAction("other"));
    QCOMPARE(host.calls,
             (QStringList{"help word", "help word", "help ", "help ", "help other", "help other"}));
}

TEST_WITH_WINDOWS(QuandrelTest)

} // namespace quandrel_test

#include "QuandrelTest.moc"
