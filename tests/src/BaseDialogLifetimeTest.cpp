// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "BaseDialog.h"

#include "AddressInput.h"
#include "Addresses.h"
#include "ConnectButton.h"
#include "ContextMenu.h"
#include "Delivery.h"
#include "Quandrel.h"
#include "TestCase.h"

#include <QLineEdit>
#include <QVBoxLayout>
#include <QtTest>

#include <functional>
#include <iterator>
#include <memory>

namespace base_dialog_lifetime_test {

namespace {

enum Moment
{
    Hidden,
    Shown,
    Edited,
    ListOpen,
    MenuOpen,
    MenuOpenAtArrow
};

const char* const moments[] = {"hidden",    "shown",     "edited",
                               "list open", "menu open", "menu open at the arrow"};

/// A host with an address and a history, and the tab in a window.
struct Stage
{
    FakeHost host;
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    BaseDialog* dialog = nullptr;
    AddressInput* field = nullptr;

    Stage()
    {
        setAddress(host, "10.0.0.1");
        setHistory(host, {"10.0.0.2", "10.0.0.1"});
        dialog = new BaseDialog(host, nullptr);
        field = dialog->findChild<AddressInput*>();
    }
    /// Brings the field to the moment and runs @p die, while a list or menu is open.
    void reach(int moment, const std::function<void()>& die) const;
    /// All that a user and the host can still do to whatever is there.
    void useWhatIsLeft();
};

void Stage::reach(int moment, const std::function<void()>& die) const
{
    if (moment >= Shown) {
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    if (moment >= Edited) {
        field->setFocus();
        QVERIFY(field->hasFocus());
        QTest::keyClicks(field, "77");
    }
    if (moment == ListOpen) {
        field->showPopup();
        QTRY_VERIFY(QApplication::activePopupWidget());
    }
    if (moment == MenuOpen)
        QVERIFY(withContextMenu(*field->lineEdit(), [&die](const QMenu&) { die(); }));
    else if (moment == MenuOpenAtArrow)
        QVERIFY(withContextMenu(*field, [&die](const QMenu&) { die(); }));
    else
        die();
}

void Stage::useWhatIsLeft()
{
    change(host, Kind::Config, "ipAddress", std::string("10.0.0.3"));
    change(host, Kind::Config, "ipAddressHistory", Variant());
    for (const int state : {0, 3, -1})
        message(host, 1005, state);
    notifyWidgets(host, [](plugin::gui::DeviceWidget& widget) {
        widget.connected();
        widget.disconnected();
        widget.translate();
    });
    for (AddressInput* left : window->findChildren<AddressInput*>()) {
        left->setEnabled(true);
        QTest::keyClicks(left, "8s");
        QTest::keyClick(left, Qt::Key_Return);
        left->clearFocus();
        QVERIFY(withContextMenu(*left->lineEdit(), [](const QMenu&) {}));
    }
    for (ConnectButton* button : window->findChildren<ConnectButton*>())
        button->click();
    QCoreApplication::processEvents();
}

} // namespace

/// The address field and the connect button belong to a hidden connection widget that may die
/// before or after them, at any moment. What the sanitizers and valgrind see counts as much as
/// what is compared here.
class BaseDialogLifetimeTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void no_order_of_destruction_touches_a_dead_object_data();
    void no_order_of_destruction_touches_a_dead_object();
    void a_tab_that_is_a_window_can_die_at_any_moment_data();
    void a_tab_that_is_a_window_can_die_at_any_moment();
};

void BaseDialogLifetimeTest::no_order_of_destruction_touches_a_dead_object_data()
{
    QTest::addColumn<int>("order");
    QTest::addColumn<int>("moment");
    const char* const orders[] = {
        "the tab",
        "the window",
        "the connection",
        "the field",
        "the button",
        "the field, then the connection",
        "the connection, then the field",
        "the tab, after the field moved out",
        "the connection, after the field moved out",
    };
    for (int order = 0; order < static_cast<int>(std::size(orders)); ++order) {
        for (int moment = Hidden; moment <= MenuOpenAtArrow; ++moment)
            QTest::addRow("%s, %s", orders[order], moments[moment]) << order << moment;
    }
}

void BaseDialogLifetimeTest::no_order_of_destruction_touches_a_dead_object()
{
    QFETCH(int, order);
    QFETCH(int, moment);
    Stage stage;
    stage.window->setLayout(new QVBoxLayout);
    stage.window->layout()->addWidget(stage.dialog);
    if (order >= 7)
        stage.window->layout()->addWidget(stage.field);
    BaseDialog* const dialog = stage.dialog;
    AddressInput* const field = stage.field;
    auto* const connection = dialog->findChild<Quandrel*>();
    ConnectButton* const button = connection->connectButton();

    const std::function<void()> orders[] = {
        [=] { delete dialog; },
        [&stage] { stage.window = std::make_unique<QWidget>(); },
        [=] { delete connection; },
        [=] { delete field; },
        [=] { delete button; },
        [=] { delete field, delete connection; },
        [=] { delete connection, delete field; },
        [=] { delete dialog; },
        [=] { delete connection; },
    };
    stage.reach(moment, orders[order]);
    if (!QTest::currentTestFailed())
        stage.useWhatIsLeft();
}

void BaseDialogLifetimeTest::a_tab_that_is_a_window_can_die_at_any_moment_data()
{
    QTest::addColumn<int>("moment");
    for (int moment = Hidden; moment <= MenuOpenAtArrow; ++moment)
        QTest::newRow(moments[moment]) << moment;
}

// A window loses the focus while it is destroyed, which ends an edit.
void BaseDialogLifetimeTest::a_tab_that_is_a_window_can_die_at_any_moment()
{
    QFETCH(int, moment);
    Stage stage;
    stage.window.reset(stage.dialog);
    stage.reach(moment, [&stage] { stage.window.reset(); });
    QVERIFY(stage.host.widgets.isEmpty());
}

TEST_WITH_WINDOWS(BaseDialogLifetimeTest)

} // namespace base_dialog_lifetime_test

#include "BaseDialogLifetimeTest.moc"
