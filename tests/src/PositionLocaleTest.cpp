// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "ForeignLocale.h"
#include "ManipulatorDialog.h"
#include "Meanwhile.h"
#include "PositionTable.h"
#include "TestCase.h"

#include <QSpinBox>
#include <QtTest>

#include <sstream>

namespace position_locale_test {

/// Positions are named, shown and read alike whatever the locales of the process are.
class PositionLocaleTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_locale_of_this_test_groups_digits();
    void variables_have_plain_names();
    void numbers_are_shown_without_groups();
    void numbers_are_read_with_a_point();
    void the_dialog_registers_plain_names();
    void the_menu_names_a_position_without_groups();
    void the_editors_keep_to_plain_digits_data();
    void the_editors_keep_to_plain_digits();
};

void PositionLocaleTest::the_locale_of_this_test_groups_digits()
{
    const ForeignLocale foreign;
    std::ostringstream stream;
    stream << 1234 << ' ' << 1.5;
    QCOMPARE(QString::fromStdString(stream.str()), QString("1.234 1,5"));
    QCOMPARE(QLocale().toString(1234.5, 'f', 1), QString("1.234,5"));
}

void PositionLocaleTest::variables_have_plain_names()
{
    const ForeignLocale foreign;
    FakeHost host;
    setPositions(host, 2000, 2000);
    host.set(Kind::Config, "pos1000", countedValues(18));
    host.set(Kind::Config, "pos1000_name", std::string("thousandth"));
    Owner owner(host);
    PositionModel model(&owner);
    QCOMPARE(model.index(1000, 0).data().toString(), QString("thousandth"));
    QCOMPARE(model.index(1000, 1).data().toString(), QString("1 [2]"));

    host.calls.clear();
    QVERIFY(model.setData(model.index(1234, 0), "name"));
    QVERIFY(model.setData(model.index(1234, 1), "1 [2]"));
    model.removePos(1998);
    host.set(Kind::Config, "num_pos", 1999);
    model.addPos();

    QCOMPARE(changes(host), (QStringList{"write config pos1234_name", "write config pos1234",
                                         "write config pos1998", "write config pos1998_name",
                                         "write config num_pos", "write config pos1999",
                                         "write config pos1999_name", "write config num_pos"}));
    QCOMPARE(storedText(host, "pos1999_name"), QString("Pos2000"));
    QSignalSpy changed(&model, &PositionModel::dataChanged);
    plugin::gui::HistoryBundleContent content;
    content.insert(Kind::Config, "pos1000", Variant());
    model.update(plugin::gui::DeviceHistoryBundle(content));
    QCOMPARE(changed.size(), 1);
}

void PositionLocaleTest::numbers_are_shown_without_groups()
{
    const ForeignLocale foreign;
    FakeHost host;
    setPositions(host, 1, 5);
    host.set(Kind::Config, "pos0", valuesOf({1234567.5f, -4321.25f}));
    Owner owner(host);
    const PositionModel model(&owner);

    QCOMPARE(model.index(0, 1).data().toString(), QString("1234568 [-4321]"));
    QCOMPARE(model.headerData(1233, Qt::Vertical).toString(), QString("Pos1234"));
}

void PositionLocaleTest::numbers_are_read_with_a_point()
{
    const ForeignLocale foreign;
    FakeHost host;
    setPositions(host, 1, 5);
    Owner owner(host);
    PositionModel model(&owner);

    QVERIFY(model.setData(model.index(0, 1), "1234.5 [1.25]"));
    QVERIFY(model.setData(model.index(0, 2), "1,5 [1.234,5]"));

    const Values stored = storedValues(host, "pos0");
    QCOMPARE(stored[0], 1234.5f);
    QCOMPARE(stored[1], 1.25f);
    QCOMPARE(stored[2], 0.0f);
    QCOMPARE(stored[3], 0.0f);
}

void PositionLocaleTest::the_dialog_registers_plain_names()
{
    const ForeignLocale foreign;
    FakeHost host;
    host.set(Kind::Config, "num_pos_max", 1002);

    const ManipulatorDialog dialog(host, nullptr);

    QVERIFY(host.calls.contains("register config pos1001 true"));
    QVERIFY(host.calls.contains("register config pos1001_name true"));
}

void PositionLocaleTest::the_menu_names_a_position_without_groups()
{
    const ForeignLocale foreign;
    const PositionTable table(1500, 1500);
    QVERIFY(table.show());
    table.view().scrollToBottom();
    QStringList entries;
    const Meanwhile meanwhile([&entries] {
        if (!openMenu())
            return false;
        entries = entriesOf(*openMenu());
        return openMenu()->close();
    });

    table.press(1499, 0);

    QVERIFY(meanwhile.isDone());
    QCOMPARE(entries, (QStringList{"Remove position 1500", "-", "Help on manipulator"}));
}

void PositionLocaleTest::the_editors_keep_to_plain_digits_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::newRow("German") << QLocale(QLocale::German);
    QTest::newRow("Egyptian") << QLocale(QLocale::Arabic, QLocale::Egypt);
}

void PositionLocaleTest::the_editors_keep_to_plain_digits()
{
    QFETCH(QLocale, locale);
    const ForeignLocale foreign;
    QLocale::setDefault(locale);
    PositionEditor target(nullptr);
    SpeedEditor speed(nullptr);

    target.setValue(250);
    QCOMPARE(target.text(), QString("250"));
    target.selectAll();
    QTest::keyClicks(&target, "123");
    QCOMPARE(target.value(), 123);
    speed.setValue("90 [143]");
    QCOMPARE(speed.findChild<QSpinBox*>()->text(), QString("143"));
    QCOMPARE(speed.value(), QString("90 [143]"));
}

TEST_WITH_WINDOWS(PositionLocaleTest)

} // namespace position_locale_test

#include "PositionLocaleTest.moc"
