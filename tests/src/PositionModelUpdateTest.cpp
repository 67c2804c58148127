// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Delivery.h"
#include "PositionModel.h"
#include "Positions.h"
#include "TestCase.h"

#include <QtTest>

namespace position_model_update_test {

/// What the table of positions tells its views.
class PositionModelUpdateTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_changed_count_resets_the_table_and_nothing_else();
    void a_changed_position_is_reported_for_its_cells_data();
    void a_changed_position_is_reported_for_its_cells();
    void changes_are_reported_in_the_order_of_the_rows();
    void a_bundle_without_positions_reports_nothing();
    void the_limit_is_read_again_before_every_row();
    void a_limit_that_is_no_number_reports_nothing_data();
    void a_limit_that_is_no_number_reports_nothing();
    void a_new_language_is_reported_for_both_headers();

private:
    /// "row,column-row,column" of each report.
    static QStringList reports(const QSignalSpy& changed);
};

namespace {

plugin::gui::HistoryBundleContent bundleOf(const QStringList& names)
{
    plugin::gui::HistoryBundleContent content;
    for (const QString& name : names)
        content.insert(Kind::Config, name.toStdString(), Variant());
    return content;
}

} // namespace

QStringList PositionModelUpdateTest::reports(const QSignalSpy& changed)
{
    QStringList texts;
    for (const QList<QVariant>& arguments : changed) {
        const QModelIndex first = arguments[0].toModelIndex();
        const QModelIndex last = arguments[1].toModelIndex();
        texts.append(QString("%1,%2-%3,%4")
                         .arg(first.row())
                         .arg(first.column())
                         .arg(last.row())
                         .arg(last.column()));
    }
    return texts;
}

void PositionModelUpdateTest::a_changed_count_resets_the_table_and_nothing_else()
{
    FakeHost host;
    setPositions(host, 3, 5);
    Owner owner(host);
    PositionModel model(&owner);
    QSignalSpy changed(&model, &PositionModel::dataChanged);
    QSignalSpy reset(&model, &PositionModel::modelReset);
    const auto content = bundleOf({"num_pos", "pos0", "pos0_name"});
    host.calls.clear();

    model.update(plugin::gui::DeviceHistoryBundle(content));

    QCOMPARE(reset.size(), 1);
    QCOMPARE(changed.size(), 0);
    QVERIFY(!host.calls.contains("read config num_pos_max"));
}

void PositionModelUpdateTest::a_changed_position_is_reported_for_its_cells_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("values") << QStringList{"pos1"} << QStringList{"1,1-1,9"};
    QTest::newRow("name") << QStringList{"pos1_name"} << QStringList{"1,0-1,0"};
    QTest::newRow("both") << QStringList{"pos0_name", "pos0"} << QStringList{"0,1-0,9", "0,0-0,0"};
    QTest::newRow("a row beyond the count")
        << QStringList{"pos4", "pos4_name"} << QStringList{"-1,-1--1,-1", "-1,-1--1,-1"};
    QTest::newRow("a row beyond the maximum") << QStringList{"pos5", "pos5_name"} << QStringList();
    QTest::newRow("another spelling")
        << QStringList{"pos01", "pos", "pos1_", "POS1"} << QStringList();
}

void PositionModelUpdateTest::a_changed_position_is_reported_for_its_cells()
{
    QFETCH(QStringList, names);
    FakeHost host;
    setPositions(host, 3, 5);
    Owner owner(host);
    PositionModel model(&owner);
    QSignalSpy changed(&model, &PositionModel::dataChanged);
    QSignalSpy reset(&model, &PositionModel::modelReset);
    const auto content = bundleOf(names);

    model.update(plugin::gui::DeviceHistoryBundle(content));

    QTEST(reports(changed), "expected");
    QCOMPARE(reset.size(), 0);
}

void PositionModelUpdateTest::changes_are_reported_in_the_order_of_the_rows()
{
    FakeHost host;
    setPositions(host, 12, 12);
    Owner owner(host);
    PositionModel model(&owner);
    QSignalSpy changed(&model, &PositionModel::dataChanged);
    const auto content = bundleOf({"pos11_name", "pos10", "pos2", "pos0_name"});

    model.update(plugin::gui::DeviceHistoryBundle(content));

    QCOMPARE(reports(changed), (QStringList{"0,0-0,0", "2,1-2,9", "10,1-10,9", "11,0-11,0"}));
}

void PositionModelUpdateTest::a_bundle_without_positions_reports_nothing()
{
    FakeHost host;
    setPositions(host, 3, 5);
    Owner owner(host);
    PositionModel model(&owner);
    QSignalSpy changed(&model, &PositionModel::dataChanged);
    QSignalSpy reset(&model, &PositionModel::modelReset);
    const auto empty = bundleOf({"line0_enabled", "num_pos_max"});
    plugin::gui::HistoryBundleContent otherKinds;
    otherKinds.insert(Kind::State, "num_pos", 3);
    otherKinds.insert(Kind::Input, "pos1", 3);

    model.update(plugin::gui::DeviceHistoryBundle(empty));
    model.update(plugin::gui::DeviceHistoryBundle(otherKinds));

    QCOMPARE(changed.size() + reset.size(), 0);
}

void PositionModelUpdateTest::the_limit_is_read_again_before_every_row()
{
    FakeHost host;
    setPositions(host, 5, 5);
    Owner owner(host);
    PositionModel model(&owner);
    QSignalSpy changed(&model, &PositionModel::dataChanged);
    connect(&model, &PositionModel::dataChanged, this, [&host](const QModelIndex& index) {
        if (index.row() == 2)
            host.set(Kind::Config, "num_pos_max", 3);
    });
    const auto few = bundleOf({"pos0"});
    const auto all = bundleOf({"pos0", "pos1", "pos2", "pos3", "pos4"});

    host.calls.clear();
    model.update(plugin::gui::DeviceHistoryBundle(few));
    QCOMPARE(host.calls.count("read config num_pos_max"), 6);
    changed.clear();
    host.calls.clear();
    model.update(plugin::gui::DeviceHistoryBundle(all));

    QCOMPARE(reports(changed), (QStringList{"0,1-0,9", "1,1-1,9", "2,1-2,9"}));
    QCOMPARE(host.calls.count("read config num_pos_max"), 4);
}

void PositionModelUpdateTest::a_limit_that_is_no_number_reports_nothing_data()
{
    QTest::addColumn<Variant>("limit");
    QTest::newRow("missing") << Variant();
    QTest::newRow("none") << Variant(0);
    QTest::newRow("negative") << Variant(-5);
    QTest::newRow("vector") << Variant(countedValues(5));
}

void PositionModelUpdateTest::a_limit_that_is_no_number_reports_nothing()
{
    QFETCH(Variant, limit);
    FakeHost host;
    setPositions(host, 3, 5);
    host.set(Kind::Config, "num_pos_max", limit);
    Owner owner(host);
    PositionModel model(&owner);
    QSignalSpy changed(&model, &PositionModel::dataChanged);
    const auto content = bundleOf({"pos0", "pos0_name"});

    model.update(plugin::gui::DeviceHistoryBundle(content));

    QCOMPARE(changed.size(), 0);
}

void PositionModelUpdateTest::a_new_language_is_reported_for_both_headers()
{
    FakeHost host;
    setPositions(host, 3, 5);
    Owner owner(host);
    PositionModel model(&owner);
    qRegisterMetaType<Qt::Orientation>(); // for the spy
    QSignalSpy changed(&model, &PositionModel::headerDataChanged);

    model.translate();

    QCOMPARE(changed.size(), 2);
    QCOMPARE(changed[0][0].value<Qt::Orientation>(), Qt::Horizontal);
    QCOMPARE(changed[0][1].toInt(), 0);
    QCOMPARE(changed[0][2].toInt(), 10);
    QCOMPARE(changed[1][0].value<Qt::Orientation>(), Qt::Vertical);
    QCOMPARE(changed[1][1].toInt(), 0);
    QCOMPARE(changed[1][2].toInt(), 3);
}

TEST_WITH_WINDOWS(PositionModelUpdateTest)

} // namespace position_model_update_test

#include "PositionModelUpdateTest.moc"
