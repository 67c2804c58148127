// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "AddressInput.h"

#include "Addresses.h"
#include "ConnectButton.h"
#include "ContextMenu.h"
#include "Delivery.h"
#include "TestCase.h"
#include "Toolbar.h"

#include <QHBoxLayout>
#include <QtTest>

#include <memory>

namespace address_input_test {

class AddressInputTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_list_shows_the_history_and_the_field_the_stored_address();
    void the_history_is_shown_as_it_is();
    void the_combo_boxs_defaults_stay();
    void a_disabled_field_still_follows_the_device();
    void a_history_of_five_thousand_entries_is_shown_and_grows();

    void a_finished_edit_is_stored_without_and_then_with_its_small_s_data();
    void a_finished_edit_is_stored_without_and_then_with_its_small_s();
    void typing_alone_stores_nothing();
    void picking_from_the_list_stores_nothing_until_the_edit_is_finished();
    void return_connects_to_the_typed_address();
    void return_acts_as_a_click_also_when_it_disconnects();
    void a_host_that_reports_the_state_while_connecting_ends_the_edit();

    void the_context_menu_ends_with_the_help_entry();
    void the_context_menu_opens_under_the_mouse_with_nothing_chosen();
    void the_help_action_outlives_the_menu();
};

namespace {

/// A shown toolbar with another field beside it, as in a host's window.
struct Window : QWidget
{
    explicit Window(FakeHost& host) : toolbar(new Toolbar(host)), other(new QLineEdit)
    {
        auto* const layout = new QHBoxLayout(this);
        layout->addWidget(toolbar);
        layout->addWidget(other);
        show();
    }
    bool waitUntilActive() { return QTest::qWaitForWindowActive(this); }
    void type(const QString& text)
    {
        input()->setFocus();
        field()->selectAll();
        if (text.isEmpty())
            QTest::keyClick(input(), Qt::Key_Delete);
        QTest::keyClicks(input(), text);
    }
    /// Has the keyboard focus, and passes the keys on to the field.
    AddressInput* input() const { return toolbar->addressInput(); }
    QLineEdit* field() const { return toolbar->addressInput()->lineEdit(); }

    Toolbar* toolbar;
    QLineEdit* other;
};

QStringList items(const AddressInput& input)
{
    QStringList texts;
    for (int index = 0; index < input.count(); ++index)
        texts.append(input.itemText(index));
    return texts;
}

} // namespace

void AddressInputTest::the_list_shows_the_history_and_the_field_the_stored_address()
{
    FakeHost host;
    setAddress(host, "10.0.0.9");
    setHistory(host, {"10.0.0.2", "10.0.0.1"});
    const Quandrel quandrel(host, nullptr, QString());
    QCOMPARE(items(*quandrel.addressInput()), (QStringList{"10.0.0.2", "10.0.0.1"}));
    QCOMPARE(quandrel.addressInput()->text(), QString("10.0.0.9"));
    QCOMPARE(quandrel.addressInput()->text(), quandrel.addressInput()->lineEdit()->text());

    // text() is what the field shows, not the current entry.
    quandrel.addressInput()->setCurrentIndex(1);
    quandrel.addressInput()->setEditText("typed");
    QCOMPARE(quandrel.addressInput()->text(), QString("typed"));
}

void AddressInputTest::the_history_is_shown_as_it_is()
{
    FakeHost host;
    const Quandrel quandrel(host, nullptr, QString());
    AddressInput& input = *quandrel.addressInput();
    QCOMPARE(input.count(), 0);
    QCOMPARE(input.text(), QString());
    setHistory(host, {"b", "a", "b", "", "A", " a "});
    input.updateIpAddressHistory();
    QCOMPARE(items(input), (QStringList{"b", "a", "b", "", "A", " a "}));
    input.updateIpAddressHistory();
    QCOMPARE(input.count(), 6);
    setHistory(host, {});
    input.updateIpAddressHistory();
    QCOMPARE(input.count(), 0);
}

void AddressInputTest::the_combo_boxs_defaults_stay()
{
    FakeHost host;
    setHistory(host, {"10.0.0.1"});
    const Quandrel quandrel(host, nullptr, QString());
    const AddressInput& input = *quandrel.addressInput();
    const QComboBox plain;
    QVERIFY(input.isEditable());
    QVERIFY(dynamic_cast<AddressInputEdit*>(input.lineEdit()));
    QCOMPARE(input.maxCount(), plain.maxCount());
    QCOMPARE(input.insertPolicy(), plain.insertPolicy());
    QCOMPARE(input.duplicatesEnabled(), plain.duplicatesEnabled());
    QVERIFY(!input.validator());
    QVERIFY(!input.lineEdit()->validator());
    QCOMPARE(input.lineEdit()->maxLength(), QLineEdit().maxLength());
    QVERIFY(!input.itemData(0).isValid());
    QVERIFY(input.completer());
}

void AddressInputTest::a_disabled_field_still_follows_the_device()
{
    FakeHost host;
    host.answers[ConnectionStateRole] = 3;
    const Quandrel quandrel(host, nullptr, QString());
    QVERIFY(!quandrel.addressInput()->isEnabled());
    change(host, Kind::Config, "ipAddress", std::string("10.0.0.4"));
    change(host, Kind::Config, "ipAddressHistory", list({"10.0.0.4"}));
    QCOMPARE(quandrel.addressInput()->text(), QString("10.0.0.4"));
    QCOMPARE(quandrel.addressInput()->count(), 1);
    QVERIFY(!quandrel.addressInput()->isEnabled());
}

void AddressInputTest::a_history_of_five_thousand_entries_is_shown_and_grows()
{
    FakeHost host;
    olm::core::StringList history;
    for (int i = 0; i < 5000; ++i)
        history.append("host" + std::to_string(i) + ".lan");
    host.set(Kind::Config, "ipAddressHistory", history);
    Window window(host);
    QVERIFY(window.waitUntilActive());
    AddressInput& input = *window.input();
    QCOMPARE(input.count(), 5000);
    QCOMPARE(input.itemText(4999), QString("host4999.lan"));
    input.showPopup();
    QTRY_VERIFY(QApplication::activePopupWidget());
    input.hidePopup();

    input.setEditText("10.0.0.1");
    QTest::mouseClick(window.toolbar->connectButton(), Qt::LeftButton);
    change(host, Kind::Config, "ipAddressHistory",
           host.variables.at({Kind::Config, "ipAddressHistory"}));
    QCOMPARE(input.count(), 5001);
    QCOMPARE(input.itemText(0), QString("10.0.0.1"));
}

void AddressInputTest::a_finished_edit_is_stored_without_and_then_with_its_small_s_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("written");
    QTest::newRow("an address") << "192.168.0.1" << QStringList{"192.168.0.1"};
    QTest::newRow("one small s") << "myhost.lan" << QStringList{"myhot.lan", "myhost.lan"};
    QTest::newRow("only small s") << "sss" << QStringList{"", "sss"};
    QTest::newRow("small and large S") << "SsSs" << QStringList{"SS", "SsSs"};
    QTest::newRow("large S") << "MYHOST.LAN" << QStringList{"MYHOST.LAN"};
    QTest::newRow("blanks") << " 10.0 .1 " << QStringList{" 10.0 .1 "};
    QTest::newRow("nothing") << "" << QStringList{""};
    QTest::newRow("the stored address") << "10.0.0.1" << QStringList();
}

void AddressInputTest::a_finished_edit_is_stored_without_and_then_with_its_small_s()
{
    QFETCH(QString, typed);
    QFETCH(QStringList, written);
    FakeHost host;
    setAddress(host, "10.0.0.1");
    Window window(host);
    QVERIFY(window.waitUntilActive());
    window.type(typed);
    QCOMPARE(window.field()->text(), typed);
    QVERIFY(host.writes.empty());
    window.other->setFocus(); // the edit ends with the focus
    QCOMPARE(writtenAddresses(host), written);
    QCOMPARE(host.writes.size(), static_cast<std::size_t>(written.size()));
    QVERIFY(!host.calls.contains("connect"));
    QCOMPARE(window.field()->text(), typed);
}

void AddressInputTest::typing_alone_stores_nothing()
{
    FakeHost host;
    Window window(host);
    QVERIFY(window.waitUntilActive());
    host.calls.clear();
    window.type("10.0.0.5");
    QCOMPARE(host.calls, QStringList());
}

void AddressInputTest::picking_from_the_list_stores_nothing_until_the_edit_is_finished()
{
    FakeHost host;
    setAddress(host, "10.0.0.9");
    setHistory(host, {"10.0.0.2", "10.0.0.1"});
    Window window(host);
    QVERIFY(window.waitUntilActive());
    AddressInput& input = *window.input();
    input.setFocus();
    QTest::keyClick(&input, Qt::Key_Down);
    QCOMPARE(input.text(), QString("10.0.0.1"));
    QVERIFY(host.writes.empty());
    window.other->setFocus();
    QCOMPARE(writtenAddresses(host), QStringList{"10.0.0.1"});
}

void AddressInputTest::return_connects_to_the_typed_address()
{
    FakeHost host;
    setAddress(host, "10.0.0.1");
    Window window(host);
    QVERIFY(window.waitUntilActive());
    window.type("myhost.lan");
    host.calls.clear();
    QTest::keyClick(window.input(), Qt::Key_Return);
    // First the click, with the address as typed; then the end of the edit, in its two steps.
    QCOMPARE(host.calls,
             (QStringList{"exec 1005", "begin Set IP Address", "read config ipAddress",
                          "write config ipAddress", "read config ipAddress",
                          "read config ipAddressHistory", "write config ipAddressHistory", "end",
                          "connect", "read config ipAddress", "write config ipAddress",
                          "read config ipAddress", "write config ipAddress"}));
    QCOMPARE(writtenAddresses(host), (QStringList{"myhost.lan", "myhot.lan", "myhost.lan"}));
    QCOMPARE(storedHistory(host), QStringList{"myhost.lan"});
}

void AddressInputTest::return_acts_as_a_click_also_when_it_disconnects()
{
    FakeHost host;
    setAddress(host, "10.0.0.1");
    Window window(host);
    QVERIFY(window.waitUntilActive());
    window.input()->setFocus();
    host.answers[ConnectionStateRole] = 2; // not reported yet: the field is still enabled
    host.calls.clear();
    QTest::keyClick(window.input(), Qt::Key_Return);
    QCOMPARE(host.calls.mid(0, 2), (QStringList{"exec 1005", "disconnect"}));
    QVERIFY(host.writes.empty());
}

void AddressInputTest::a_host_that_reports_the_state_while_connecting_ends_the_edit()
{
    FakeHost host;
    Window window(host);
    QVERIFY(window.waitUntilActive());
    window.type("10.0.0.5");
    host.onConnect = [&host] {
        host.answers[ConnectionStateRole] = 0;
        message(host, 1005, 0);
    };
    QTest::keyClick(window.input(), Qt::Key_Return);
    QVERIFY(!window.input()->isEnabled());
    QCOMPARE(writtenAddresses(host), QStringList{"10.0.0.5"});
    QCOMPARE(host.calls.count("connect"), 1);
    QVERIFY(!host.calls.contains("disconnect"));
}

void AddressInputTest::the_context_menu_ends_with_the_help_entry()
{
    FakeHost host;
    Window window(host);
    QVERIFY(window.waitUntilActive());
    const std::unique_ptr<QMenu> standard(window.field()->createStandardContextMenu());
    QStringList found;
    const QAction* last = nullptr;
    QVERIFY(withContextMenu(*window.field(), [&](const QMenu& menu) {
        found = entries(menu);
        last = menu.actions().constLast();
    }));
    QVERIFY(standard->actions().size() > 5);
    QCOMPARE(found, entries(*standard) + QStringList({"-", "Help on toolbar"}));
    QCOMPARE(last, host.helpAction("toolbar"));
}

void AddressInputTest::the_context_menu_opens_under_the_mouse_with_nothing_chosen()
{
    FakeHost host;
    Window window(host);
    QVERIFY(window.waitUntilActive());
    QLineEdit& field = *window.field();
    QPoint position;
    bool chosen = true;
    QVERIFY(withContextMenu(field, [&](const QMenu& menu) {
        position = menu.pos();
        chosen = menu.activeAction();
    }));
    QCOMPARE(position, field.mapToGlobal(field.rect().center()));
    QVERIFY(!chosen);
}

void AddressInputTest::the_help_action_outlives_the_menu()
{
    FakeHost host;
    Window window(host);
    QVERIFY(window.waitUntilActive());
    const QPointer<QAction> help = host.helpAction("toolbar");
    int triggered = 0;
    connect(help, &QAction::triggered, this, [&triggered] { ++triggered; });
    for (int i = 0; i < 2; ++i) {
        QPointer<QMenu> opened;
        QVERIFY(withContextMenu(*window.field(), [&](QMenu& menu) {
            opened = &menu;
            menu.setActiveAction(help);
            QTest::keyClick(&menu, Qt::Key_Return);
        }));
        QVERIFY(!opened);
        QVERIFY(help);
    }
    QCOMPARE(triggered, 2);
}

TEST_WITH_WINDOWS(AddressInputTest)

} // namespace address_input_test

#include "AddressInputTest.moc"
