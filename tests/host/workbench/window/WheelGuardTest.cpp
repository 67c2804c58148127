// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/workbench/window/WheelGuard.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>
#include <QWindow>
#include <QtTest>

namespace wheel_guard_test {

using host::workbench::window::WheelGuard;

namespace {

/// A form that is longer than its window.
struct Form
{
    Form()
    {
        area.setWidgetResizable(true);
        auto* form = new QWidget;
        form->setMinimumHeight(1000);
        area.setWidget(form);
        auto* layout = new QVBoxLayout(form);
        for (QWidget* widget : {static_cast<QWidget*>(&other), static_cast<QWidget*>(&spinBox),
                                static_cast<QWidget*>(&comboBox), static_cast<QWidget*>(&editable),
                                static_cast<QWidget*>(&slider)})
            layout->addWidget(widget);
        layout->addStretch();
        spinBox.setValue(50);
        slider.setValue(50);
        for (QComboBox* box : {&comboBox, &editable}) {
            box->addItems({"a", "b", "c"});
            box->setCurrentIndex(1);
        }
        editable.setEditable(true);
        area.resize(300, 250);
        area.show();
        area.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&area, patience));
        other.setFocus();
    }

    QList<int> values() const
    {
        return {spinBox.value(), comboBox.currentIndex(), editable.currentIndex(), slider.value()};
    }

    int scrolled() const { return area.verticalScrollBar()->value(); }

    QLineEdit other;
    QSpinBox spinBox;
    QComboBox comboBox;
    QComboBox editable;
    QSlider slider{Qt::Horizontal};
    QScrollArea area; // goes first, and leaves its form's widgets to themselves

    ~Form()
    {
        for (QWidget* widget : {static_cast<QWidget*>(&other), static_cast<QWidget*>(&spinBox),
                                static_cast<QWidget*>(&comboBox), static_cast<QWidget*>(&editable),
                                static_cast<QWidget*>(&slider)})
            widget->setParent(nullptr);
    }
};

/// One notch downwards, as from the screen, so that it finds its receiver and gives the focus as a
/// wheel does.
void turnWheel(QWidget& target, QPoint place)
{
    QWidget& window = *target.window();
    const QPoint inWindow = target.mapTo(&window, place);
    QWheelEvent event(inWindow, window.mapToGlobal(inWindow), QPoint(), QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(window.windowHandle(), &event); // sendEvent() would say it is not from the screen
}

void turnWheel(QWidget& target)
{
    turnWheel(target, target.rect().center());
}

} // namespace

/// WheelGuard, with events as from the screen.
class WheelGuardTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void what_has_no_focus_keeps_its_value_and_the_form_scrolls();
    void what_has_the_focus_takes_the_wheel();
    void an_editor_in_a_table_leaves_the_wheel_to_the_table();
    void scroll_bars_are_left_alone();
    void without_the_guard_values_would_change();
};

void WheelGuardTest::what_has_no_focus_keeps_its_value_and_the_form_scrolls()
{
    expectWarning("does not support propagateSizeHints");
    const WheelGuard guard;
    Form form;
    const QList<int> before = form.values();
    for (QWidget* widget :
         {static_cast<QWidget*>(&form.spinBox), static_cast<QWidget*>(&form.comboBox),
          static_cast<QWidget*>(&form.editable), static_cast<QWidget*>(&form.slider)}) {
        form.area.verticalScrollBar()->setValue(0);
        turnWheel(*widget);
        QCOMPARE(form.values(), before);
        QVERIFY2(form.scrolled() > 0, widget->metaObject()->className());
        QVERIFY(form.other.hasFocus());
    }
}

void WheelGuardTest::what_has_the_focus_takes_the_wheel()
{
    expectWarning("does not support propagateSizeHints");
    const WheelGuard guard;
    Form form;
    form.spinBox.setFocus();
    turnWheel(form.spinBox);
    form.comboBox.setFocus();
    turnWheel(form.comboBox);
    form.editable.lineEdit()->setFocus();
    turnWheel(form.editable);
    form.slider.setFocus();
    turnWheel(form.slider);
    QCOMPARE(form.values().mid(0, 3), QList<int>({49, 2, 2}));
    QVERIFY(form.slider.value() != 50);
    QCOMPARE(form.scrolled(), 0);
}

void WheelGuardTest::an_editor_in_a_table_leaves_the_wheel_to_the_table()
{
    expectWarning("does not support propagateSizeHints");
    const WheelGuard guard;
    QTableWidget table(100, 1);
    table.resize(200, 200);
    auto* const editor = new QSpinBox;
    editor->setValue(50);
    table.setCellWidget(1, 0, editor);
    table.show();
    table.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&table, patience));
    table.setFocus();
    turnWheel(*editor);
    QCOMPARE(editor->value(), 50);
    QVERIFY(table.verticalScrollBar()->value() > 0);
}

void WheelGuardTest::scroll_bars_are_left_alone()
{
    expectWarning("does not support propagateSizeHints");
    const WheelGuard guard;
    Form form;
    turnWheel(*form.area.verticalScrollBar());
    QVERIFY(form.scrolled() > 0);
}

/// Or the other tests would prove nothing.
void WheelGuardTest::without_the_guard_values_would_change()
{
    expectWarning("does not support propagateSizeHints");
    Form form;
    turnWheel(form.spinBox);
    turnWheel(form.comboBox);
    QCOMPARE(form.values().mid(0, 2), QList<int>({49, 2}));
    QCOMPARE(form.scrolled(), 0);
}

TEST_WITH_WINDOWS(WheelGuardTest)

} // namespace wheel_guard_test

#include "WheelGuardTest.moc"
