// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/workbench/plugin/DialogOpening.h"

#include <QDialog>
#include <QLineEdit>
#include <QSpinBox>
#include <QVBoxLayout>
#include <QtTest>

namespace dialog_opening_test {

using host::workbench::plugin::DialogOpening;

namespace {

/// A plugin's dialog with one field.
template <class Field>
struct Asking
{
    Asking()
    {
        (new QVBoxLayout(&dialog))->addWidget(field);
        new DialogOpening(dialog); // a child
    }

    bool open()
    {
        dialog.show();
        return QTest::qWaitForWindowExposed(&dialog, patience);
    }

    QDialog dialog;
    Field* field = new Field;
};

} // namespace

/// DialogOpening: a plugin's dialog that has just opened.
class DialogOpeningTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void typing_replaces_a_number();
    void typing_replaces_a_text();
    void the_title_has_room();
};

void DialogOpeningTest::typing_replaces_a_number()
{
    Asking<QSpinBox> asking;
    asking.field->setRange(0, 143);
    asking.field->setValue(30);
    QVERIFY(asking.open());
    QTest::keyClicks(asking.field, "77");
    QCOMPARE(asking.field->value(), 77);
}

void DialogOpeningTest::typing_replaces_a_text()
{
    Asking<QLineEdit> asking;
    asking.field->setText("Pos1");
    QVERIFY(asking.open());
    QTest::keyClicks(asking.field, "Home");
    QCOMPARE(asking.field->text(), QString("Home"));
}

void DialogOpeningTest::the_title_has_room()
{
    Asking<QSpinBox> asking;
    asking.dialog.setWindowTitle("Position of the manipulator and axis - speed in degrees");
    QVERIFY(asking.dialog.sizeHint().width() <
            asking.dialog.fontMetrics().horizontalAdvance(asking.dialog.windowTitle()));
    QVERIFY(asking.open());
    QVERIFY(asking.dialog.width() >
            asking.dialog.fontMetrics().horizontalAdvance(asking.dialog.windowTitle()));
}

TEST_WITH_WINDOWS(DialogOpeningTest)

} // namespace dialog_opening_test

#include "DialogOpeningTest.moc"
