// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Meanwhile.h"
#include "PositionTable.h"
#include "PositionView.h"
#include "TestCase.h"

#include <QDialogButtonBox>
#include <QIdentityProxyModel>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTranslator>
#include <QVBoxLayout>
#include <QtTest>

namespace speed_editor_test {

/// The dialog for the speed of an axis, by itself and opened from the table.
class SpeedEditorTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_cells_text_is_taken_and_given_back_data();
    void a_cells_text_is_taken_and_given_back();
    void a_text_without_a_speed_leaves_the_speed();
    void typed_text_counts_before_it_is_confirmed();
    void no_more_than_the_fastest_speed_can_be_entered();
    void the_speed_stands_above_its_two_buttons();
    void a_button_or_a_key_ends_the_dialog_data();
    void a_button_or_a_key_ends_the_dialog();
    void an_accepted_speed_is_written_with_the_shown_target_data();
    void an_accepted_speed_is_written_with_the_shown_target();
    void the_text_to_edit_is_the_shown_one();
    void a_cancelled_speed_is_not_written_data();
    void a_cancelled_speed_is_not_written();
    void the_title_names_the_row_from_zero_and_the_axis_from_one_data();
    void the_title_names_the_row_from_zero_and_the_axis_from_one();
    void the_title_is_translated_as_the_views_own_text();
    void a_press_without_a_menu_chooses_the_cell_but_not_the_title_data();
    void a_press_without_a_menu_chooses_the_cell_but_not_the_title();
    void before_the_first_press_no_cell_is_chosen();
};

namespace {

QSpinBox* speedOf(const SpeedEditor& editor)
{
    return editor.findChild<QSpinBox*>();
}

/// Right-clicks the cell, chooses "Edit speed", and does @p use in the dialog, which has to
/// end it. False where no dialog came up.
bool editSpeed(const PositionTable& table, int row, int column,
               const std::function<void(SpeedEditor&)>& use)
{
    const Meanwhile inDialog([&use] {
        auto* const editor = openDialog<SpeedEditor>();
        if (!editor)
            return false;
        use(*editor);
        return true;
    });
    const Meanwhile inMenu([] { return openMenu() && choose(*openMenu(), "Edit speed"); });
    table.press(row, column);
    return inMenu.isDone() && inDialog.isDone();
}

class Translator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* text, const char*, int) const override
    {
        if (qstrcmp(context, "PositionView") != 0)
            return QString();
        const QHash<QString, QString> dictionary{
            {"Position", "Stellung"}, {"Axis", "Achse"}, {"speed", "Tempo"}};
        return dictionary.value(text);
    }
};

} // namespace

void SpeedEditorTest::a_cells_text_is_taken_and_given_back_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("speed");
    QTest::addColumn<QString>("value");
    QTest::newRow("as shown") << "90 [25]" << 25 << "90 [25]";
    QTest::newRow("zero") << "0 [0]" << 0 << "0 [0]";
    QTest::newRow("fastest") << "300 [143]" << 143 << "300 [143]";
    QTest::newRow("too fast") << "90 [144]" << 143 << "90 [143]";
    QTest::newRow("backwards") << "-90 [-7]" << 0 << "-90 [0]";
    QTest::newRow("without brackets") << "90 25" << 25 << "90 [25]";
    QTest::newRow("odd brackets") << "90 ]2[5" << 25 << "90 [25]";
    QTest::newRow("many blanks") << "  90   [25]   7" << 25 << "90 [25]";
    QTest::newRow("a target beyond the cell's editor") << "1234567 [25]" << 25 << "1234567 [25]";
    QTest::newRow("decimals") << "90.5 [25.5]" << 0 << "0 [0]";
    QTest::newRow("no numbers") << "nan [inf]" << 0 << "0 [0]";
    QTest::newRow("beyond an integer") << "100000002004087734272 [3000000000]" << 0 << "0 [0]";
}

void SpeedEditorTest::a_cells_text_is_taken_and_given_back()
{
    QFETCH(QString, text);
    SpeedEditor editor(nullptr);
    QCOMPARE(editor.value(), QString("0 [0]"));
    speedOf(editor)->setValue(99);

    editor.setValue(text);

    QTEST(speedOf(editor)->value(), "speed");
    QTEST(editor.value(), "value");
}

void SpeedEditorTest::a_text_without_a_speed_leaves_the_speed()
{
    SpeedEditor editor(nullptr);
    editor.setValue("90 [25]");

    editor.setValue("40");
    QCOMPARE(editor.value(), QString("40 [25]"));
    editor.setValue("   ");
    QCOMPARE(editor.value(), QString("0 [25]"));
    editor.setValue("50 []");
    QCOMPARE(editor.value(), QString("50 [0]"));
}

void SpeedEditorTest::typed_text_counts_before_it_is_confirmed()
{
    SpeedEditor editor(nullptr);
    editor.setValue("90 [25]");
    speedOf(editor)->setKeyboardTracking(false);
    speedOf(editor)->selectAll();
    QTest::keyClicks(speedOf(editor), "77");

    QCOMPARE(editor.value(), QString("90 [77]"));
}

void SpeedEditorTest::no_more_than_the_fastest_speed_can_be_entered()
{
    SpeedEditor editor(nullptr);
    QSpinBox* const speed = speedOf(editor);
    QCOMPARE(speed->minimum(), 0);
    QCOMPARE(speed->maximum(), 143);
    QCOMPARE(speed->singleStep(), 1);

    speed->selectAll();
    QTest::keyClicks(speed, "999");
    QCOMPARE(editor.value(), QString("0 [99]"));
    speed->selectAll();
    QTest::keyClicks(speed, "-5x");
    QCOMPARE(editor.value(), QString("0 [5]"));
    speed->setValue(143);
    QTest::keyClick(speed, Qt::Key_Up);
    QCOMPARE(editor.value(), QString("0 [143]"));
}

void SpeedEditorTest::the_speed_stands_above_its_two_buttons()
{
    QWidget parent;
    const SpeedEditor editor(&parent);

    QCOMPARE(editor.parentWidget(), &parent);
    QVERIFY(editor.isWindow());
    QCOMPARE(editor.windowFlags(), QDialog(&parent).windowFlags());
    auto* const layout = qobject_cast<QVBoxLayout*>(editor.layout());
    QVERIFY(layout);
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(0)->widget(), speedOf(editor));
    auto* const buttons = qobject_cast<QDialogButtonBox*>(layout->itemAt(1)->widget());
    QVERIFY(buttons);
    QCOMPARE(buttons->orientation(), Qt::Horizontal);
    QCOMPARE(buttons->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(layout->stretch(i), 0);
        QVERIFY(!layout->itemAt(i)->alignment());
    }
}

void SpeedEditorTest::a_button_or_a_key_ends_the_dialog_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("result");
    const int ok = QDialogButtonBox::Ok;
    const int cancel = QDialogButtonBox::Cancel;
    QTest::newRow("ok") << ok << 0 << static_cast<int>(QDialog::Accepted);
    QTest::newRow("cancel") << cancel << 0 << static_cast<int>(QDialog::Rejected);
    QTest::newRow("Return") << 0 << static_cast<int>(Qt::Key_Return)
                            << static_cast<int>(QDialog::Accepted);
    QTest::newRow("Escape") << 0 << static_cast<int>(Qt::Key_Escape)
                            << static_cast<int>(QDialog::Rejected);
}

void SpeedEditorTest::a_button_or_a_key_ends_the_dialog()
{
    QFETCH(int, button);
    QFETCH(int, key);
    SpeedEditor editor(nullptr);
    const QSignalSpy finished(&editor, &QDialog::finished);
    editor.show();
    editor.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&editor, 20000));

    if (button) {
        auto* const buttons = editor.findChild<QDialogButtonBox*>();
        QTest::mouseClick(buttons->button(static_cast<QDialogButtonBox::StandardButton>(button)),
                          Qt::LeftButton);
    } else {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
    }

    QCOMPARE(finished.size(), 1);
    QTEST(finished[0][0].toInt(), "result");
}

void SpeedEditorTest::an_accepted_speed_is_written_with_the_shown_target_data()
{
    QTest::addColumn<QList<float>>("stored");
    QTest::addColumn<int>("shown");
    QTest::addColumn<float>("target");
    QTest::newRow("whole") << QList<float>{90, 30} << 30 << 90.0f;
    QTest::newRow("rounded down") << QList<float>{90.4f, 30.3f} << 30 << 90.0f;
    QTest::newRow("rounded up") << QList<float>{12.6f, 6.75f} << 7 << 13.0f;
    QTest::newRow("beyond the range of the cell's editor")
        << QList<float>{1000, 200} << 143 << 1000.0f;
    QTest::newRow("a short vector") << QList<float>{} << 0 << 0.0f;
}

void SpeedEditorTest::an_accepted_speed_is_written_with_the_shown_target()
{
    QFETCH(QList<float>, stored);
    QFETCH(float, target);
    PositionTable table(3, 5);
    table.host.set(Kind::Config, "pos1", valuesOf(stored));
    QVERIFY(table.show());
    int shown = -1;

    QVERIFY(editSpeed(table, 1, 1, [&shown](SpeedEditor& editor) {
        shown = speedOf(editor)->value();
        speedOf(editor)->selectAll();
        QTest::keyClicks(speedOf(editor), "50");
        QTest::keyClick(speedOf(editor), Qt::Key_Return);
    }));

    QTEST(shown, "shown");
    QCOMPARE(changes(table.host), QStringList("write config pos1"));
    Values expected(18);
    expected[0] = target;
    expected[1] = 50;
    QVERIFY(storedValues(table.host, "pos1") == expected);
    QVERIFY(!table.view().findChild<SpeedEditor*>());
}

void SpeedEditorTest::the_text_to_edit_is_the_shown_one()
{
    struct Model : QIdentityProxyModel
    {
        QVariant data(const QModelIndex& index, int role) const override
        {
            return role == Qt::EditRole ? "1 [2]" : QIdentityProxyModel::data(index, role);
        }
    };
    const PositionTable table(3, 5);
    Model model;
    model.setSourceModel(table.view().model());
    table.view().setModel(&model);
    QVERIFY(table.show());
    QString value;

    QVERIFY(editSpeed(table, 1, 1, [&value](SpeedEditor& editor) {
        value = editor.value();
        editor.reject();
    }));

    QCOMPARE(value, QString("20 [5]"));
}

void SpeedEditorTest::a_cancelled_speed_is_not_written_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("button") << 0;
    QTest::newRow("Escape") << 1;
    QTest::newRow("closed") << 2;
}

void SpeedEditorTest::a_cancelled_speed_is_not_written()
{
    QFETCH(int, way);
    const PositionTable table(3, 5);
    QVERIFY(table.show());

    QVERIFY(editSpeed(table, 1, 4, [way](SpeedEditor& editor) {
        speedOf(editor)->setValue(50);
        auto* const buttons = editor.findChild<QDialogButtonBox*>();
        if (way == 0)
            QTest::mouseClick(buttons->button(QDialogButtonBox::Cancel), Qt::LeftButton);
        else if (way == 1)
            QTest::keyClick(&editor, Qt::Key_Escape);
        else
            editor.close();
    }));

    QCOMPARE(changes(table.host), QStringList());
    QVERIFY(!table.view().findChild<SpeedEditor*>());
}

void SpeedEditorTest::the_title_names_the_row_from_zero_and_the_axis_from_one_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("title");
    QTest::newRow("first row, third axis") << 0 << 3 << "Position0 Axis3 - speed";
    QTest::newRow("last row, last axis") << 2 << 9 << "Position2 Axis9 - speed";
    QTest::newRow("second row, first axis") << 1 << 1 << "Position1 Axis1 - speed";
}

void SpeedEditorTest::the_title_names_the_row_from_zero_and_the_axis_from_one()
{
    QFETCH(int, row);
    QFETCH(int, column);
    PositionTable table(3, 5);
    table.host.dictionary = {{"Position", "no"}, {"Axis", "no"}, {"speed", "no"}};
    QVERIFY(table.show());
    QString title;
    QWidget* parent = nullptr;

    QVERIFY(editSpeed(table, row, column, [&](SpeedEditor& editor) {
        title = editor.windowTitle();
        parent = editor.parentWidget();
        editor.reject();
    }));

    QTEST(title, "title");
    QCOMPARE(parent, &table.view());
}

void SpeedEditorTest::the_title_is_translated_as_the_views_own_text()
{
    const PositionTable table(3, 5);
    QVERIFY(table.show());
    Translator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QString title;

    QVERIFY(editSpeed(table, 0, 3, [&title](SpeedEditor& editor) {
        title = editor.windowTitle();
        editor.reject();
    }));

    QCOMPARE(title, QString("Stellung0 Achse3 - Tempo"));
}

void SpeedEditorTest::a_press_without_a_menu_chooses_the_cell_but_not_the_title_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left") << static_cast<int>(Qt::LeftButton);
    QTest::newRow("middle") << static_cast<int>(Qt::MiddleButton);
}

void SpeedEditorTest::a_press_without_a_menu_chooses_the_cell_but_not_the_title()
{
    QFETCH(int, button);
    const PositionTable table(3, 5);
    QVERIFY(table.show());
    const Meanwhile inMenu([] { return openMenu() && openMenu()->close(); });
    table.press(1, 4);
    QVERIFY(inMenu.isDone());
    table.press(2, 6, static_cast<Qt::MouseButton>(button));
    QString title;
    const Meanwhile inDialog([&title] {
        auto* const editor = openDialog<SpeedEditor>();
        if (!editor)
            return false;
        title = editor->windowTitle();
        speedOf(*editor)->setValue(77);
        editor->accept();
        return true;
    });

    QVERIFY(QMetaObject::invokeMethod(&table.view(), "on_editSpeed"));

    QVERIFY(inDialog.isDone());
    QCOMPARE(title, QString("Position1 Axis4 - speed"));
    QCOMPARE(changes(table.host), QStringList("write config pos2"));
    QCOMPARE(storedValues(table.host, "pos2")[11], 77.0f);
}

void SpeedEditorTest::before_the_first_press_no_cell_is_chosen()
{
    const PositionTable table(3, 5);
    QVERIFY(table.show());
    QString title;
    QString value;
    const Meanwhile inDialog([&] {
        auto* const editor = openDialog<SpeedEditor>();
        if (!editor)
            return false;
        title = editor->windowTitle();
        value = editor->value();
        editor->accept();
        return true;
    });

    QVERIFY(QMetaObject::invokeMethod(&table.view(), "on_editSpeed"));

    QVERIFY(inDialog.isDone());
    QCOMPARE(title, QString("Position0 Axis1 - speed"));
    QCOMPARE(value, QString("0 [0]"));
    QCOMPARE(changes(table.host), QStringList());
}

TEST_WITH_WINDOWS(SpeedEditorTest)

} // namespace speed_editor_test

#include "SpeedEditorTest.moc"
