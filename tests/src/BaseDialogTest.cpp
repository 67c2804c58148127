// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "BaseDialog.h"

#include "AddressInput.h"
#include "BaseTab.h"
#include "ConnectButton.h"
#include "ContextMenu.h"
#include "ForeignLocale.h"
#include "Quandrel.h"
#include "TestCase.h"

#include <QVBoxLayout>
#include <QtTest>

#include <limits>

namespace base_dialog_test {

using olm::qt::log::Log;
using olm::qt::log::View;

class BaseDialogTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_parts_stand_below_each_other();
    void the_connection_is_a_hidden_widget_without_help_context();
    void the_host_is_asked_in_order_at_construction_data();
    void the_host_is_asked_in_order_at_construction();
    void a_new_tab_has_no_texts_but_the_frequency();
    void all_texts_are_translated();
    void nothing_is_written_at_construction();
    void the_frequency_is_shown_in_hertz_data();
    void the_frequency_is_shown_in_hertz();
    void the_numbers_are_the_same_in_every_locale();
    void the_check_box_follows_the_device_without_writing_back_data();
    void the_check_box_follows_the_device_without_writing_back();
    void the_check_box_writes_whether_it_is_checked();
    void one_bundle_can_change_everything();
    void a_bundle_of_other_variables_changes_nothing();
    void messages_are_posted_to_the_log_data();
    void messages_are_posted_to_the_log();
    void messages_of_other_roles_are_ignored();
    void the_menu_of_the_log_ends_with_the_help();
    void connecting_and_disconnecting_change_nothing_of_the_base();
    void the_controls_connect_the_device();
};

void BaseDialogTest::the_parts_stand_below_each_other()
{
    FakeHost host;
    QWidget parent;
    const BaseDialog dialog(host, &parent);
    QCOMPARE(dialog.parentWidget(), &parent);
    const auto* const layout = qobject_cast<QVBoxLayout*>(dialog.layout());
    QVERIFY(layout);
    QCOMPARE(layout->count(), 4);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(layout->stretch(i), 0);

    const auto* const connection = qobject_cast<QHBoxLayout*>(layout->itemAt(0)->layout());
    QVERIFY(connection);
    QCOMPARE(connection->count(), 2);
    QVERIFY(qobject_cast<AddressInput*>(connection->itemAt(0)->widget()));
    QVERIFY(qobject_cast<ConnectButton*>(connection->itemAt(1)->widget()));
    QCOMPARE(connection->itemAt(0)->widget()->parentWidget(), &dialog);
    QCOMPARE(connection->itemAt(1)->widget()->parentWidget(), &dialog);
    QCOMPARE(connection->itemAt(1)->widget()->size(), QSize(40, 40));
    QCOMPARE(connection->stretch(0), 0);
    QCOMPARE(connection->stretch(1), 0);

    auto* const camera = qobject_cast<QGroupBox*>(layout->itemAt(1)->widget());
    QVERIFY(camera);
    const auto* const inside = qobject_cast<QVBoxLayout*>(camera->layout());
    QVERIFY(inside);
    QCOMPARE(inside->count(), 2);
    const auto* const resolution = qobject_cast<QHBoxLayout*>(inside->itemAt(0)->layout());
    QVERIFY(resolution);
    QCOMPARE(resolution->count(), 2);
    QVERIFY(qobject_cast<QLabel*>(resolution->itemAt(0)->widget()));
    QVERIFY(qobject_cast<QComboBox*>(resolution->itemAt(1)->widget()));
    QCOMPARE(resolution->stretch(0), 0);
    QCOMPARE(resolution->stretch(1), 1);
    const auto* const below = qobject_cast<QVBoxLayout*>(inside->itemAt(1)->layout());
    QVERIFY(below);
    QCOMPARE(below->count(), 1);
    const auto* const frequency = qobject_cast<QHBoxLayout*>(below->itemAt(0)->layout());
    QVERIFY(frequency);
    QCOMPARE(frequency->count(), 3);
    QVERIFY(qobject_cast<QLabel*>(frequency->itemAt(0)->widget()));
    QVERIFY(qobject_cast<QLabel*>(frequency->itemAt(1)->widget()));
    QVERIFY(frequency->itemAt(2)->spacerItem());
    QVERIFY(frequency->itemAt(2)->expandingDirections() & Qt::Horizontal);

    auto* const check = qobject_cast<QCheckBox*>(layout->itemAt(2)->widget());
    QVERIFY(check);
    auto* const view = qobject_cast<View*>(layout->itemAt(3)->widget());
    QVERIFY(view);
    QVERIFY(dynamic_cast<Log*>(view->document()));
}

void BaseDialogTest::the_connection_is_a_hidden_widget_without_help_context()
{
    const Tab tab;
    const auto connections = tab.dialog->findChildren<Quandrel*>();
    QCOMPARE(connections.size(), 1);
    const Quandrel& connection = *connections.first();
    QCOMPARE(connection.parentWidget(), tab.dialog.get());
    QCOMPARE(connection.helpContext(), QString());
    QCOMPARE(connection.addressInput(), tab.dialog->findChild<AddressInput*>());
    QCOMPARE(connection.connectButton(), tab.dialog->findChild<ConnectButton*>());
    tab.dialog->show();
    QVERIFY(!connection.isVisible());
    QVERIFY(connection.addressInput()->isVisible());
    QVERIFY(connection.connectButton()->isVisible());
    // Both belong to the host's list: no widget forwards a notification to another.
    const QList<plugin::gui::DeviceWidget*> both{tab.dialog.get(), connections.first()};
    QCOMPARE(tab.host.widgets, both);
}

void BaseDialogTest::the_host_is_asked_in_order_at_construction_data()
{
    QTest::addColumn<unsigned int>("width");
    QTest::addColumn<QStringList>("resolutionCalls");
    const QString read = "read config camera_resolution";
    const QString ask = "read state connectedToSimulator";
    QTest::newRow("no resolution") << 0U << QStringList{read};
    QTest::newRow("first") << 320U << QStringList{read, ask};
    QTest::newRow("unknown") << 321U << QStringList{read, ask, ask};
}

void BaseDialogTest::the_host_is_asked_in_order_at_construction()
{
    QFETCH(unsigned int, width);
    QFETCH(QStringList, resolutionCalls);
    FakeHost connectionHost;
    const Quandrel connection(connectionHost, nullptr, QString());

    const Tab tab(width ? size({width, 240}) : Variant());

    QStringList expected = connectionHost.calls + resolutionCalls;
    expected << "read config disableDriveSystem"
             << "help "
             << "register state connectedToSimulator true"
             << "register input cameraFrequency true"
             << "register config disableDriveSystem true";
    QCOMPARE(tab.host.calls, expected);
}

void BaseDialogTest::a_new_tab_has_no_texts_but_the_frequency()
{
    const Tab tab;
    QStringList texts;
    for (const QLabel* label : tab.dialog->findChildren<QLabel*>())
        texts.append(label->text());
    texts.sort();
    const QStringList expected{"", "", "0 Hz"};
    QCOMPARE(texts, expected);
    QCOMPARE(tab.frequency(), QString("0 Hz"));
    QCOMPARE(tab.camera().title(), QString());
    QCOMPARE(tab.disableDriveSystem().text(), QString());
    QCOMPARE(tab.log(), QString());
}

void BaseDialogTest::all_texts_are_translated()
{
    Tab tab;
    const auto caption = [&tab](int row) {
        QLayoutItem* item = tab.rows(row)->itemAt(0);
        if (item->layout())
            item = item->layout()->itemAt(0);
        return qobject_cast<QLabel*>(item->widget())->text();
    };
    tab.dialog->translate();
    QCOMPARE(tab.camera().title(), QString("Camera"));
    QCOMPARE(caption(0), QString("Resolution:"));
    QCOMPARE(caption(1), QString("Frequency:"));
    QCOMPARE(tab.disableDriveSystem().text(), QString("Disable drive system"));

    tab.host.dictionary = {
        {"Camera", "Kamera"},      {"Resolution", "Aufloesung"},
        {"Frequency", "Bildrate"}, {"Disable drive system", "Antrieb abschalten"},
        {"Resolution:", "wrong"},  {"Frequency:", "wrong"},
        {"%1 Hz", "wrong"},        {"0 Hz", "wrong"}};
    tab.dialog->translate();
    QCOMPARE(tab.camera().title(), QString("Kamera"));
    QCOMPARE(caption(0), QString("Aufloesung:"));
    QCOMPARE(caption(1), QString("Bildrate:"));
    QCOMPARE(tab.disableDriveSystem().text(), QString("Antrieb abschalten"));
    QCOMPARE(tab.frequency(), QString("0 Hz"));
    change(tab.host, Kind::Input, "cameraFrequency", 25U);
    QCOMPARE(tab.frequency(), QString("25 Hz"));
}

void BaseDialogTest::nothing_is_written_at_construction()
{
    const Tab tab(size({1024, 768}), true, true);
    QVERIFY(tab.disableDriveSystem().isChecked());
    QCOMPARE(tab.selector().currentText(), QString("1024x768"));
    QVERIFY(tab.writes().isEmpty());
}

void BaseDialogTest::the_frequency_is_shown_in_hertz_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("expected");
    QTest::newRow("thirty") << 0 << "30 Hz";
    QTest::newRow("zero") << 1 << "0 Hz";
    QTest::newRow("the largest") << 2 << "4294967295 Hz";
    QTest::newRow("signed") << 3 << "15 Hz";
    QTest::newRow("empty") << 4 << "0 Hz";
    QTest::newRow("a list") << 5 << "0 Hz";
    QTest::newRow("negative") << 6 << "0 Hz";
}

void BaseDialogTest::the_frequency_is_shown_in_hertz()
{
    QFETCH(int, kind);
    QFETCH(QString, expected);
    const Variant frequencies[] = {30U, 0U, 4294967295U, 15, Variant(), size({30}), -1};
    Tab tab;
    change(tab.host, Kind::Input, "cameraFrequency", 7U);
    QCOMPARE(tab.frequency(), QString("7 Hz"));
    change(tab.host, Kind::Input, "cameraFrequency", frequencies[kind]);
    QCOMPARE(tab.frequency(), expected);
}

void BaseDialogTest::the_numbers_are_the_same_in_every_locale()
{
    const ForeignLocale foreign;
    QCOMPARE(QString("%L1").arg(1234567), QString("1.234.567"));
    Tab tab(size({1024, 768}), true);
    QCOMPARE(tab.frequency(), QString("0 Hz"));
    QCOMPARE(tab.resolutions(), simulated);
    change(tab.host, Kind::Input, "cameraFrequency", 1234567U);
    QCOMPARE(tab.frequency(), QString("1234567 Hz"));
}

void BaseDialogTest::the_check_box_follows_the_device_without_writing_back_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("expected");
    QTest::newRow("true") << 0 << true;
    QTest::newRow("false") << 1 << false;
    QTest::newRow("empty") << 2 << false;
    QTest::newRow("one") << 3 << true;
    QTest::newRow("a list") << 4 << false;
}

void BaseDialogTest::the_check_box_follows_the_device_without_writing_back()
{
    QFETCH(int, kind);
    QFETCH(bool, expected);
    const Variant values[] = {true, false, Variant(), 1, size({1})};
    Tab tab(Variant(), false, !expected);
    QCOMPARE(tab.disableDriveSystem().isChecked(), !expected);
    change(tab.host, Kind::Config, "disableDriveSystem", values[kind]);
    QCOMPARE(tab.disableDriveSystem().isChecked(), expected);
    QVERIFY(tab.writes().isEmpty());
    tab.disableDriveSystem().click();
    QCOMPARE(tab.writes(), QStringList("write config disableDriveSystem"));
}

void BaseDialogTest::the_check_box_writes_whether_it_is_checked()
{
    Tab tab;
    const auto written = [&tab] {
        bool ok = false;
        const bool value = tab.host.variables[{Kind::Config, "disableDriveSystem"}].get<bool>(&ok);
        return ok ? QString(value ? "true" : "false") : QString("no bool");
    };
    tab.disableDriveSystem().click();
    QCOMPARE(written(), QString("true"));
    tab.disableDriveSystem().click();
    QCOMPARE(written(), QString("false"));
    tab.disableDriveSystem().click();
    tab.disableDriveSystem().setCheckState(Qt::PartiallyChecked);
    QCOMPARE(written(), QString("false"));
    QCOMPARE(tab.writes().size(), 4);
}

void BaseDialogTest::one_bundle_can_change_everything()
{
    Tab tab(size({640, 480}));
    tab.host.set(Kind::State, "connectedToSimulator", true);
    plugin::gui::HistoryBundleContent content;
    content.insert(Kind::Input, "cameraFrequency", 25U);
    content.insert(Kind::State, "connectedToSimulator", true);
    content.insert(Kind::Config, "disableDriveSystem", true);
    deliver(tab.host, content);
    QCOMPARE(tab.frequency(), QString("25 Hz"));
    QCOMPARE(tab.resolutions(), simulated);
    QVERIFY(tab.disableDriveSystem().isChecked());
    QVERIFY(tab.writes().isEmpty());
}

void BaseDialogTest::a_bundle_of_other_variables_changes_nothing()
{
    Tab tab(size({640, 480}), false, true);
    change(tab.host, Kind::Input, "cameraFrequency", 25U);
    tab.host.set(Kind::State, "connectedToSimulator", true);
    tab.host.calls.clear();
    deliver(tab.host, plugin::gui::HistoryBundleContent());
    change(tab.host, Kind::Input, "scan", 1);
    // The right names, but of another kind.
    change(tab.host, Kind::Config, "cameraFrequency", 1U);
    change(tab.host, Kind::Input, "connectedToSimulator", true);
    change(tab.host, Kind::State, "disableDriveSystem", false);
    QCOMPARE(tab.frequency(), QString("25 Hz"));
    QCOMPARE(tab.resolutions(), real);
    QVERIFY(tab.disableDriveSystem().isChecked());
    QVERIFY(tab.host.calls.isEmpty());
}

void BaseDialogTest::messages_are_posted_to_the_log_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("expected");
    QTest::newRow("text") << 1000 << 0 << "<b>moved</b>";
    QTest::newRow("emphasised text") << 1004 << 0 << "\n<b>moved</b>\n";
    for (const int kind : {1, 2, 3, 4}) {
        QTest::addRow("not a text, %d", kind) << 1000 << kind << "";
        QTest::addRow("not an emphasised text, %d", kind) << 1004 << kind << "\n\n";
    }
}

void BaseDialogTest::messages_are_posted_to_the_log()
{
    QFETCH(int, role);
    QFETCH(int, kind);
    QFETCH(QString, expected);
    const Variant payloads[] = {QString("<b>moved</b>"), QString(), Variant(), std::string("bytes"),
                                7};
    Tab tab;
    message(tab.host, 1000, QString("before"));
    message(tab.host, role, payloads[kind]);
    message(tab.host, 1000, QString("after"));
    QCOMPARE(tab.log(), "before\n" + expected + "\nafter");
}

void BaseDialogTest::messages_of_other_roles_are_ignored()
{
    Tab tab;
    message(tab.host, 1000, QString("before"));
    for (const int role : {-1, 0, 999, 1001, 1002, 1003, 1005, 1006, 2000,
                           std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        message(tab.host, role, QString("other"));
    message(tab.host, 1000, QString("after"));
    QCOMPARE(tab.log(), QString("before\nafter"));
    QVERIFY(tab.writes().isEmpty());
}

void BaseDialogTest::the_menu_of_the_log_ends_with_the_help()
{
    const Tab tab;
    QString last;
    QVERIFY(
        withContextMenu(*tab.dialog->findChild<View*>()->viewport(),
                        [&last](const QMenu& menu) { last = menu.actions().constLast()->text(); }));
    QCOMPARE(last, QString("Help on "));
}

void BaseDialogTest::connecting_and_disconnecting_change_nothing_of_the_base()
{
    Tab tab(size({640, 480}), true, true);
    change(tab.host, Kind::Input, "cameraFrequency", 25U);
    tab.host.calls.clear();
    for (const bool connected : {true, false}) {
        if (connected)
            tab.dialog->connected();
        else
            tab.dialog->disconnected();
        QVERIFY(tab.selector().isEnabled());
        QVERIFY(tab.disableDriveSystem().isEnabled());
        QVERIFY(tab.dialog->findChild<View*>()->isEnabled());
        QVERIFY(tab.dialog->findChild<AddressInput*>()->isEnabled()); // its own owner's to change
        QCOMPARE(tab.frequency(), QString("25 Hz"));
        QCOMPARE(tab.resolutions(), simulated);
        QVERIFY(tab.disableDriveSystem().isChecked());
        QCOMPARE(tab.log(), QString());
    }
    QVERIFY(tab.host.calls.isEmpty());
}

void BaseDialogTest::the_controls_connect_the_device()
{
    Tab tab;
    auto* const address = tab.dialog->findChild<AddressInput*>();
    auto* const button = tab.dialog->findChild<ConnectButton*>();
    address->setEditText("10.0.0.7");
    button->click();
    QCOMPARE(tab.host.calls.last(), QString("connect"));
    QCOMPARE(tab.host.variables[std::make_pair(Kind::Config, std::string("ipAddress"))].toString(),
             std::string("10.0.0.7"));
    message(tab.host, 1005, 3);
    QVERIFY(!address->isEnabled());
    QCOMPARE(button->toolTip(), QString("Connected to 10.0.0.7."));
}

TEST_WITH_WINDOWS(BaseDialogTest)

} // namespace base_dialog_test

#include "BaseDialogTest.moc"
