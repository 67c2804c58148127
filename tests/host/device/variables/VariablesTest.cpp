// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/device/variables/Variables.h"

#include <QtTest>

#include <vector>

namespace variables_test {

using host::device::variables::Variables;
using plugin::gui::HistoryBundleContent;
using Kind = plugin::gui::VariableKind;

namespace {

/// Keeps what is reported.
struct Reports
{
    explicit Reports(const Variables& variables)
    {
        QObject::connect(&variables, &Variables::changed,
                         [this](const HistoryBundleContent& content) { all.push_back(content); });
    }

    bool hasCome() const { return !all.empty(); }

    /// -1 where the last report does not carry the variable.
    int last(Kind kind, const char* name) const
    {
        const auto* history = all.back().find(kind, name);
        return history ? history->last().get<int>() : -1;
    }

    std::vector<HistoryBundleContent> all;
};

} // namespace

/// Values, notes, and which changes are reported when.
class VariablesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void what_was_never_set_is_empty();
    void a_value_is_read_at_once_and_belongs_to_its_kind_and_name();
    void a_value_keeps_who_wrote_it_last_and_when();
    void all_variables_that_were_set_or_are_followed_are_known();
    void every_set_and_every_change_of_followers_is_told_at_once();
    void a_note_belongs_to_one_variable_and_is_not_reported();
    void only_followed_variables_are_reported();
    void a_report_carries_the_newest_values_of_what_changed_only();
    void an_equal_value_is_reported_once_too();
    void a_value_is_reported_once_more_and_stays_as_it_was_written();
    void a_variable_followed_late_is_reported_from_then_on();
    void registering_twice_is_harmless_and_is_ended_twice();
    void what_nobody_follows_any_more_is_not_reported();
    void what_is_set_during_a_report_is_in_the_next_one();
    void reports_keep_their_distance();
    void no_timer_runs_while_nothing_changes();
    void nothing_is_reported_within_a_transaction();
    void a_transaction_that_was_not_begun_is_not_ended();
    void a_transaction_within_another_is_warned_of_and_ends_with_it();
};

void VariablesTest::what_was_never_set_is_empty()
{
    const Variables variables;
    QVERIFY(variables.value(Kind::Input, "a").isEmpty());
    QVERIFY(variables.property(Kind::Input, "a", "unit").isEmpty());
}

void VariablesTest::a_value_is_read_at_once_and_belongs_to_its_kind_and_name()
{
    Variables variables;
    variables.set(Kind::Input, "a", 1);
    variables.set(Kind::Output, "a", 2);
    variables.set(Kind::State, "a", 3);
    variables.set(Kind::Config, "a", 4);
    variables.set(Kind::Input, "b", 5);
    QCOMPARE(variables.value(Kind::Input, "a").get<int>(), 1);
    QCOMPARE(variables.value(Kind::Output, "a").get<int>(), 2);
    QCOMPARE(variables.value(Kind::State, "a").get<int>(), 3);
    QCOMPARE(variables.value(Kind::Config, "a").get<int>(), 4);
    QCOMPARE(variables.value(Kind::Input, "b").get<int>(), 5);
}

void VariablesTest::a_value_keeps_who_wrote_it_last_and_when()
{
    Variables variables;
    QVERIFY(!variables.find({Kind::Input, "a"}));
    const auto before = std::chrono::system_clock::now();
    variables.set(Kind::Input, "a", 1, "Widget");
    const auto* entry = variables.find({Kind::Input, "a"});
    QCOMPARE(entry->value.get<int>(), 1);
    QCOMPARE(entry->writer, QString("Widget"));
    QVERIFY(entry->written >= before);
    QVERIFY(entry->written <= std::chrono::system_clock::now());
    variables.set(Kind::Input, "a", 2);
    QCOMPARE(variables.find({Kind::Input, "a"})->writer, QString());
}

void VariablesTest::all_variables_that_were_set_or_are_followed_are_known()
{
    Variables variables;
    variables.set(Kind::Output, "set", 1);
    variables.follow(Kind::Input, "followed");
    variables.follow(Kind::Output, "set");
    variables.follow(Kind::Input, "ended");
    variables.unfollow(Kind::Input, "ended");
    const std::set<Variables::Key> expected{{Kind::Input, "followed"}, {Kind::Output, "set"}};
    QVERIFY(variables.keys() == expected);
    QVERIFY(variables.isFollowed({Kind::Output, "set"}));
    QVERIFY(!variables.isFollowed({Kind::Input, "ended"}));
}

void VariablesTest::every_set_and_every_change_of_followers_is_told_at_once()
{
    Variables variables;
    QStringList told;
    connect(&variables, &Variables::touched, this, [&](const Variables::Key& key) {
        told += QString::fromStdString(key.second) +
                QString::number(variables.value(key.first, key.second.c_str()).get<int>()) +
                (variables.isFollowed(key) ? "followed" : "");
    });
    variables.set(Kind::Input, "a", 1);
    variables.follow(Kind::Input, "a");
    variables.set(Kind::Input, "a", 1);
    variables.unfollow(Kind::Input, "a");
    QCOMPARE(told, QStringList({"a1", "a1followed", "a1followed", "a1"}));
}

void VariablesTest::a_note_belongs_to_one_variable_and_is_not_reported()
{
    Variables variables;
    const Reports reports(variables);
    variables.follow(Kind::Input, "a");
    variables.follow(Kind::Input, "b");
    variables.setProperty(Kind::Input, "a", "unit", 7);
    QCOMPARE(variables.property(Kind::Input, "a", "unit").get<int>(), 7);
    QVERIFY(variables.property(Kind::Input, "a", "range").isEmpty());
    QVERIFY(variables.property(Kind::Output, "a", "unit").isEmpty());
    QVERIFY(variables.property(Kind::Input, "b", "unit").isEmpty());
    QVERIFY(variables.value(Kind::Input, "a").isEmpty());
    variables.set(Kind::Input, "b", 1);
    QTRY_VERIFY_WITH_TIMEOUT(reports.hasCome(), patience);
    QVERIFY(!reports.all.back().find(Kind::Input, "a"));
}

void VariablesTest::only_followed_variables_are_reported()
{
    Variables variables;
    const Reports reports(variables);
    variables.follow(Kind::Input, "a");
    variables.set(Kind::Input, "other", 1);
    variables.set(Kind::Output, "a", 2);
    variables.set(Kind::Input, "a", 3);
    QTRY_VERIFY_WITH_TIMEOUT(reports.hasCome(), patience);
    QCOMPARE(reports.last(Kind::Input, "a"), 3);
    QVERIFY(!reports.all.back().find(Kind::Input, "other"));
    QVERIFY(!reports.all.back().find(Kind::Output, "a"));
}

void VariablesTest::a_report_carries_the_newest_values_of_what_changed_only()
{
    Variables variables;
    Reports reports(variables);
    variables.follow(Kind::Input, "a");
    variables.follow(Kind::State, "b");
    variables.set(Kind::Input, "a", 1);
    variables.set(Kind::Input, "a", 2);
    variables.set(Kind::State, "b", 3);
    QVERIFY(!reports.hasCome()); // out of the event loop only
    QTRY_VERIFY_WITH_TIMEOUT(reports.hasCome(), patience);
    QCOMPARE(reports.last(Kind::Input, "a"), 2);
    QCOMPARE(reports.last(Kind::State, "b"), 3);
    QCOMPARE(int(reports.all.size()), 1);

    reports.all.clear();
    variables.set(Kind::State, "b", 4);
    QTRY_VERIFY_WITH_TIMEOUT(reports.hasCome(), patience);
    QCOMPARE(reports.last(Kind::State, "b"), 4);
    QVERIFY(!reports.all.back().find(Kind::Input, "a"));
}

void VariablesTest::an_equal_value_is_reported_once_too()
{
    Variables variables;
    Reports reports(variables);
    variables.follow(Kind::Input, "a");
    variables.follow(Kind::Input, "b");
    variables.set(Kind::Input, "a", 1);
    QTRY_VERIFY_WITH_TIMEOUT(reports.hasCome(), patience);
    reports.all.clear();
    variables.set(Kind::Input, "a", 1);
    QTRY_VERIFY_WITH_TIMEOUT(reports.hasCome(), patience);
    QCOMPARE(reports.last(Kind::Input, "a"), 1);
    reports.all.clear();
    variables.set(Kind::Input, "b", 2);
    QTRY_VERIFY_WITH_TIMEOUT(reports.hasCome(), patience);
    QVERIFY(!reports.all.back().find(Kind::Input, "a"));
}

void VariablesTest::a_value_is_reported_once_more_and_stays_as_it_was_written()
{
    Variables variables;
    variables.set(Kind::Input, "a", 1, "Widget");
    const auto written = variables.find({Kind::Input, "a"})->written;
    variables.follow(Kind::Input, "a");
    variables.follow(Kind::Input, "never set");
    const Reports reports(variables);
    variables.repeat({Kind::Input, "a"});
    variables.repeat({Kind::Input, "never set"});
    QTRY_VERIFY_WITH_TIMEOUT(reports.hasCome(), patience);
    QCOMPARE(reports.last(Kind::Input, "a"), 1);
    QVERIFY(!reports.all.back().find(Kind::Input, "never set"));
    QCOMPARE(variables.find({Kind::Input, "a"})->writer, QString("Widget"));
    QVERIFY(variables.find({Kind::Input, "a"})->written == written);
}

void VariablesTest::a_variable_followed_late_is_reported_from_then_on()
{
    Variables variables;
    Reports reports(variables);
    variables.follow(Kind::Input, "first");
    variables.set(Kind::Input, "late", 1);
    variables.follow(Kind::Input, "late");
    variables.set(Kind::Input, "first", 2);
    QTRY_VERIFY_WITH_TIMEOUT(reports.hasCome(), patience);
    QVERIFY(!reports.all.back().find(Kind::Input, "late"));
    reports.all.clear();
    variables.set(Kind::Input, "late", 3);
    QTRY_VERIFY_WITH_TIMEOUT(reports.hasCome(), patience);
    QCOMPARE(reports.last(Kind::Input, "late"), 3);
}

void VariablesTest::registering_twice_is_harmless_and_is_ended_twice()
{
    Variables variables;
    Reports reports(variables);
    variables.unfollow(Kind::Input, "a"); // nobody follows: harmless, and owes nothing
    variables.follow(Kind::Input, "a");
    variables.follow(Kind::Input, "a");
    variables.unfollow(Kind::Input, "a");
    variables.set(Kind::Input, "a", 1);
    QTRY_VERIFY_WITH_TIMEOUT(reports.hasCome(), patience);
    QCOMPARE(reports.last(Kind::Input, "a"), 1);

    reports.all.clear();
    variables.unfollow(Kind::Input, "a");
    variables.follow(Kind::Input, "b");
    variables.set(Kind::Input, "a", 2);
    variables.set(Kind::Input, "b", 3);
    QTRY_VERIFY_WITH_TIMEOUT(reports.hasCome(), patience);
    QVERIFY(!reports.all.back().find(Kind::Input, "a"));
}

void VariablesTest::what_nobody_follows_any_more_is_not_reported()
{
    Variables variables;
    const Reports reports(variables);
    variables.follow(Kind::Input, "a");
    variables.follow(Kind::Input, "b");
    variables.set(Kind::Input, "a", 1);
    variables.set(Kind::Input, "b", 2);
    variables.unfollow(Kind::Input, "a");
    variables.follow(Kind::Input, "a"); // from then on: not what was set before
    QTRY_VERIFY_WITH_TIMEOUT(reports.hasCome(), patience);
    QVERIFY(!reports.all.back().find(Kind::Input, "a"));
    QCOMPARE(reports.last(Kind::Input, "b"), 2);
}

void VariablesTest::what_is_set_during_a_report_is_in_the_next_one()
{
    Variables variables;
    const Reports reports(variables);
    variables.follow(Kind::Input, "a");
    const auto connection = connect(&variables, &Variables::changed, this, [&] {
        if (reports.all.size() == 1)
            variables.set(Kind::Input, "a", 2);
    });
    variables.set(Kind::Input, "a", 1);
    QTRY_COMPARE_WITH_TIMEOUT(int(reports.all.size()), 2, patience);
    disconnect(connection);
    QCOMPARE(reports.all[0].find(Kind::Input, "a")->last().get<int>(), 1);
    QCOMPARE(reports.last(Kind::Input, "a"), 2);
}

void VariablesTest::reports_keep_their_distance()
{
    Variables variables;
    const Reports reports(variables);
    variables.follow(Kind::Input, "a");
    connect(&variables, &Variables::changed, &variables,
            [&] { variables.set(Kind::Input, "a", 1); });
    QElapsedTimer time;
    time.start();
    variables.set(Kind::Input, "a", 1);
    QTRY_VERIFY_WITH_TIMEOUT(reports.all.size() >= 6, patience);
    // Six reports are five intervals of 40 ms apart from the first one's; a coarse timer may be
    // 5 % early.
    QVERIFY2(time.elapsed() >= 6 * 40 * 9 / 10, qPrintable(QString::number(time.elapsed())));
}

void VariablesTest::no_timer_runs_while_nothing_changes()
{
    Variables variables;
    const Reports reports(variables);
    const auto* const timer = variables.findChild<QTimer*>();
    variables.set(Kind::Input, "a", 1); // nobody follows it
    QVERIFY(!timer->isActive());
    variables.follow(Kind::Input, "a");
    variables.set(Kind::Input, "a", 1);
    QVERIFY(timer->isActive());
    QTRY_VERIFY_WITH_TIMEOUT(!timer->isActive(), patience);
    QCOMPARE(int(reports.all.size()), 1);
}

void VariablesTest::nothing_is_reported_within_a_transaction()
{
    Variables variables;
    Variables others; // its reports tell that time has passed
    const Reports reports(variables);
    const Reports othersReports(others);
    variables.follow(Kind::Config, "a");
    others.follow(Kind::Config, "a");
    variables.set(Kind::Config, "a", 1);
    variables.beginTransaction("Set a");
    QVERIFY(variables.isInTransaction());
    variables.set(Kind::Config, "a", 2);
    QCOMPARE(variables.value(Kind::Config, "a").get<int>(), 2);
    for (std::size_t i = 1; i <= 2; ++i) {
        others.set(Kind::Config, "a", 1);
        QTRY_COMPARE_WITH_TIMEOUT(othersReports.all.size(), i, patience);
    }
    QVERIFY(!reports.hasCome());
    QVERIFY(variables.endTransaction());
    QVERIFY(!variables.isInTransaction());
    QTRY_VERIFY_WITH_TIMEOUT(reports.hasCome(), patience);
    QCOMPARE(reports.last(Kind::Config, "a"), 2);
}

void VariablesTest::a_transaction_that_was_not_begun_is_not_ended()
{
    expectWarning("was not begun");
    Variables variables;
    QVERIFY(!variables.endTransaction());
    const Reports reports(variables);
    variables.follow(Kind::Config, "a");
    variables.set(Kind::Config, "a", 1);
    QTRY_VERIFY_WITH_TIMEOUT(reports.hasCome(), patience);
}

void VariablesTest::a_transaction_within_another_is_warned_of_and_ends_with_it()
{
    Variables variables;
    variables.beginTransaction("Outer");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Inner.*Outer"));
    expectWarning("Inner.*Outer");
    variables.beginTransaction("Inner");
    QVERIFY(variables.endTransaction());
    QVERIFY(!variables.isInTransaction());
}

TEST_WITHOUT_WINDOWS(VariablesTest)

} // namespace variables_test

#include "VariablesTest.moc"
