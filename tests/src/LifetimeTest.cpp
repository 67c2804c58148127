// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "AddressInput.h"
#include "Addresses.h"
#include "ConnectButton.h"
#include "ContextMenu.h"
#include "Delivery.h"
#include "TestCase.h"
#include "Toolbar.h"

#include <QVBoxLayout>
#include <QtTest>

#include <functional>
#include <memory>

namespace lifetime_test {

/// The connection's widgets come and go at any moment a host chooses. What only a sanitizer
/// sees is tested here for the build that has one.
class LifetimeTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void two_thousand_toolbars_leave_nothing_behind();
    void a_half_edited_address_dies_with_its_toolbar_data();
    void a_half_edited_address_dies_with_its_toolbar();
    void closing_the_window_ends_the_edit_of_a_living_toolbar();
    void the_toolbar_can_die_while_its_list_is_open();
    void the_toolbar_can_die_while_its_context_menu_is_open();
    void the_toolbar_can_die_while_a_message_is_delivered();
    void the_toolbar_can_die_in_its_own_click();
    void the_toolbar_can_be_deleted_later_from_its_own_return_key();
    void every_notification_works_without_the_children_data();
    void every_notification_works_without_the_children();
    void the_children_are_idle_without_their_owner();
    void a_child_in_another_layout_lives_as_long_as_its_new_parent();
};

namespace {

/// Another widget of the same device, which does something when it gets a message.
class Listener : public plugin::gui::DeviceWidget
{
public:
    Listener(plugin::gui::DeviceDelegate& delegate, std::function<void()> action)
        : DeviceWidget(delegate, nullptr),
          m_action(std::move(action))
    {
    }
    using DeviceWidget::update;
    void on_messageReceived(plugin::plugin::DataRole, const Variant&) override { m_action(); }

private:
    std::function<void()> m_action;
};

void notifyOfEverything(FakeHost& host)
{
    change(host, Kind::Config, "ipAddress", std::string("10.0.0.2"));
    change(host, Kind::Config, "ipAddressHistory", list({"10.0.0.2"}));
    for (int role : {0, 1005}) {
        for (int state = -2; state < 6; ++state)
            message(host, role, state);
    }
    notifyWidgets(host, [](plugin::gui::DeviceWidget& widget) {
        widget.connected();
        widget.disconnected();
        widget.translate();
    });
}

} // namespace

void LifetimeTest::two_thousand_toolbars_leave_nothing_behind()
{
    FakeHost host;
    const auto widgets = QApplication::allWidgets().size();
    for (int i = 0; i < 2000; ++i) {
        host.calls.clear();
        Toolbar toolbar(host);
        QCOMPARE(host.widgets.size(), 1);
        toolbar.translate();
        QCOMPARE(host.calls.filter("register").size(), 2);
    }
    QCOMPARE(QApplication::allWidgets().size(), widgets);
    QVERIFY(host.widgets.isEmpty());
    QVERIFY(host.writes.empty());
}

void LifetimeTest::a_half_edited_address_dies_with_its_toolbar_data()
{
    QTest::addColumn<bool>("embedded");
    QTest::newRow("a window of its own") << false;
    QTest::newRow("in the host's window") << true;
}

void LifetimeTest::a_half_edited_address_dies_with_its_toolbar()
{
    QFETCH(bool, embedded);
    FakeHost host;
    setAddress(host, "10.0.0.1");
    QWidget window;
    QVBoxLayout layout(&window);
    auto* toolbar = new Toolbar(host);
    if (embedded)
        layout.addWidget(toolbar);
    toolbar->window()->show();
    QVERIFY(QTest::qWaitForWindowActive(toolbar->window()));
    toolbar->addressInput()->setFocus();
    QTest::keyClicks(toolbar->addressInput(), "host");
    QVERIFY(toolbar->addressInput()->hasFocus());

    host.calls.clear();
    delete toolbar;
    QCOMPARE(host.calls, QStringList());
    QCOMPARE(storedAddress(host), QString("10.0.0.1"));
    QVERIFY(host.widgets.isEmpty());
}

void LifetimeTest::closing_the_window_ends_the_edit_of_a_living_toolbar()
{
    FakeHost host;
    Toolbar toolbar(host);
    toolbar.show();
    QVERIFY(QTest::qWaitForWindowActive(&toolbar));
    toolbar.addressInput()->setFocus();
    QTest::keyClicks(toolbar.addressInput(), "10.0.0.5");
    toolbar.close();
    QTRY_COMPARE(writtenAddresses(host), QStringList{"10.0.0.5"});
}

void LifetimeTest::the_toolbar_can_die_while_its_list_is_open()
{
    FakeHost host;
    setHistory(host, {"10.0.0.2", "10.0.0.1"});
    const auto widgets = QApplication::allWidgets().size();
    auto* toolbar = new Toolbar(host);
    toolbar->show();
    QVERIFY(QTest::qWaitForWindowActive(toolbar));
    toolbar->addressInput()->showPopup();
    QTRY_VERIFY(QApplication::activePopupWidget());
    delete toolbar;
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(QApplication::allWidgets().size(), widgets);
    QVERIFY(host.writes.empty());
}

void LifetimeTest::the_toolbar_can_die_while_its_context_menu_is_open()
{
    FakeHost host;
    const auto widgets = QApplication::allWidgets().size();
    QPointer<Toolbar> toolbar = new Toolbar(host);
    toolbar->show();
    QVERIFY(QTest::qWaitForWindowActive(toolbar));
    toolbar->addressInput()->setFocus();
    QTest::keyClicks(toolbar->addressInput(), "half");
    const QPointer<QAction> help = host.helpAction("toolbar");
    QVERIFY(withContextMenu(*toolbar->addressInput()->lineEdit(),
                            [&](const QMenu&) { delete toolbar; }));
    QVERIFY(!toolbar);
    QVERIFY(help);
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(QApplication::allWidgets().size(), widgets);
    QVERIFY(host.writes.empty());
}

void LifetimeTest::the_toolbar_can_die_while_a_message_is_delivered()
{
    FakeHost host;
    auto toolbar = std::make_unique<Toolbar>(host);
    const Listener before(host, [&] { toolbar = std::make_unique<Toolbar>(host); });
    const auto after = std::make_unique<Toolbar>(host);
    message(host, 1005, 3);
    QCOMPARE(after->connectButton()->toolTip(), QString("Connected to ."));
    // The new one was not there when the message came: it asked the host itself.
    QCOMPARE(toolbar->connectButton()->toolTip(), QString("Not connected."));
    message(host, 1005, -1);
    QCOMPARE(host.widgets.size(), 3);
}

void LifetimeTest::the_toolbar_can_die_in_its_own_click()
{
    FakeHost host;
    QPointer<Toolbar> toolbar = new Toolbar(host);
    toolbar->show();
    QVERIFY(QTest::qWaitForWindowActive(toolbar));
    host.onConnect = [&toolbar] { delete toolbar; };
    QTest::mouseClick(toolbar->connectButton(), Qt::LeftButton);
    QVERIFY(!toolbar);
    QCOMPARE(host.calls.last(), QString("connect"));
}

void LifetimeTest::the_toolbar_can_be_deleted_later_from_its_own_return_key()
{
    FakeHost host;
    QPointer<Toolbar> toolbar = new Toolbar(host);
    toolbar->show();
    QVERIFY(QTest::qWaitForWindowActive(toolbar));
    toolbar->addressInput()->setFocus();
    QTest::keyClicks(toolbar->addressInput(), "10.0.0.5");
    host.onConnect = [&toolbar] { toolbar->deleteLater(); };
    QTest::keyClick(toolbar->addressInput(), Qt::Key_Return);
    QTRY_VERIFY(!toolbar);
    QCOMPARE(writtenAddresses(host), QStringList{"10.0.0.5"});
}

void LifetimeTest::every_notification_works_without_the_children_data()
{
    QTest::addColumn<bool>("withAddress");
    QTest::addColumn<bool>("withButton");
    QTest::newRow("without the address field") << false << true;
    QTest::newRow("without the button") << true << false;
    QTest::newRow("without both") << false << false;
}

void LifetimeTest::every_notification_works_without_the_children()
{
    QFETCH(bool, withAddress);
    QFETCH(bool, withButton);
    FakeHost host;
    Toolbar toolbar(host);
    if (!withAddress)
        delete toolbar.addressInput();
    if (!withButton)
        delete toolbar.connectButton();
    notifyOfEverything(host);
    QCOMPARE(toolbar.addressInput() != nullptr, withAddress);
    QCOMPARE(toolbar.connectButton() != nullptr, withButton);
    if (withAddress)
        QCOMPARE(toolbar.addressInput()->text(), QString("10.0.0.2"));
    if (withButton)
        QCOMPARE(toolbar.connectButton()->toolTip(), QString("Not connected."));

    // Connecting still works, with the stored address where there is no field.
    host.calls.clear();
    toolbar.toggleConnectionState();
    QCOMPARE(host.calls.last(), QString("connect"));
    QCOMPARE(storedAddress(host), QString("10.0.0.2"));
}

void LifetimeTest::the_children_are_idle_without_their_owner()
{
    FakeHost host;
    setAddress(host, "10.0.0.1");
    QWidget window;
    QVBoxLayout layout(&window);
    auto quandrel = std::make_unique<Quandrel>(host, nullptr, "word");
    AddressInput* const input = quandrel->addressInput();
    ConnectButton* const button = quandrel->connectButton();
    layout.addWidget(input);
    layout.addWidget(button);
    QLineEdit other;
    layout.addWidget(&other);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    input->setFocus();
    QTest::keyClicks(input, "half typed");
    host.calls.clear();
    quandrel.reset();
    QCOMPARE(host.calls, QStringList());

    other.setFocus(); // the edit ends, for nobody
    QTest::mouseClick(button, Qt::LeftButton);
    input->setFocus();
    QTest::keyClick(input, Qt::Key_Return);
    input->updateIpAddressHistory();
    button->setConnectionState(3);
    button->translate(-1);
    QStringList menu;
    QVERIFY(withContextMenu(*input->lineEdit(), [&](const QMenu& m) { menu = entries(m); }));
    QVERIFY(!menu.contains("Help on word"));
    QCOMPARE(host.calls, QStringList());
    QVERIFY(!button->icon().isNull());
    QCOMPARE(button->toolTip(), QString("Not connected.")); // as the owner left it
}

void LifetimeTest::a_child_in_another_layout_lives_as_long_as_its_new_parent()
{
    FakeHost host;
    auto window = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(window.get());
    Quandrel quandrel(host, nullptr, QString());
    const QPointer<AddressInput> input = quandrel.addressInput();
    layout->addWidget(input);
    layout->addWidget(quandrel.connectButton());
    notifyOfEverything(host);
    QCOMPARE(input->text(), QString("10.0.0.2"));
    window.reset();
    QVERIFY(!input);
    QVERIFY(!quandrel.addressInput() && !quandrel.connectButton());
    notifyOfEverything(host);
}

TEST_WITH_WINDOWS(LifetimeTest)

} // namespace lifetime_test

#include "LifetimeTest.moc"
