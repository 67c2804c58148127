// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"
#include "tests/host/device/Probe.h"
#include "tests/host/device/replay/WrittenBag.h"

#include "host/device/connection/SimulationDirectExecRole.h"
#include "host/device/replay/Replay.h"
#include "plugin/gui/DeviceHistoryBundle.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace plugin_replay_test {

using namespace std::chrono_literals;

using host::device::recording::callsTopic;
using host::device::recording::DeviceState;
using host::device::recording::stateTopic;
using host::device::replay::Conversation;
using host::device::replay::Replay;
using Kind = plugin::gui::VariableKind;

namespace {

DeviceState stateWith(int count, int connection)
{
    DeviceState state;
    state.program = "test";
    state.connectionState = connection;
    state.variables.push_back({Kind::Input, "count", count, true});
    return state;
}

/// A recording, and the replay of it with one widget, which notes what it is told.
struct Fixture
{
    Fixture() { bag.writeState(callsTopic, 0ms, stateWith(0, -1)); }

    /// Writes no more. False, with a warning, if that fails.
    bool open()
    {
        bag.finish();
        QString error = bag.error();
        auto conversation = error.isEmpty() ? Conversation::open(file, &error) : nullptr;
        if (!conversation) {
            qWarning("%s", qPrintable(error));
            return false;
        }
        replay = std::make_unique<Replay>(std::move(conversation), environment);
        QObject::connect(replay.get(), &Replay::problem, replay.get(),
                         [this](const QString& words) { problems += words; });
        probe.reset(dynamic_cast<Probe*>(replay->loadWidget(factory, "dialog")));
        probe->onUpdate = [this](const plugin::gui::DeviceHistoryBundle& bundle) {
            for (const char* name : {"count", "late"}) {
                if (const auto* history = bundle.getInputHistory(name))
                    told += QStringLiteral("%1 %2").arg(
                        QLatin1String(name), history->last().isEmpty()
                                                 ? QStringLiteral("empty")
                                                 : QString::number(history->last().get<int>()));
            }
        };
        replay->jump(0ms);
        clear();
        return true;
    }

    void clear()
    {
        told.clear();
        probe->calls.clear();
    }

    const QTemporaryDir folder;
    const QString file = folder.filePath("device.bag");
    WrittenBag bag{file};
    TestEnvironment environment;
    const Factory factory{[](const char*, const char*, plugin::gui::DeviceDelegate& delegate) {
        delegate.registerInput("count", true);
        delegate.registerInput("late", true);
        return new Probe(delegate);
    }};
    std::unique_ptr<Replay> replay;
    std::unique_ptr<Probe> probe;
    QStringList told; // as "name value"
    QStringList problems;
};

} // namespace

/// Replay: a recording as a person plays it.
class PluginReplayTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void all_is_played_in_order_up_to_the_end();
    void a_step_plays_one_call();
    void it_takes_the_time_that_the_speed_says();
    void at_the_end_it_begins_again_if_told_so();
    void a_jump_tells_the_values_of_that_time();
    void a_jump_tells_the_connection_of_that_time();
    void a_jump_repeats_no_other_message();
    void a_variable_that_had_no_value_has_none_after_a_jump();
    void a_jump_reads_from_the_newest_state_on();
    void what_cannot_be_read_is_said_and_can_be_passed();
    void it_goes_from_one_long_call_to_the_next();
    void what_a_widget_reads_is_as_it_was_then();
    void texts_are_those_of_the_program();
    void what_a_person_wants_of_the_robot_is_answered_in_words();
    void a_recording_that_was_cut_off_is_played_to_its_last_chunk();
    void a_bag_without_calls_is_refused_with_what_to_do();
};

void PluginReplayTest::all_is_played_in_order_up_to_the_end()
{
    Fixture f;
    f.bag.writeUpdate(100ms, "count", 1);
    f.bag.writeMessage(200ms, 1000, R"("type":"text","value":"line")");
    f.bag.writeUpdate(300ms, "count", 2);
    QVERIFY(f.open());
    f.replay->setSpeed(std::nullopt);
    f.replay->play();
    QVERIFY(f.replay->isPlaying());
    QTRY_VERIFY_WITH_TIMEOUT(!f.replay->isPlaying(), patience);
    QCOMPARE(f.told, (QStringList{"count 1", "count 2"}));
    QCOMPARE(f.probe->calls, (QStringList{"update", "1000 line", "update"}));
    QVERIFY(f.replay->position() == f.replay->duration());
    QVERIFY(f.problems.isEmpty());
}

void PluginReplayTest::a_step_plays_one_call()
{
    Fixture f;
    f.bag.writeUpdate(100ms, "count", 1);
    f.bag.writeUpdate(90min, "count", 2);
    QVERIFY(f.open());
    QVERIFY(!f.replay->present());
    f.replay->step();
    QCOMPARE(f.told, QStringList("count 1"));
    QCOMPARE(f.replay->present()->call.function, QString("update"));
    f.replay->step();
    QCOMPARE(f.told, (QStringList{"count 1", "count 2"}));
    QVERIFY(f.replay->position() >= 90min);
    f.replay->step(); // there is none
    QCOMPARE(f.told.size(), 2);
}

void PluginReplayTest::it_takes_the_time_that_the_speed_says()
{
    Fixture f;
    f.bag.writeUpdate(100s, "count", 1);
    QVERIFY(f.open());
    f.replay->setSpeed(1000.0);
    QElapsedTimer timer;
    timer.start();
    f.replay->play();
    QTRY_COMPARE_WITH_TIMEOUT(f.told, QStringList("count 1"), patience);
    QVERIFY2(timer.elapsed() >= 99, qPrintable(QString::number(timer.elapsed())));
}

void PluginReplayTest::at_the_end_it_begins_again_if_told_so()
{
    Fixture f;
    f.bag.writeUpdate(1ms, "count", 1);
    QVERIFY(f.open());
    f.replay->setSpeed(std::nullopt);
    f.replay->setLooping(true);
    f.replay->play();
    QTRY_VERIFY_WITH_TIMEOUT(f.told.count("count 1") >= 3, patience);
    QVERIFY(f.replay->isPlaying());
    QVERIFY(f.told.contains("count 0")); // where it begins
    f.replay->setLooping(false);
    QTRY_VERIFY_WITH_TIMEOUT(!f.replay->isPlaying(), patience);
    f.clear();
    f.replay->play(); // from the beginning
    QTRY_VERIFY_WITH_TIMEOUT(f.told.contains("count 0") && f.told.contains("count 1"), patience);
}

void PluginReplayTest::a_jump_tells_the_values_of_that_time()
{
    Fixture f;
    for (int i = 1; i <= 10; ++i)
        f.bag.writeUpdate(i * 1s, "count", i);
    QVERIFY(f.open());
    f.replay->jump(7500ms);
    QCOMPARE(f.told, (QStringList{"count 6", "count 7"})); // before the newest call, and by it
    QVERIFY(f.replay->position() == 7500ms);
    QVERIFY(f.replay->present()->time / 1ms == 7000);
    f.clear();
    f.replay->jump(2500ms);
    QCOMPARE(f.told, (QStringList{"count 1", "count 2"}));
    f.clear();
    f.replay->jump(0ms);
    QCOMPARE(f.told, QStringList("count 0"));
    f.clear();
    f.replay->step();
    QCOMPARE(f.told, QStringList("count 1"));
}

void PluginReplayTest::a_jump_tells_the_connection_of_that_time()
{
    Fixture f;
    f.bag.writeMessage(1s, 1005, R"("type":"int","value":0)");
    f.bag.writeMessage(2s, 1005, R"("type":"int","value":3)");
    f.bag.writeCall(3s, "connected", {});
    f.bag.writeUpdate(4s, "count", 1);
    f.bag.writeMessage(5s, 1005, R"("type":"int","value":-1)");
    f.bag.writeUpdate(6s, "count", 2);
    QVERIFY(f.open());
    f.replay->jump(4500ms);
    QCOMPARE(f.probe->calls, (QStringList{"update", "1005 3", "connected", "update"}));
    QCOMPARE(f.probe->simulationDirectExec(SimulationDirectExecRole(1005), {}).get<int>(), 3);
    f.clear();
    f.replay->jump(4600ms); // where it is the same
    QCOMPARE(f.probe->calls, (QStringList{"update", "update"}));
    f.clear();
    f.replay->jump(6500ms);
    QCOMPARE(f.probe->calls, (QStringList{"update", "1005 -1", "disconnected", "update"}));
}

void PluginReplayTest::a_jump_repeats_no_other_message()
{
    Fixture f;
    f.bag.writeMessage(1s, 1000, R"("type":"text","value":"line")");
    f.bag.writeUpdate(2s, "count", 1);
    QVERIFY(f.open());
    f.replay->jump(2500ms);
    QCOMPARE(f.probe->calls, (QStringList{"update", "update"}));
}

void PluginReplayTest::a_variable_that_had_no_value_has_none_after_a_jump()
{
    Fixture f;
    f.bag.writeUpdate(1s, "count", 1);
    f.bag.writeUpdate(2s, "late", 1);
    QVERIFY(f.open());
    f.replay->jump(3s);
    QCOMPARE(f.told, (QStringList{"count 1", "late 1"}));
    f.clear();
    f.replay->jump(1500ms);
    QCOMPARE(f.told, (QStringList{"count 0", "late empty", "count 1"}));
}

void PluginReplayTest::a_jump_reads_from_the_newest_state_on()
{
    Fixture f;
    f.bag.writeUpdate(1s, "count", 1);
    f.bag.write(callsTopic, 2s, "what was recorded before is not read");
    f.bag.writeState(stateTopic, 3s, stateWith(7, 3));
    f.bag.writeUpdate(4s, "count", 8);
    f.bag.writeUpdate(5s, "count", 9);
    QVERIFY(f.open());
    f.replay->jump(5500ms);
    QCOMPARE(f.told, (QStringList{"count 8", "count 9"}));
    QVERIFY(f.probe->calls.contains("1005 3"));
    QVERIFY2(f.problems.isEmpty(), qPrintable(f.problems.join('\n')));
}

void PluginReplayTest::what_cannot_be_read_is_said_and_can_be_passed()
{
    Fixture f;
    f.bag.writeUpdate(1s, "count", 1);
    f.bag.write(callsTopic, 2s, "no JSON");
    f.bag.writeState(stateTopic, 3s, stateWith(7, -1));
    f.bag.writeUpdate(4s, "count", 8);
    QVERIFY(f.open());
    f.replay->setSpeed(std::nullopt);
    f.replay->play();
    QTRY_VERIFY_WITH_TIMEOUT(!f.replay->isPlaying(), patience);
    QCOMPARE(f.told, QStringList("count 1"));
    QCOMPARE(f.problems.size(), 1);
    QVERIFY2(f.problems.first().contains(f.file), qPrintable(f.problems.first()));
    f.replay->jump(3500ms);
    f.replay->play();
    QTRY_VERIFY_WITH_TIMEOUT(!f.replay->isPlaying(), patience);
    QCOMPARE(f.told.last(), QString("count 8"));
    QCOMPARE(f.problems.size(), 1);
}

void PluginReplayTest::it_goes_from_one_long_call_to_the_next()
{
    Fixture f;
    f.bag.writeUpdate(1s, "count", 1);
    f.bag.writeCall(2s, "translate", {}, 70ms);
    f.bag.writeUpdate(3s, "count", 2);
    f.bag.writeCall(4s, "connected", {}, 300ms);
    f.bag.writeUpdate(5s, "count", 3);
    QVERIFY(f.open());
    f.replay->play();
    QVERIFY(f.replay->jumpToLongCall());
    QVERIFY(!f.replay->isPlaying()); // there is something to look at
    QCOMPARE(f.replay->present()->call.function, QString("translate"));
    QVERIFY(f.replay->present()->call.duration == 70ms);
    QCOMPARE(f.probe->calls.last(), QString("translate"));
    QVERIFY(f.replay->jumpToLongCall());
    QCOMPARE(f.replay->present()->call.function, QString("connected"));
    f.clear();
    QVERIFY(!f.replay->jumpToLongCall());
    QCOMPARE(f.probe->calls, QStringList());
    QCOMPARE(f.replay->present()->call.function, QString("connected"));
}

void PluginReplayTest::what_a_widget_reads_is_as_it_was_then()
{
    Fixture f;
    f.bag.writeCall(1s, "connected", {}, 1ms,
                    R"("function":"readConfigVariable","arguments":[{"type":"string",)"
                    R"("value":"address"}],"result":{"type":"int","value":42})");
    QVERIFY(f.open());
    int read = 0;
    f.probe->onConnected = [&] { read = f.probe->readConfigVariable("address").get<int>(); };
    f.replay->step();
    QCOMPARE(read, 42);
    f.replay->jump(0ms);
    QCOMPARE(f.probe->readConfigVariable("address").get<int>(), 0);
}

void PluginReplayTest::texts_are_those_of_the_program()
{
    Fixture f;
    f.bag.writeCall(1s, "translate", {}, 1ms,
                    R"("function":"trans","arguments":[{"type":"text","value":"Hello"}],)"
                    R"("result":{"type":"text","value":"Bonjour"})");
    QVERIFY(f.open());
    QString text;
    f.probe->onTranslate = [&] { text = f.probe->trans("Hello"); };
    f.replay->step();
    QCOMPARE(text, QString("HELLO"));
}

void PluginReplayTest::what_a_person_wants_of_the_robot_is_answered_in_words()
{
    Fixture f;
    f.bag.writeUpdate(1s, "count", 1);
    QVERIFY(f.open());
    f.probe->onConnected = [&] { f.probe->writeConfigVariable("name", 1); };
    f.replay->step();
    QVERIFY(f.problems.isEmpty()); // what it does when it is called is recorded
    f.probe->readConfigVariable("name");
    f.probe->simulationDirectExec(SimulationDirectExecRole(1005), {});
    QVERIFY(f.problems.isEmpty());
    QVERIFY(!f.probe->connectDevice());
    QCOMPARE(f.problems.size(), 1);
    QVERIFY2(f.problems.first().startsWith("This is a replay: there is no robot"),
             qPrintable(f.problems.first()));
    f.probe->writeConfigVariable("name", 2);
    QCOMPARE(f.problems.size(), 1); // is known by now
    QCOMPARE(f.probe->readConfigVariable("name").get<int>(), 2);
}

void PluginReplayTest::a_recording_that_was_cut_off_is_played_to_its_last_chunk()
{
    Fixture f;
    f.bag.writeUpdate(1s, "count", 1);
    f.bag.writeState(stateTopic, 2s, stateWith(1, -1));
    f.bag.writeUpdate(3s, "count", 2);
    f.bag.endChunk();
    QVERIFY(QFile::copy(f.file + ".active", f.folder.filePath("killed.bag")));
    QString error;
    auto conversation = Conversation::open(f.folder.filePath("killed.bag"), &error);
    QVERIFY2(conversation, qPrintable(error));
    QVERIFY(conversation->problems().value(0).contains("was cut off"));
    QVERIFY(conversation->duration() >= 3s);
    Replay replay(std::move(conversation), f.environment);
    const std::unique_ptr<plugin::gui::DeviceWidget> widget(replay.loadWidget(f.factory, "dialog"));
    replay.jump(replay.duration());
    QVERIFY(dynamic_cast<const Probe&>(*widget).count("update") == 2);
    QVERIFY(replay.present()->time / 1ms == 3000);
}

void PluginReplayTest::a_bag_without_calls_is_refused_with_what_to_do()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("walk.bag");
    WrittenBag bag(file);
    bag.write(stateTopic, 0ms, "{}");
    bag.finish();
    QString error;
    QVERIFY(!Conversation::open(file, &error));
    QCOMPARE(error, file + ": there are no calls between host and plugin in it (topic "
                           "/plugin/calls); choose a recording of device-workbench");
}

TEST_WITH_WINDOWS(PluginReplayTest)

} // namespace plugin_replay_test

#include "PluginReplayTest.moc"
