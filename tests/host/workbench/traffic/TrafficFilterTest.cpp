// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/device/trace/TracedCall.h"
#include "host/workbench/traffic/TrafficFilter.h"
#include "host/workbench/traffic/TrafficModel.h"

#include <QAbstractItemModelTester>
#include <QtTest>

#include <memory>
#include <string>

namespace traffic_filter_test {

using namespace host::workbench::traffic;
using host::device::trace::Arguments;
using host::device::trace::PluginCall;
using host::device::trace::TracedCall;
using host::device::trace::Traffic;

namespace {

struct Filtered
{
    Filtered() { model.setActive(true); }

    void call(const char* name, const char* argument,
              PluginCall::Direction direction = PluginCall::Direction::ToHost)
    {
        auto arguments = std::make_shared<Arguments>();
        arguments->push_back({std::string(), std::string(argument)});
        const TracedCall traced(traffic, {direction, name, nullptr, std::move(arguments)});
    }

    QStringList shown() const
    {
        QStringList calls;
        for (int row = 0; row < filter.rowCount(); ++row)
            calls << filter.index(row, TrafficModel::CallColumn).data().toString();
        return calls;
    }

    Traffic traffic;
    TrafficModel model{traffic};
    TrafficFilter filter{model};
};

} // namespace

/// TrafficFilter: which calls a developer sees.
class TrafficFilterTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void all_words_must_be_in_a_call_and_those_after_a_minus_must_not();
    void only_writes_are_what_the_plugin_changes();
    void equal_calls_in_a_row_are_one_with_their_number();
    void what_is_filtered_out_does_not_keep_equal_calls_apart();
};

void TrafficFilterTest::all_words_must_be_in_a_call_and_those_after_a_minus_must_not()
{
    Filtered calls;
    calls.call("readInput", "scan");
    calls.call("readConfigVariable", "num_pos_max");
    calls.call("readConfigVariable", "num_pos");
    QTRY_COMPARE_WITH_TIMEOUT(int(calls.shown().size()), 3, patience);
    calls.filter.setWords("READ pos");
    QCOMPARE(calls.shown(), QStringList({"readConfigVariable", "readConfigVariable"}));
    calls.filter.setWords("read -num_pos_max");
    QCOMPARE(calls.shown(), QStringList({"readInput", "readConfigVariable"}));
    calls.filter.setWords("-config");
    QCOMPARE(calls.shown(), QStringList({"readInput"}));
    calls.filter.setWords(" - "); // about to be typed on
    QCOMPARE(int(calls.shown().size()), 3);
}

void TrafficFilterTest::only_writes_are_what_the_plugin_changes()
{
    Filtered calls;
    for (const char* name : {"readInput", "writeConfigVariable", "setInputProperty", "trans",
                             "connectDevice", "disconnectDevice", "simulationDirectExec"})
        calls.call(name, "x");
    calls.call("setLanguage", "x", PluginCall::Direction::ToPlugin);
    QTRY_COMPARE_WITH_TIMEOUT(int(calls.shown().size()), 8, patience);
    calls.filter.setOnlyWrites(true);
    QCOMPARE(calls.shown(), QStringList({"writeConfigVariable", "setInputProperty", "connectDevice",
                                         "disconnectDevice", "simulationDirectExec"}));
}

void TrafficFilterTest::equal_calls_in_a_row_are_one_with_their_number()
{
    Filtered calls;
    const QAbstractItemModelTester tester(&calls.filter,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    calls.filter.setFolding(true);
    for (int i = 0; i < 3; ++i)
        calls.call("a", "1");
    calls.call("a", "2");
    calls.call("b", "2");
    calls.call("b", "2");
    QTRY_COMPARE_WITH_TIMEOUT(calls.shown(), QStringList({u8"a \u00d7 3", "a", u8"b \u00d7 2"}),
                              patience);
    QSignalSpy changes(&calls.filter, &QAbstractItemModel::dataChanged);
    calls.call("b", "2");
    QTRY_COMPARE_WITH_TIMEOUT(calls.shown(), QStringList({u8"a \u00d7 3", "a", u8"b \u00d7 3"}),
                              patience);
    QVERIFY(!changes.isEmpty()); // or no view would look again
    calls.filter.setFolding(false);
    QCOMPARE(int(calls.shown().size()), 7);
}

void TrafficFilterTest::what_is_filtered_out_does_not_keep_equal_calls_apart()
{
    Filtered calls;
    for (int i = 0; i < 4; ++i) {
        calls.call("write", "1");
        calls.call("read", "1");
    }
    QTRY_COMPARE_WITH_TIMEOUT(int(calls.shown().size()), 8, patience);
    calls.filter.setFolding(true);
    QCOMPARE(int(calls.shown().size()), 8);
    calls.filter.setWords("-read");
    QCOMPARE(calls.shown(), QStringList(u8"write \u00d7 4"));
}

TEST_WITHOUT_WINDOWS(TrafficFilterTest)

} // namespace traffic_filter_test

#include "TrafficFilterTest.moc"
