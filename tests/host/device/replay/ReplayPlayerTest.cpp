// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"
#include "tests/host/device/DeviceFixture.h"

#include "host/device/replay/Conversation.h"
#include "host/device/replay/Player.h"

#include <QVBoxLayout>
#include <QtTest>

#include <stdexcept>

namespace replay_player_test {

using host::device::replay::Conversation;
using host::device::replay::Player;
using Kind = plugin::gui::VariableKind;
using Variant = olm::core::variant::Variant;

namespace {

/// What a widget asks of its host while it is built and when it is told of changes.
using Behaviour = std::function<void(Probe& probe)>;

struct Plugin
{
    Behaviour whenBuilt = [](Probe&) {};
    Behaviour whenUpdated = [](Probe&) {};
    Behaviour whenMessaged = [](Probe&) {};

    Factory factory() const
    {
        return Factory([*this](const char*, const char* widget,
                               plugin::gui::DeviceDelegate& delegate) -> Probe* {
            if (qstrcmp(widget, "dialog") != 0)
                return nullptr;
            auto* probe = new Probe(delegate);
            delegate.registerConfigVariable("line0_enabled", true);
            whenBuilt(*probe);
            probe->onUpdate = [probe, *this](const auto&) { whenUpdated(*probe); };
            probe->onMessage = [probe, *this] { whenMessaged(*probe); };
            return probe;
        });
    }
};

Plugin usualPlugin()
{
    return {[](Probe& probe) { probe.readConfigVariable("line0_enabled"); },
            [](Probe& probe) {
                if (!probe.readConfigVariable("line0_enabled").toBool())
                    probe.writeConfigVariable("line1_enabled", false);
            },
            [](Probe& probe) { probe.trans("Hello"); }};
}

struct Fixture
{
    /// The conversation with a plugin, which was there already unless it is recorded from the
    /// beginning.
    bool record(const Plugin& plugin, bool fromBeginning)
    {
        host::device::Device device("robot", folder.path(), environment);
        QString error;
        if (fromBeginning && !device.recorder().start(file, &error))
            return false;
        const Factory factory = plugin.factory();
        const std::unique_ptr<Probe> probe(
            dynamic_cast<Probe*>(device.loadWidget(factory, "dialog")));
        const auto hears = [&](const char* call) {
            return QTest::qWaitFor([&] { return probe->count(call) > 0; }, patience);
        };
        if (!hears("translate") || (!fromBeginning && !device.recorder().start(file, &error)))
            return false;
        device.sendMessage(plugin::plugin::DataRole(1000), QString("before"));
        probe->writeConfigVariable("line0_enabled", false); // as a person does
        const bool isUpdated = hears("update");
        device.sendMessage(plugin::plugin::DataRole(1000), QString("after"));
        const bool isTold = hears("1000 after");
        device.recorder().stop();
        return isUpdated && isTold;
    }

    /// Line by line; empty without a difference.
    QStringList replay(const Plugin& plugin)
    {
        QString error;
        const auto conversation = Conversation::open(file, &error);
        if (!conversation)
            return {error};
        QWidget parent;
        new QVBoxLayout(&parent);
        const Factory factory = plugin.factory();
        Player player(factory, conversation->initialState(), parent);
        while (const auto call = conversation->next())
            player.play(*call);
        played = int(player.traffic().end());
        return conversation->error().isEmpty() ? player.difference()
                                               : QStringList(conversation->error());
    }

    const QTemporaryDir folder;
    const QString file = folder.filePath("device.bag");
    TestEnvironment environment;
    int played = 0;
};

} // namespace

/// A recorded conversation, played into the same plugin and into others.
class ReplayPlayerTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_same_plugin_does_the_same();
    void a_recording_of_widgets_that_were_there_is_played_too();
    void another_argument_is_a_difference_with_its_surroundings();
    void a_call_too_many_is_a_difference();
    void a_call_too_few_is_a_difference();
    void an_exception_is_a_difference();
    void a_widget_that_is_missing_is_a_difference();
    void what_the_plugin_does_by_itself_is_not_compared();
    void a_damaged_conversation_is_named();
};

void ReplayPlayerTest::the_same_plugin_does_the_same()
{
    Fixture f;
    QVERIFY(f.record(usualPlugin(), true));
    QCOMPARE(f.replay(usualPlugin()), QStringList());
    QVERIFY2(f.played >= 10, qPrintable(QString::number(f.played)));
}

void ReplayPlayerTest::a_recording_of_widgets_that_were_there_is_played_too()
{
    Fixture f;
    QVERIFY(f.record(usualPlugin(), false));
    Plugin other = usualPlugin();
    other.whenBuilt = {[](Probe& probe) { probe.readInput("what"); }}; // not recorded
    QCOMPARE(f.replay(other), QStringList());
}

void ReplayPlayerTest::another_argument_is_a_difference_with_its_surroundings()
{
    Fixture f;
    QVERIFY(f.record(usualPlugin(), true));
    Plugin other = usualPlugin();
    other.whenUpdated = [](Probe& probe) {
        probe.readConfigVariable("line0_enabled");
        probe.writeConfigVariable("line1_enabled", true);
    };
    const QString difference = f.replay(other).join('\n');
    for (const char* part :
         {"s after the beginning: Probe::update(line0_enabled: \"bool\" false)",
          "  the plugin called\n    Probe::writeConfigVariable(\"string\" \"line1_enabled\", "
          "\"bool\" true)\n  and recorded is\n    Probe::writeConfigVariable(\"string\" "
          "\"line1_enabled\", \"bool\" false)",
          "Before that, in the same call:\n    Probe::readConfigVariable(", "Calls before it:\n"})
        QVERIFY2(difference.contains(QLatin1String(part)), qPrintable(difference));
}

void ReplayPlayerTest::a_call_too_many_is_a_difference()
{
    Fixture f;
    QVERIFY(f.record(usualPlugin(), true));
    Plugin other = usualPlugin();
    other.whenMessaged = [](Probe& probe) {
        probe.trans("Hello");
        probe.currentLanguage();
    };
    const QString difference = f.replay(other).join('\n');
    QVERIFY2(difference.contains("  the plugin called\n    Probe::currentLanguage()\n  and did not "
                                 "when it was recorded"),
             qPrintable(difference));
}

void ReplayPlayerTest::a_call_too_few_is_a_difference()
{
    Fixture f;
    QVERIFY(f.record(usualPlugin(), true));
    Plugin other = usualPlugin();
    other.whenMessaged = [](Probe&) {};
    const QString difference = f.replay(other).join('\n');
    QVERIFY2(difference.contains("  the plugin did not call\n    Probe::trans(\"text\" \"Hello\")"),
             qPrintable(difference));
}

void ReplayPlayerTest::an_exception_is_a_difference()
{
    Fixture f;
    QVERIFY(f.record(usualPlugin(), true));
    Plugin other = usualPlugin();
    other.whenMessaged = [](Probe& probe) {
        probe.trans("Hello");
        throw std::runtime_error("no");
    };
    const QString difference = f.replay(other).join('\n');
    QVERIFY2(difference.contains("the plugin threw an exception, and did not when"),
             qPrintable(difference));
}

void ReplayPlayerTest::a_widget_that_is_missing_is_a_difference()
{
    Fixture f;
    Plugin named = usualPlugin();
    named.whenBuilt = [](Probe& probe) { probe.setObjectName("name"); };
    QVERIFY(f.record(named, false));
    Plugin other = usualPlugin();
    other.whenBuilt = [](Probe&) {};
    const QString difference = f.replay(other).join('\n');
    QVERIFY2(difference.contains("there is no widget Probe [name] that it could be played to"),
             qPrintable(difference));
}

void ReplayPlayerTest::what_the_plugin_does_by_itself_is_not_compared()
{
    Fixture f;
    QVERIFY(f.record(usualPlugin(), true));
    QString error;
    const auto conversation = Conversation::open(f.file, &error);
    QVERIFY2(conversation, qPrintable(error));
    bool isThere = false; // what the person wrote
    while (const auto call = conversation->next())
        isThere = isThere || call->call.function == "writeConfigVariable";
    QVERIFY(isThere);
}

void ReplayPlayerTest::a_damaged_conversation_is_named()
{
    Fixture f;
    QString error;
    QVERIFY(!Conversation::open(f.file, &error));
    QVERIFY2(error.startsWith(f.file), qPrintable(error));
}

TEST_WITH_WINDOWS(ReplayPlayerTest)

} // namespace replay_player_test

#include "ReplayPlayerTest.moc"
