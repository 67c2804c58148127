// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "ConnectButton.h"

#include "Addresses.h"
#include "Quandrel.h"
#include "TestCase.h"

#include <QtTest>

namespace connect_button_test {

class ConnectButtonTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_begins_with_its_name_and_size();
    void it_shows_nothing_until_it_is_given_a_state();
    void the_state_is_shown_as_icon_and_tool_tip_data();
    void the_state_is_shown_as_icon_and_tool_tip();
    void any_other_state_clears_the_icon_and_keeps_the_tool_tip_data();
    void any_other_state_clears_the_icon_and_keeps_the_tool_tip();
    void passive_after_connected_keeps_the_tool_tip();
    void passive_as_the_first_state_has_no_tool_tip();
    void the_third_frame_and_connected_share_a_picture();
    void the_address_is_the_stored_one_at_the_time_of_the_call();
    void the_tool_tip_is_translated_before_the_address_is_put_in();
    void translate_sets_the_tool_tip_alone();
    void a_click_goes_to_the_owner_whatever_is_shown_data();
    void a_click_goes_to_the_owner_whatever_is_shown();
    void the_keyboard_clicks_it_too();
};

namespace {

QPixmap picture(const QString& name)
{
    return QPixmap(QString(":/device_quandrel_gui/icons/%1.png").arg(name));
}

QImage shownBy(const ConnectButton& button)
{
    return button.icon().pixmap(40, 40).toImage();
}

/// A host at 10.0.0.1, and a connection widget on it.
struct Fixture
{
    explicit Fixture(int state = -1)
    {
        setAddress(host, "10.0.0.1");
        host.answers[ConnectionStateRole] = state;
        quandrel = std::make_unique<Quandrel>(host, nullptr, QString());
    }
    ConnectButton& button() const { return *quandrel->connectButton(); }

    FakeHost host;
    std::unique_ptr<Quandrel> quandrel;
};

} // namespace

void ConnectButtonTest::it_begins_with_its_name_and_size()
{
    const Fixture fixture;
    QCOMPARE(fixture.button().objectName(), QString("OLM GmbH Quandrel ConnectButton"));
    QCOMPARE(fixture.button().minimumSize(), QSize(40, 40));
    QCOMPARE(fixture.button().maximumSize(), QSize(40, 40));
    QCOMPARE(fixture.button().iconSize(), QSize(40, 40));
}

void ConnectButtonTest::it_shows_nothing_until_it_is_given_a_state()
{
    const Fixture fixture;
    const ConnectButton fresh(fixture.quandrel.get());
    QVERIFY(fresh.icon().isNull());
    QVERIFY(fresh.toolTip().isEmpty());
    QCOMPARE(fresh.parent(), fixture.quandrel.get());
}

void ConnectButtonTest::the_state_is_shown_as_icon_and_tool_tip_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<QString>("toolTip");
    QTest::newRow("not connected") << -1 << "wifi_disconnect"
                                   << "Not connected.";
    QTest::newRow("first frame") << 0 << "wifi_connect1"
                                 << "Connecting to 10.0.0.1.";
    QTest::newRow("second frame") << 1 << "wifi_connect2"
                                  << "Connecting to 10.0.0.1.";
    QTest::newRow("third frame") << 2 << "wifi_connect3"
                                 << "Connecting to 10.0.0.1.";
    QTest::newRow("connected") << 3 << "wifi_connect3"
                               << "Connected to 10.0.0.1.";
}

void ConnectButtonTest::the_state_is_shown_as_icon_and_tool_tip()
{
    QFETCH(int, state);
    QFETCH(QString, icon);
    QFETCH(QString, toolTip);
    const Fixture fixture(4); // shows a state with another icon and without a tool tip

    fixture.button().setConnectionState(state);

    QVERIFY(!picture(icon).isNull());
    QCOMPARE(shownBy(fixture.button()), picture(icon).toImage());
    QCOMPARE(fixture.button().toolTip(), toolTip);
}

void ConnectButtonTest::any_other_state_clears_the_icon_and_keeps_the_tool_tip_data()
{
    QTest::addColumn<int>("state");
    for (int state : {-1000, -2, 5, 7, 1005})
        QTest::addRow("%d", state) << state;
}

void ConnectButtonTest::any_other_state_clears_the_icon_and_keeps_the_tool_tip()
{
    QFETCH(int, state);
    const Fixture fixture(3);
    QVERIFY(!fixture.button().icon().isNull());
    fixture.button().setConnectionState(state);
    QVERIFY(fixture.button().icon().isNull());
    QCOMPARE(fixture.button().toolTip(), QString("Connected to 10.0.0.1."));
}

void ConnectButtonTest::passive_after_connected_keeps_the_tool_tip()
{
    const Fixture fixture(3);
    fixture.button().setConnectionState(4);
    QCOMPARE(shownBy(fixture.button()), picture("wifi_connect3passive").toImage());
    QCOMPARE(fixture.button().toolTip(), QString("Connected to 10.0.0.1."));
}

void ConnectButtonTest::passive_as_the_first_state_has_no_tool_tip()
{
    const Fixture fixture(4);
    QCOMPARE(shownBy(fixture.button()), picture("wifi_connect3passive").toImage());
    QVERIFY(fixture.button().toolTip().isEmpty());
}

void ConnectButtonTest::the_third_frame_and_connected_share_a_picture()
{
    const Fixture fixture(2);
    const QImage frame = shownBy(fixture.button());
    QCOMPARE(fixture.button().toolTip(), QString("Connecting to 10.0.0.1."));
    fixture.button().setConnectionState(3);
    QCOMPARE(shownBy(fixture.button()), frame);
    QCOMPARE(fixture.button().toolTip(), QString("Connected to 10.0.0.1."));
}

void ConnectButtonTest::the_address_is_the_stored_one_at_the_time_of_the_call()
{
    Fixture fixture(3);
    setAddress(fixture.host, "10.0.0.2");
    QCOMPARE(fixture.button().toolTip(),
             QString("Connected to 10.0.0.1.")); // until it is set again
    fixture.button().updateToolTip(1);
    QCOMPARE(fixture.button().toolTip(), QString("Connecting to 10.0.0.2."));
    setAddress(fixture.host, "%1"); // an address is text, not a place for another one
    fixture.button().updateToolTip(3);
    QCOMPARE(fixture.button().toolTip(), QString("Connected to %1."));
}

void ConnectButtonTest::the_tool_tip_is_translated_before_the_address_is_put_in()
{
    Fixture fixture;
    fixture.host.dictionary = {{"Connected to %1.", "%1 ist verbunden."},
                               {"Connecting to %1.", "%1 wird verbunden."},
                               {"Not connected.", "Nicht verbunden."}};
    fixture.button().setConnectionState(3);
    QCOMPARE(fixture.button().toolTip(), QString("10.0.0.1 ist verbunden."));
    fixture.button().setConnectionState(0);
    QCOMPARE(fixture.button().toolTip(), QString("10.0.0.1 wird verbunden."));
    fixture.button().setConnectionState(-1);
    QCOMPARE(fixture.button().toolTip(), QString("Nicht verbunden."));
}

void ConnectButtonTest::translate_sets_the_tool_tip_alone()
{
    const Fixture fixture(3);
    const QImage before = shownBy(fixture.button());
    fixture.button().translate(-1);
    QCOMPARE(fixture.button().toolTip(), QString("Not connected."));
    QCOMPARE(shownBy(fixture.button()), before);
}

void ConnectButtonTest::a_click_goes_to_the_owner_whatever_is_shown_data()
{
    QTest::addColumn<int>("shown");
    QTest::addColumn<int>("present");
    QTest::addColumn<QString>("request");
    for (int shown : {-2, -1, 0, 3, 4, 7}) {
        QTest::addRow("shown %d, not connected", shown) << shown << -1 << "connect";
        QTest::addRow("shown %d, no meaning", shown) << shown << -2 << "connect";
        QTest::addRow("shown %d, connecting", shown) << shown << 1 << "disconnect";
        QTest::addRow("shown %d, connected", shown) << shown << 3 << "disconnect";
    }
}

void ConnectButtonTest::a_click_goes_to_the_owner_whatever_is_shown()
{
    QFETCH(int, shown);
    QFETCH(int, present);
    QFETCH(QString, request);
    Fixture fixture;
    fixture.button().setConnectionState(shown);
    fixture.host.answers[ConnectionStateRole] = present;
    fixture.host.calls.clear();
    QTest::mouseClick(&fixture.button(), Qt::LeftButton);
    QCOMPARE(fixture.host.calls.first(), QString("exec 1005"));
    QCOMPARE(fixture.host.calls.last(), request);
    QCOMPARE(fixture.host.calls.filter("connect").size(), 1);
}

void ConnectButtonTest::the_keyboard_clicks_it_too()
{
    Fixture fixture(1);
    fixture.host.calls.clear();
    QTest::keyClick(&fixture.button(), Qt::Key_Space);
    QCOMPARE(fixture.host.calls, (QStringList{"exec 1005", "disconnect"}));
}

TEST_WITH_WINDOWS(ConnectButtonTest)

} // namespace connect_button_test

#include "ConnectButtonTest.moc"
