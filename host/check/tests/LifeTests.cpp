// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/tests/LifeTests.h"

#include "host/check/stage/Actions.h"
#include "host/check/stage/Application.h"
#include "host/check/stage/Connections.h"
#include "host/check/stage/Controls.h"
#include "host/check/stage/Failure.h"
#include "host/check/stage/Ledger.h"
#include "host/check/stage/Progress.h"
#include "host/check/stage/Stage.h"
#include "host/check/stage/Subject.h"
#include "host/check/stage/Values.h"

#include <QElapsedTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>
#include <vector>

namespace host::check::tests {

namespace {

using plugin::gui::DeviceWidget;
using stage::ActionList;
using stage::fail;
using stage::Ledger;
using stage::load;
using stage::Progress;
using stage::RecordingHost;
using stage::settle;
using stage::skip;
using stage::Stage;
using stage::Subject;
using stage::wait;

constexpr int aftermath = 30; // ms in which a timer that outlived its widget shows itself

void isNewEachTime(Subject& subject)
{
    RecordingHost host(subject.complaints());
    const auto first = load(subject, subject.device(), subject.widget(), host);
    auto second = load(subject, subject.device(), subject.widget(), host);
    if (!first || !second)
        fail(QStringLiteral("gives its widget only once: a host may ask for any number of them"));
    if (first == second) {
        second.release(); // NOLINT(bugprone-unused-return-value): first owns it
        fail(QStringLiteral("gives the same widget twice: its host owns, and deletes, each one"));
    }
    if (first->parent())
        fail(QStringLiteral("gives a widget that has a parent: it belongs to its host"));
    if (first->isVisible())
        fail(QStringLiteral("shows its widget itself: that is up to its host"));
}

void takesEveryOrder(Subject& subject)
{
    constexpr int full = 40;
    constexpr std::size_t mostActions = 12;
    const int rounds = subject.share(full, full / 4);
    for (int i = 0; i < rounds; ++i) {
        Stage stage(subject);
        stage.host().welcome();
        ActionList actions = stage::notifications(stage.host().usage(), subject.random());
        std::shuffle(actions.begin(), actions.end(), subject.random());
        actions.resize(std::min(actions.size(), subject.random()() % mostActions));
        stage::play(actions, stage);
        if (!stage.widget())
            fail(QStringLiteral("deletes its widget, which belongs to its host"));
    }
}

/// The ways in which a host parts with a widget. Nothing of the widget is left after each.
using Parting = void (*)(Stage& stage);

void partUntranslated(Stage& stage)
{
    stage.strike();
}

void partHidden(Stage& stage)
{
    stage.host().welcome();
    stage.strike();
}

void partShown(Stage& stage)
{
    stage.host().welcome();
    stage.show();
    stage.strike();
}

void partLater(Stage& stage)
{
    stage.host().welcome();
    stage.show();
    stage.widget()->deleteLater();
    settle();
}

void partWithWindow(Stage& stage)
{
    stage.host().welcome();
    const auto window = std::make_unique<QWidget>();
    (new QVBoxLayout(window.get()))->addWidget(stage.widget());
    window->show();
    settle();
}

void partBeforeWindow(Stage& stage)
{
    stage.host().welcome();
    QWidget window;
    (new QVBoxLayout(&window))->addWidget(stage.widget());
    window.show();
    settle();
    stage.strike();
    settle();
}

void partAfterMove(Stage& stage)
{
    stage.host().welcome();
    QWidget window;
    {
        QWidget before;
        (new QVBoxLayout(&before))->addWidget(stage.widget());
        before.show();
        settle();
        (new QVBoxLayout(&window))->addWidget(stage.widget());
        window.show();
        settle();
    }
    stage.strike();
}

void partWhileConnected(Stage& stage)
{
    stage.host().welcome();
    stage.show();
    stage.host().connected();
    stage.strike();
}

void canBeDeletedAnyWay(Subject& subject)
{
    struct Way
    {
        const char* words;
        Parting part;
    };
    static const Way ways[] = {
        {"deleted before it was translated", partUntranslated},
        {"deleted before it was shown", partHidden},
        {"deleted while it was shown", partShown},
        {"deleted later, out of the event loop", partLater},
        {"deleted with the window it was in", partWithWindow},
        {"deleted before the window it was in", partBeforeWindow},
        {"moved to another window, and deleted", partAfterMove},
        {"deleted while the device was connected", partWhileConnected},
    };
    for (const Way& way : ways) {
        Progress::note(QStringLiteral("its widget was %1").arg(QLatin1String(way.words)));
        Stage stage(subject);
        way.part(stage);
        if (stage.widget() || stage.host().widgetCount() > 0)
            fail(QStringLiteral(
                     "a widget of the device is still there when the plugin's widget was %1")
                     .arg(QLatin1String(way.words)));
        // The device goes on without the widget.
        stage.tellEverything();
        stage.host().translate();
        wait(aftermath);
    }
}

/// One life of a widget, with all that a device tells or as quick as it can be. Gives the
/// connections that it leaves.
int live(Subject& subject, bool isFull)
{
    Stage stage(subject);
    stage.host().welcome();
    if (isFull) {
        stage.show();
        stage.tellEverything();
    } else {
        stage.widget()->show();
        stage.host().connected();
    }
    stage.host().translate();
    stage.strike();
    settle();
    return stage.host().connectionCount();
}

void leavesNothing(Subject& subject)
{
    constexpr int warmUp = 5; // Qt's own caches fill
    constexpr int full = 2000;
    constexpr int least = 50;
    constexpr int quick = 40; // lives for each with all that a device tells
    const int cycles = subject.share(full, least);
    constexpr int patience = 1000; // ms for what ends by itself, as animations do
    const auto& application = *static_cast<stage::Application*>(qApp);
    Ledger::watchObjects();
    int connections = 0;
    const auto ledger = [&] { return Ledger(connections + stage::connectionsOf(application)); };
    for (int i = 0; i < warmUp; ++i)
        connections += live(subject, true);
    wait(aftermath);
    const Ledger before = ledger();
    for (int i = 0; i < cycles; ++i)
        connections += live(subject, i % quick == 0);
    QElapsedTimer clock;
    clock.start();
    QStringList left;
    do {
        wait(aftermath);
        left = ledger().growthSince(before);
    } while (!left.isEmpty() && clock.elapsed() < patience);
    if (!left.isEmpty())
        fail(QStringLiteral("leaves behind, after %1 widgets were made and deleted: %2")
                 .arg(QString::number(cycles), left.join(", ")));
}

void leavesNoMemory(Subject& subject)
{
    constexpr int warmUp = 100;
    constexpr int full = 300;
    constexpr int least = 150;
    const int cycles = subject.share(full, least);
    constexpr qint64 mostBytes = 256; // for each widget: what Qt itself keeps comes to some 100
    const auto live = [&](int count) {
        for (int i = 0; i < count; ++i) {
            Stage stage(subject);
            stage.host().welcome();
            stage.host().connected();
            stage.strike();
        }
        settle();
        return Ledger(0).heapBytes();
    };
    const qint64 none = Ledger(0).heapBytes();
    const QByteArray some(1000000, 'x');
    if (Ledger(0).heapBytes() - none < some.size())
        skip(QStringLiteral(
            "the memory of this program is not counted: a sanitizer does that itself"));
    const qint64 before = live(warmUp);
    const qint64 half = live(cycles);
    const qint64 after = live(cycles);
    const qint64 growth = std::min(half - before, after - half) / cycles; // a cache grows once
    if (growth > mostBytes)
        fail(QStringLiteral(
                 "keeps some %1 bytes of memory for each widget that was made and deleted")
                 .arg(growth));
}

void serveDevicesApart(Subject& subject)
{
    constexpr std::size_t count = 10;
    std::vector<std::unique_ptr<Stage>> stages;
    for (std::size_t i = 0; i < count; ++i) {
        stages.push_back(std::make_unique<Stage>(subject));
        stages.back()->host().welcome();
    }
    const auto expectOthersQuiet = [&](std::size_t one, const QString& what,
                                       const std::vector<quint64>& marks) {
        for (std::size_t i = 0; i < stages.size(); ++i) {
            if (i == one || !stages[i])
                continue;
            const auto calls = stages[i]->host().callsSince(marks[i]);
            if (!calls.empty())
                fail(QStringLiteral("mixes up devices: %1 of one device makes a call %2 to another")
                         .arg(what, QLatin1String(calls.front().name)));
        }
    };
    const auto marksNow = [&] {
        std::vector<quint64> marks;
        marks.reserve(stages.size());
        for (const auto& stage : stages)
            marks.push_back(stage ? stage->host().mark() : 0);
        return marks;
    };
    for (const std::size_t one : {std::size_t{0}, count / 2, count - 1}) {
        Stage& stage = *stages[one];
        auto marks = marksNow();
        stage.show();
        stage.tellEverything();
        expectOthersQuiet(one, QStringLiteral("what is told to the widget"), marks);
        stage::forEachControl(*stage.widget(), [&](QWidget& control) {
            marks = marksNow();
            expectOthersQuiet(one, stage::use(control), marks);
        });
        if (stage.widget())
            stage.widget()->hide();
    }
    // In an order that is neither that of their making nor its reverse.
    for (const std::size_t i : {5, 0, 9, 3, 7, 1, 8, 2, 6, 4}) {
        const auto marks = marksNow();
        stages[i].reset();
        expectOthersQuiet(i, QStringLiteral("deleting the widget"), marks);
    }
}

} // namespace

Tests lifeTests()
{
    constexpr auto widget = Test::Scope::Widget;
    return {
        {"new-widget", 2, widget, isNewEachTime,
         "gives a new, hidden widget without a parent each time"},
        {"orders", 2, widget, takesEveryOrder, "takes what a host does in every order"},
        {"deletion", 2, widget, canBeDeletedAnyWay, "can be deleted at any time and in any way"},
        {"ledger", 2, widget, leavesNothing,
         "leaves no object, timer, window, connection, thread or file"},
        {"memory", 2, widget, leavesNoMemory, "gives back all its memory"},
        {"ten-devices", 2, widget, serveDevicesApart, "keeps ten devices apart"},
    };
}

} // namespace host::check::tests
