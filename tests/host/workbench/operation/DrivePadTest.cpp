// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "MoveMouse.h"
#include "Patience.h"
#include "TestCase.h"

#include "host/workbench/operation/DrivePad.h"

#include <QLineEdit>
#include <QMenu>
#include <QVBoxLayout>
#include <QtTest>

namespace drive_pad_test {

using host::workbench::operation::DrivePad;

namespace {

/// A pad with a neighbour that can take the focus.
struct Fixture
{
    Fixture()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(pad);
        layout->addWidget(neighbour);
        window.resize(300, 340);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window, patience));
        pad->setFocus();
        QObject::connect(pad, &DrivePad::held, pad, [this](double forward, double left) {
            told << QStringLiteral("%1 %2").arg(forward).arg(left);
        });
        QObject::connect(pad, &DrivePad::letGo, pad, [this] { told << "let go"; });
    }

    /// At these parts of the way from the centre to the edge, right and down.
    QPoint at(double right, double down) const
    {
        const int reach = std::min(pad->width(), pad->height()) / 2 - 4;
        return QRectF(pad->rect()).center().toPoint() +
               QPoint(int(right * reach), int(down * reach));
    }

    QStringList take() { return std::exchange(told, {}); }

    void key(QEvent::Type type, Qt::Key key, bool isAutoRepeat = false,
             Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QKeyEvent event(type, key, modifiers, QString(), isAutoRepeat);
        QCoreApplication::sendEvent(pad, &event);
    }

    QStringList told; // what is still held is let go as the window goes
    QWidget window;
    DrivePad* pad = new DrivePad;
    QLineEdit* neighbour = new QLineEdit;
};

} // namespace

/// What a person holds on the pad.
class DrivePadTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void keys_are_held_until_all_are_let_go();
    void both_sets_of_keys_are_the_same_data();
    void both_sets_of_keys_are_the_same();
    void the_repetition_of_a_key_is_neither_let_go_nor_pressed();
    void a_key_that_was_held_before_the_focus_came_counts_for_nothing();
    void keys_with_modifiers_are_others();
    void the_mouse_holds_from_the_centre();
    void only_the_left_button_holds();
    void the_focus_goes_and_all_is_let_go_data();
    void the_focus_goes_and_all_is_let_go();
    void a_finger_holds_and_a_cancelled_touch_lets_go();
};

void DrivePadTest::keys_are_held_until_all_are_let_go()
{
    Fixture f;
    QTest::keyPress(f.pad, Qt::Key_Up);
    QCOMPARE(f.take(), QStringList("1 0"));
    QTest::keyPress(f.pad, Qt::Key_Left);
    QCOMPARE(f.take(), QStringList("1 1"));
    QTest::keyRelease(f.pad, Qt::Key_Up);
    QCOMPARE(f.take(), QStringList("0 1"));
    QTest::keyRelease(f.pad, Qt::Key_Left);
    QCOMPARE(f.take(), QStringList("let go"));
}

void DrivePadTest::both_sets_of_keys_are_the_same_data()
{
    QTest::addColumn<int>("arrow");
    QTest::addColumn<int>("letter");
    QTest::addColumn<QString>("direction");
    QTest::newRow("forward") << int(Qt::Key_Up) << int(Qt::Key_W) << "1 0";
    QTest::newRow("back") << int(Qt::Key_Down) << int(Qt::Key_S) << "-1 0";
    QTest::newRow("left") << int(Qt::Key_Left) << int(Qt::Key_A) << "0 1";
    QTest::newRow("right") << int(Qt::Key_Right) << int(Qt::Key_D) << "0 -1";
}

void DrivePadTest::both_sets_of_keys_are_the_same()
{
    QFETCH(const int, arrow);
    QFETCH(const int, letter);
    QFETCH(const QString, direction);
    Fixture f;
    for (const int key : {arrow, letter}) {
        QTest::keyPress(f.pad, Qt::Key(key));
        QTest::keyRelease(f.pad, Qt::Key(key));
        QCOMPARE(f.take().join(", ").replace("-0", "0"), direction + ", let go");
    }
    QVERIFY(f.pad->hasFocus());
}

void DrivePadTest::the_repetition_of_a_key_is_neither_let_go_nor_pressed()
{
    Fixture f;
    f.key(QEvent::KeyPress, Qt::Key_Up);
    f.take();
    for (int i = 0; i < 3; ++i) {
        f.key(QEvent::KeyRelease, Qt::Key_Up, true);
        f.key(QEvent::KeyPress, Qt::Key_Up, true);
    }
    QCOMPARE(f.take(), QStringList());
    f.key(QEvent::KeyRelease, Qt::Key_Up);
    QCOMPARE(f.take(), QStringList("let go"));
}

void DrivePadTest::a_key_that_was_held_before_the_focus_came_counts_for_nothing()
{
    Fixture f;
    f.key(QEvent::KeyPress, Qt::Key_Up, true);
    f.key(QEvent::KeyRelease, Qt::Key_Up);
    QCOMPARE(f.take(), QStringList());
}

void DrivePadTest::keys_with_modifiers_are_others()
{
    Fixture f;
    QTest::keyPress(f.pad, Qt::Key_A, Qt::ControlModifier);
    QTest::keyPress(f.pad, Qt::Key_Up, Qt::AltModifier);
    QTest::keyPress(f.pad, Qt::Key_X);
    QCOMPARE(f.take(), QStringList());
    QTest::keyPress(f.pad, Qt::Key_W, Qt::ShiftModifier);
    QCOMPARE(f.take(), QStringList("1 0"));
}

void DrivePadTest::the_mouse_holds_from_the_centre()
{
    Fixture f;
    f.neighbour->setFocus();
    QTest::mousePress(f.pad, Qt::LeftButton, {}, f.at(0, 0));
    QVERIFY(f.pad->hasFocus());
    QCOMPARE(int(f.told.size()), 1);
    f.take();
    moveMouse(*f.pad, f.at(0, -3), Qt::LeftButton); // far outside
    QTRY_VERIFY_WITH_TIMEOUT(!f.told.isEmpty(), patience);
    QVERIFY2(f.told.last().startsWith("1 "), qPrintable(f.told.last()));
    moveMouse(*f.pad, f.at(-1, 0), Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(f.told.last().endsWith(" 1"), patience);
    f.take();
    QTest::mouseRelease(f.pad, Qt::LeftButton, {}, f.at(-1, 0));
    QCOMPARE(f.take(), QStringList("let go"));
    moveMouse(*f.pad, f.at(1, 0), Qt::NoButton);
    QCoreApplication::processEvents();
    QCOMPARE(f.take(), QStringList());
}

void DrivePadTest::only_the_left_button_holds()
{
    Fixture f;
    QTest::mousePress(f.pad, Qt::RightButton, {}, f.at(0, 1));
    QTest::mouseRelease(f.pad, Qt::RightButton, {}, f.at(0, 1));
    QCOMPARE(f.take(), QStringList());
    QTest::mousePress(f.pad, Qt::LeftButton, {}, f.at(0, 0));
    f.take();
    QTest::mouseRelease(f.pad, Qt::RightButton, {}, f.at(0, 0));
    QCOMPARE(f.take(), QStringList());
}

void DrivePadTest::the_focus_goes_and_all_is_let_go_data()
{
    QTest::addColumn<QString>("how");
    for (const char* how : {"another widget", "another window", "a popup", "the pad is hidden"})
        QTest::newRow(how) << how;
}

void DrivePadTest::the_focus_goes_and_all_is_let_go()
{
    QFETCH(const QString, how);
    Fixture f;
    QWidget other;
    QMenu popup;
    popup.addAction("entry");
    QTest::keyPress(f.pad, Qt::Key_Up);
    QTest::mousePress(f.pad, Qt::LeftButton, {}, f.at(0, 1));
    f.take();
    if (how == "another widget") {
        f.neighbour->setFocus();
    } else if (how == "another window") {
        other.show();
        other.activateWindow();
    } else if (how == "a popup") {
        popup.popup(f.window.mapToGlobal(QPoint()));
    } else {
        f.pad->hide();
    }
    QTRY_VERIFY_WITH_TIMEOUT(!f.told.isEmpty(), patience);
    QCOMPARE(f.take(), QStringList("let go"));

    // What is still held does not count when the focus is back.
    popup.close();
    other.close();
    f.pad->show();
    f.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&f.window, patience));
    f.pad->setFocus();
    f.key(QEvent::KeyPress, Qt::Key_Up, true);
    moveMouse(*f.pad, f.at(0, -1), Qt::LeftButton);
    QCoreApplication::processEvents();
    f.key(QEvent::KeyRelease, Qt::Key_Up);
    QCOMPARE(f.take(), QStringList());
}

void DrivePadTest::a_finger_holds_and_a_cancelled_touch_lets_go()
{
    Fixture f;
    f.neighbour->setFocus();
    static auto* const screen = QTest::createTouchDevice(); // Qt knows it to the program's end
    QTest::touchEvent(&f.window, screen).press(1, f.at(0, 0), f.pad);
    QTest::touchEvent(&f.window, screen).move(1, f.at(0, -2), f.pad);
    QTRY_VERIFY_WITH_TIMEOUT(!f.told.isEmpty() && f.told.last().startsWith("1 "), patience);
    QVERIFY(f.pad->hasFocus());
    QTest::touchEvent(&f.window, screen).release(1, f.at(0, -2), f.pad);
    QTRY_COMPARE_WITH_TIMEOUT(f.told.last(), QString("let go"), patience);

    QTest::touchEvent(&f.window, screen).press(1, f.at(0, 0), f.pad);
    f.take();
    QEvent cancel(QEvent::TouchCancel);
    QCoreApplication::sendEvent(f.pad, &cancel);
    QCOMPARE(f.take(), QStringList("let go"));
}

TEST_WITH_WINDOWS(DrivePadTest)

} // namespace drive_pad_test

#include "DrivePadTest.moc"
