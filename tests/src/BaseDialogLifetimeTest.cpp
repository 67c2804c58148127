#include "BaseDialog.h"

#include "AddressInput.h"
#include "ConnectButton.h"
#include "Delivery.h"
#include "FakeHost.h"
#include "Quandrel.h"
#include "TestCase.h"
#include "Toolbar.h"

#include <QLineEdit>
#include <QMenu>
#include <QVBoxLayout>
#include <QtTest>

#include <functional>

namespace {

enum Moment
{
    Hidden,
    Shown,
    Editing,
    PopupOpen,
    MenuOpen,
    MenuOpenAtArrow
};

void addMoments(const char* name, int order)
{
    const char* const moments[] = {"hidden",     "shown",     "edited",
                                   "popup open", "menu open", "menu open at the arrow"};
    for (int moment = Hidden; moment <= MenuOpenAtArrow; ++moment)
        QTest::addRow("%s, %s", name, moments[moment]) << order << moment;
}

/// A host with an address and a history, and the window its widgets are placed in.
struct Stage
{
    FakeHost host;
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();

    Stage();
    template <class Widget>
    Widget* place(Widget* widget)
    {
        window->layout()->addWidget(widget);
        return widget;
    }
    /// Brings the field to the moment and runs @p die, in the menu's event loop where that is
    /// open.
    void reach(Moment moment, AddressInput& field, const std::function<void()>& die);
    /// All that a user and the host can still do to whatever is there.
    void useWhatIsLeft();
};

Stage::Stage()
{
    host.set(Kind::Config, "ipAddress", std::string("10.0.0.1"));
    olm::core::StringList history;
    history.append("10.0.0.2");
    history.append("10.0.0.1");
    host.set(Kind::Config, "ipAddressHistory", history);
    window->setLayout(new QVBoxLayout);
}

void Stage::reach(Moment moment, AddressInput& field, const std::function<void()>& die)
{
    if (moment != Hidden) {
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    if (moment >= Editing) {
        field.lineEdit()->setFocus();
        QVERIFY(field.lineEdit()->hasFocus());
        QTest::keyClicks(field.lineEdit(), "77");
    }
    if (moment == PopupOpen) {
        field.showPopup();
        QTRY_VERIFY(QApplication::activePopupWidget());
    }
    if (moment < MenuOpen) {
        die();
        return;
    }
    bool died = false;
    QTimer::singleShot(0, qApp, [&die, &died] {
        died = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        die();
        if (QWidget* const menu = QApplication::activePopupWidget())
            menu->close();
    });
    QWidget* const pressed = moment == MenuOpen ? static_cast<QWidget*>(field.lineEdit()) : &field;
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                            pressed->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(pressed, &event);
    QVERIFY(died);
}

void Stage::useWhatIsLeft()
{
    change(host, Kind::Config, "ipAddress", std::string("10.0.0.3"));
    change(host, Kind::Config, "ipAddressHistory", Variant());
    for (const int state : {0, 3, -1})
        message(host, 1005, state);
    const auto widgets = host.widgets;
    for (plugin::gui::DeviceWidget* widget : widgets) {
        widget->connected();
        widget->disconnected();
        widget->translate();
    }
    for (AddressInput* field : window->findChildren<AddressInput*>()) {
        field->setEnabled(true);
        QTest::keyClicks(field->lineEdit(), "8s");
        QTest::keyClick(field->lineEdit(), Qt::Key_Return);
        field->clearFocus();
        QTimer::singleShot(0, qApp, [] {
            if (QWidget* const menu = QApplication::activePopupWidget())
                menu->close();
        });
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
        QApplication::sendEvent(field->lineEdit(), &event);
    }
    for (ConnectButton* button : window->findChildren<ConnectButton*>())
        button->click();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

} // namespace

/// The address field and the connect button belong to a connection widget that may die before
/// or after them, in the middle of an edit. What the sanitizers and valgrind see counts as much
/// as what is compared here.
class BaseDialogLifetimeTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void no_order_of_destruction_touches_a_dead_object_data();
    void no_order_of_destruction_touches_a_dead_object();
    void a_toolbar_can_die_at_any_moment_data();
    void a_toolbar_can_die_at_any_moment();
    void a_tab_that_is_a_window_can_die_at_any_moment_data();
    void a_tab_that_is_a_window_can_die_at_any_moment();
    void a_toolbar_that_is_a_window_can_die_at_any_moment_data();
    void a_toolbar_that_is_a_window_can_die_at_any_moment();
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
    for (int order = 0; order < static_cast<int>(std::size(orders)); ++order)
        addMoments(orders[order], order);
}

void BaseDialogLifetimeTest::no_order_of_destruction_touches_a_dead_object()
{
    QFETCH(int, order);
    QFETCH(int, moment);
    Stage stage;
    auto* const dialog = stage.place(new BaseDialog(stage.host, nullptr));
    auto* const connection = dialog->findChild<Quandrel*>();
    AddressInput* const field = connection->addressInput();
    ConnectButton* const button = connection->connectButton();
    if (order >= 7)
        stage.place(field);

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
    stage.reach(static_cast<Moment>(moment), *field, orders[order]);
    if (!QTest::currentTestFailed())
        stage.useWhatIsLeft();
}

void BaseDialogLifetimeTest::a_toolbar_can_die_at_any_moment_data()
{
    QTest::addColumn<int>("order");
    QTest::addColumn<int>("moment");
    const char* const orders[] = {"the toolbar", "the window", "the field", "the button",
                                  "the toolbar, after the field moved out"};
    for (int order = 0; order < static_cast<int>(std::size(orders)); ++order)
        addMoments(orders[order], order);
}

void BaseDialogLifetimeTest::a_toolbar_can_die_at_any_moment()
{
    QFETCH(int, order);
    QFETCH(int, moment);
    Stage stage;
    auto* const toolbar = stage.place(new Toolbar(stage.host));
    AddressInput* const field = toolbar->addressInput();
    ConnectButton* const button = toolbar->connectButton();
    if (order == 4)
        stage.place(field);

    const std::function<void()> orders[] = {
        [=] { delete toolbar; }, [&stage] { stage.window = std::make_unique<QWidget>(); },
        [=] { delete field; },   [=] { delete button; },
        [=] { delete toolbar; },
    };
    stage.reach(static_cast<Moment>(moment), *field, orders[order]);
    if (!QTest::currentTestFailed())
        stage.useWhatIsLeft();
}

// A widget that is a window of its own loses the focus in the midst of its destruction.

void BaseDialogLifetimeTest::a_tab_that_is_a_window_can_die_at_any_moment_data()
{
    QTest::addColumn<int>("order");
    QTest::addColumn<int>("moment");
    addMoments("the tab", 0);
}

void BaseDialogLifetimeTest::a_tab_that_is_a_window_can_die_at_any_moment()
{
    QFETCH(int, moment);
    Stage stage;
    stage.window = std::make_unique<BaseDialog>(stage.host, nullptr);
    stage.reach(static_cast<Moment>(moment), *stage.window->findChild<AddressInput*>(),
                [&stage] { stage.window.reset(); });
    QVERIFY(stage.host.widgets.isEmpty());
}

void BaseDialogLifetimeTest::a_toolbar_that_is_a_window_can_die_at_any_moment_data()
{
    QTest::addColumn<int>("order");
    QTest::addColumn<int>("moment");
    addMoments("the toolbar", 0);
}

void BaseDialogLifetimeTest::a_toolbar_that_is_a_window_can_die_at_any_moment()
{
    QFETCH(int, moment);
    Stage stage;
    stage.window = std::make_unique<Toolbar>(stage.host);
    stage.reach(static_cast<Moment>(moment), *stage.window->findChild<AddressInput*>(), [&stage] {
        stage.host.calls.clear();
        stage.window.reset();
    });
    // Nobody is left to store a half edited address.
    QVERIFY(stage.host.calls.isEmpty());
    QVERIFY(stage.host.widgets.isEmpty());
}

QTEST_MAIN(BaseDialogLifetimeTest)
#include "BaseDialogLifetimeTest.moc"
