// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/input/Hand.h"
#include "TestCase.h"

#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QVBoxLayout>
#include <QtTest>

namespace hand_test {

namespace hand = host::input::hand;

/// The hand, on controls of Qt's: they behave as under a person's.
class HandTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_click_presses_a_button();
    void a_button_is_down_while_it_is_held();
    void a_disabled_button_stays_as_it_is();
    void a_click_may_close_the_window();
    void a_double_click_activates_an_item();
    void a_drag_moves_a_slider();
    void an_entry_of_a_menu_is_chosen();
    void keys_are_written_as_they_are_named_data();
    void keys_are_written_as_they_are_named();
    void a_text_is_typed_over_a_selected_one();
    void nothing_happens_without_a_window();
};

namespace {

/// A window with one control of the type @p Control in it, as it comes onto the screen.
template <class Control>
struct Shown
{
    QWidget window;
    Control& control = *new Control;

    Shown()
    {
        auto* const layout = new QVBoxLayout(&window);
        layout->addWidget(&control);
        layout->addWidget(new QPushButton);
        control.setFocus();
        window.show();
    }
};

} // namespace

void HandTest::a_click_presses_a_button()
{
    Shown<QPushButton> shown;
    const QSignalSpy clicks(&shown.control, &QPushButton::clicked);
    hand::click(shown.control);
    QCOMPARE(clicks.count(), 1);
}

void HandTest::a_button_is_down_while_it_is_held()
{
    Shown<QPushButton> shown;
    const QPoint place = shown.control.rect().center();
    hand::hold(shown.control, place);
    QVERIFY(shown.control.isDown());
    hand::letGo(shown.control, place);
    QVERIFY(!shown.control.isDown());
}

void HandTest::a_disabled_button_stays_as_it_is()
{
    Shown<QPushButton> shown;
    shown.control.setEnabled(false);
    const QSignalSpy clicks(&shown.control, &QPushButton::clicked);
    hand::click(shown.control);
    QCOMPARE(clicks.count(), 0);
}

void HandTest::a_click_may_close_the_window()
{
    auto* const window = new QWidget;
    auto* const button = new QPushButton(window);
    connect(button, &QPushButton::pressed, window, [window] { delete window; });
    const QPointer<QWidget> guard(window);
    window->show();
    hand::click(*button);
    QVERIFY(!guard);
}

void HandTest::a_double_click_activates_an_item()
{
    Shown<QListWidget> shown;
    shown.control.addItem("one");
    int activations = 0;
    connect(&shown.control, &QListWidget::itemDoubleClicked, this, [&] { ++activations; });
    const QPoint place = shown.control.visualItemRect(shown.control.item(0)).center();
    hand::click(*shown.control.viewport(), place);
    hand::doubleClick(*shown.control.viewport(), place);
    QCOMPARE(activations, 1);
}

void HandTest::a_drag_moves_a_slider()
{
    Shown<QSlider> shown;
    QSlider& slider = shown.control;
    slider.setOrientation(Qt::Horizontal);
    slider.resize(200, slider.height());
    QStyleOptionSlider option;
    option.initFrom(&slider);
    option.orientation = Qt::Horizontal;
    option.maximum = slider.maximum();
    const QPoint handle =
        slider.style()
            ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider)
            .center();
    hand::drag(slider, handle, {slider.width() - 1, handle.y()});
    QCOMPARE(slider.value(), slider.maximum());
}

void HandTest::an_entry_of_a_menu_is_chosen()
{
    QMenu menu;
    QAction* const entry = menu.addAction("one");
    const QSignalSpy choices(entry, &QAction::triggered);
    menu.popup(QPoint(10, 10));
    hand::choose(menu, *entry);
    QCOMPARE(choices.count(), 1);
}

void HandTest::keys_are_written_as_they_are_named_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("text");
    QTest::newRow("letters") << QStringList{"a", "B", "7", "-"} << "aB7-";
    QTest::newRow("space") << QStringList{"a", "Space", "b"} << "a b";
    QTest::newRow("Tab, which leaves the field") << QStringList{"a", "Tab", "b"} << "a";
    QTest::newRow("backspace") << QStringList{"a", "b", "Backspace"} << "a";
    QTest::newRow("with Ctrl") << QStringList{"a", "b", "Ctrl+A", "c"} << "c";
    QTest::newRow("no key") << QStringList{"a", "Whatever", "b"} << "ab";
    QTest::newRow("several keys") << QStringList{"a", "Ctrl+A, b"} << "a";
}

void HandTest::keys_are_written_as_they_are_named()
{
    QFETCH(QStringList, keys);
    QFETCH(QString, text);
    Shown<QLineEdit> shown;
    shown.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&shown.window));
    for (const QString& key : keys) {
        QCOMPARE(hand::isKey(key), key != "Whatever" && !key.contains(','));
        hand::press(shown.window, key);
    }
    QCOMPARE(shown.control.text(), text);
}

void HandTest::a_text_is_typed_over_a_selected_one()
{
    Shown<QLineEdit> shown;
    shown.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&shown.window));
    shown.control.setText("old");
    shown.control.selectAll();
    hand::type(shown.window, "Größe 3 → 4");
    QCOMPARE(shown.control.text(), QString("Größe 3 → 4"));
}

void HandTest::nothing_happens_without_a_window()
{
    QPushButton hidden;
    const QSignalSpy clicks(&hidden, &QPushButton::clicked);
    hand::click(hidden);
    hand::press(hidden, "Space");
    hand::type(hidden, " ");
    QCOMPARE(clicks.count(), 0);
}

TEST_WITH_WINDOWS(HandTest)

} // namespace hand_test

#include "HandTest.moc"
