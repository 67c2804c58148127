#include "ConnectButton.h"
#include "FakeHost.h"
#include "Quandrel.h"
#include "TestCase.h"

#include <QtTest>

class ConnectButtonTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_state_is_shown_as_icon_and_tool_tip_data();
    void the_state_is_shown_as_icon_and_tool_tip();
};

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
    FakeHost host;
    host.set(Kind::Config, "ipAddress", std::string("10.0.0.1"));
    Quandrel quandrel(host, nullptr, QString());

    quandrel.connectButton()->setConnectionState(state);

    const QPixmap expected(QString(":/device_quandrel_gui/icons/%1.png").arg(icon));
    QVERIFY(!expected.isNull());
    QCOMPARE(quandrel.connectButton()->icon().pixmap(40, 40).toImage(), expected.toImage());
    QCOMPARE(quandrel.connectButton()->toolTip(), toolTip);
}

QTEST_MAIN(ConnectButtonTest)
#include "ConnectButtonTest.moc"
