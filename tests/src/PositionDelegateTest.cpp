// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "PositionDelegate.h"

#include "TestCase.h"

#include <QAbstractTableModel>
#include <QLineEdit>
#include <QtTest>

#include <memory>

namespace position_delegate_test {

namespace {

/// Shows one text in every cell, to the edit role alone, and writes down what is set.
class Cells : public QAbstractTableModel
{
public:
    QString text;
    QStringList set; ///< "row,column,role,text" of each call

    int rowCount(const QModelIndex& = QModelIndex()) const override { return 3; }
    int columnCount(const QModelIndex& = QModelIndex()) const override { return 10; }
    QVariant data(const QModelIndex&, int role) const override
    {
        return role == Qt::EditRole ? QVariant(text) : QVariant("another role");
    }
    bool setData(const QModelIndex& index, const QVariant& value, int role) override
    {
        set.append(QString("%1,%2,%3,%4")
                       .arg(index.row())
                       .arg(index.column())
                       .arg(role)
                       .arg(value.toString()));
        return true;
    }
};

/// A cell in edit.
struct Edit
{
    explicit Edit(int column, const QString& text)
    {
        cells.text = text;
        index = cells.index(2, column);
        editor.reset(delegate.createEditor(&parent, QStyleOptionViewItem(), index));
    }

    template <class Widget>
    Widget* as() const
    {
        return qobject_cast<Widget*>(editor.get());
    }

    QWidget parent;
    Cells cells;
    PositionDelegate delegate{nullptr};
    QModelIndex index;
    std::unique_ptr<QWidget> editor;
};

} // namespace

class PositionDelegateTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_name_is_edited_in_a_line();
    void the_target_of_every_axis_is_edited_as_a_number();
    void the_number_of_a_cell_is_taken_data();
    void the_number_of_a_cell_is_taken();
    void a_cell_without_a_number_leaves_the_editor();
    void a_changed_target_keeps_the_speed_data();
    void a_changed_target_keeps_the_speed();
    void typed_text_counts_before_it_is_confirmed();
    void no_target_outside_the_range_can_be_entered();
    void the_editor_covers_its_cell();
};

void PositionDelegateTest::a_name_is_edited_in_a_line()
{
    const Edit edit(0, " 90 [30] and more ");
    auto* const line = edit.as<QLineEdit>();
    QVERIFY(line);
    QCOMPARE(line->parentWidget(), &edit.parent);

    edit.delegate.setEditorData(line, edit.index);
    QCOMPARE(line->text(), QString(" 90 [30] and more "));
    line->setText("  Home [1]");
    Cells other;
    edit.delegate.setModelData(line, &other, edit.index);

    QCOMPARE(other.set, QStringList("2,0,2,  Home [1]"));
    QCOMPARE(edit.cells.set, QStringList());
}

void PositionDelegateTest::the_target_of_every_axis_is_edited_as_a_number()
{
    for (int column = 1; column < 10; ++column) {
        const Edit edit(column, "90 [30]");
        auto* const target = edit.as<QSpinBox>();
        QVERIFY(target);
        QVERIFY(dynamic_cast<PositionEditor*>(target));
        QCOMPARE(target->parentWidget(), &edit.parent);
        QCOMPARE(target->minimum(), 0);
        QCOMPARE(target->maximum(), 300);
        QCOMPARE(target->singleStep(), 1);
    }
}

void PositionDelegateTest::the_number_of_a_cell_is_taken_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("target");
    QTest::addColumn<QString>("written");
    QTest::newRow("as shown") << "90 [30]" << 90 << "2,4,2,90 [30]";
    QTest::newRow("many blanks") << "  90   [30]  7 " << 90 << "2,4,2,90 [30]";
    QTest::newRow("without brackets") << "90 30" << 90 << "2,4,2,90 30";
    QTest::newRow("odd speed") << "90 [%1]x" << 90 << "2,4,2,90 [%1]x";
    QTest::newRow("target alone") << "90" << 90 << "2,4,2,90 ";
    QTest::newRow("zero") << "0 [0]" << 0 << "2,4,2,0 [0]";
    QTest::newRow("farthest") << "300 [143]" << 300 << "2,4,2,300 [143]";
    QTest::newRow("too far") << "301 [200]" << 300 << "2,4,2,300 [200]";
    QTest::newRow("negative") << "-5 [-6]" << 0 << "2,4,2,0 [-6]";
    QTest::newRow("no number") << "nan [inf]" << 0 << "2,4,2,0 [inf]";
    QTest::newRow("decimals") << "90.5 [30]" << 0 << "2,4,2,0 [30]";
    QTest::newRow("beyond an integer") << "100000002004087734272 [30]" << 0 << "2,4,2,0 [30]";
}

void PositionDelegateTest::the_number_of_a_cell_is_taken()
{
    QFETCH(QString, text);
    QFETCH(QString, written);
    Edit edit(4, text);
    edit.as<QSpinBox>()->setValue(7);

    edit.delegate.setEditorData(edit.editor.get(), edit.index);
    QTEST(edit.as<QSpinBox>()->value(), "target");
    edit.delegate.setModelData(edit.editor.get(), &edit.cells, edit.index);

    QCOMPARE(edit.cells.set, QStringList(written));
}

void PositionDelegateTest::a_cell_without_a_number_leaves_the_editor()
{
    Edit edit(4, "90 [30]");
    edit.delegate.setEditorData(edit.editor.get(), edit.index);

    edit.cells.text = "   ";
    edit.delegate.setEditorData(edit.editor.get(), edit.index);
    edit.delegate.setModelData(edit.editor.get(), &edit.cells, edit.index);
    edit.cells.text = "40";
    edit.delegate.setEditorData(edit.editor.get(), edit.index);
    edit.delegate.setModelData(edit.editor.get(), &edit.cells, edit.index);

    QCOMPARE(edit.cells.set, (QStringList{"2,4,2,90 [30]", "2,4,2,40 [30]"}));
}

void PositionDelegateTest::a_changed_target_keeps_the_speed_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("first axis") << 1;
    QTest::newRow("last axis") << 9;
}

void PositionDelegateTest::a_changed_target_keeps_the_speed()
{
    QFETCH(int, column);
    Edit edit(column, "90 [30]");
    edit.delegate.setEditorData(edit.editor.get(), edit.index);

    edit.as<QSpinBox>()->setValue(120);
    Cells other;
    edit.delegate.setModelData(edit.editor.get(), &other, edit.index);

    QCOMPARE(other.set, QStringList(QString("2,%1,2,120 [30]").arg(column)));
    QCOMPARE(edit.cells.set, QStringList());
}

void PositionDelegateTest::typed_text_counts_before_it_is_confirmed()
{
    Edit edit(4, "90 [30]");
    edit.delegate.setEditorData(edit.editor.get(), edit.index);
    edit.as<QSpinBox>()->setKeyboardTracking(false);
    edit.as<QSpinBox>()->selectAll();
    QTest::keyClicks(edit.editor.get(), "250");

    edit.delegate.setModelData(edit.editor.get(), &edit.cells, edit.index);

    QCOMPARE(edit.cells.set, QStringList("2,4,2,250 [30]"));
}

void PositionDelegateTest::no_target_outside_the_range_can_be_entered()
{
    const Edit edit(4, "0 [0]");
    auto* const target = edit.as<QSpinBox>();

    target->selectAll();
    QTest::keyClicks(target, "999");
    QCOMPARE(target->value(), 99);
    target->selectAll();
    QTest::keyClicks(target, "-12.x3");
    QCOMPARE(target->value(), 123);
    target->setValue(300);
    QTest::keyClick(target, Qt::Key_Up);
    QCOMPARE(target->value(), 300);
    target->setValue(0);
    QTest::keyClick(target, Qt::Key_Down);
    QCOMPARE(target->value(), 0);
}

void PositionDelegateTest::the_editor_covers_its_cell()
{
    const Edit edit(4, "90 [30]");
    QStyleOptionViewItem option;
    option.rect = QRect(30, 40, 120, 25);

    edit.delegate.updateEditorGeometry(edit.editor.get(), option, edit.index);

    QCOMPARE(edit.editor->geometry(), QRect(30, 40, 120, 25));
}

TEST_WITH_WINDOWS(PositionDelegateTest)

} // namespace position_delegate_test

#include "PositionDelegateTest.moc"
