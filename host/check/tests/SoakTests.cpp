// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/tests/SoakTests.h"

#include "host/check/stage/Actions.h"
#include "host/check/stage/BadHost.h"
#include "host/check/stage/BadValues.h"
#include "host/check/stage/Complaints.h"
#include "host/check/stage/Failure.h"
#include "host/check/stage/Ledger.h"
#include "host/check/stage/Monkey.h"
#include "host/check/stage/Progress.h"
#include "host/check/stage/Stage.h"
#include "host/check/stage/Subject.h"
#include "host/workbench/replay/Assertion.h"

#include <QPixmapCache>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace host::check::tests {

namespace {

using stage::Action;
using stage::ActionList;
using stage::BadHost;
using stage::fail;
using stage::Ledger;
using stage::Progress;
using stage::settle;
using stage::skip;
using stage::Stage;
using stage::Subject;
using stage::Variable;
using stage::Variant;

/// What happens to a widget in one part of its life.
using Part = void (*)(Subject& subject, Stage& stage);

const Variant& drawValue(Subject& subject)
{
    constexpr unsigned int badAmong = 10; // one in so many: they may be long
    auto& random = subject.random();
    const auto& values = random() % badAmong == 0 ? stage::badValues() : stage::usualValues();
    return values[random() % values.size()];
}

/// In any order.
void beNotified(Subject& subject, Stage& stage)
{
    constexpr std::size_t most = 12;
    auto& random = subject.random();
    ActionList actions = stage::notifications(stage.host().usage(), random);
    std::shuffle(actions.begin(), actions.end(), random);
    actions.resize(std::min(actions.size(), random() % most));
    stage::play(actions, stage);
}

/// With nothing in between.
void beFlooded(Subject& subject, Stage& stage)
{
    constexpr int deliveries = 100;
    constexpr unsigned int mostRoles = 8; // of hosts, and as many of devices
    constexpr unsigned int ofDevices = 1000;
    auto& random = subject.random();
    std::vector<Variable> variables;
    for (const Variable& variable : stage.host().usage().registered) {
        if (!subject.isSpared(variable.second))
            variables.push_back(variable);
    }
    Progress::note(QStringLiteral("a flood of updates and messages"));
    for (int i = 0; i < deliveries; ++i) {
        const Variant& value = drawValue(subject);
        if (variables.empty() || random() % 2 == 0)
            stage.host().message(static_cast<int>(random() % mostRoles + random() % 2 * ofDevices),
                                 value);
        else
            stage.host().change(variables[random() % variables.size()], value);
    }
}

void beUsed(Subject& subject, Stage& stage)
{
    constexpr int actions = 30;
    stage.widget()->show();
    stage.widget()->activateWindow();
    settle();
    int done = 0;
    Progress::note(QStringLiteral("a person's actions"));
    stage::Monkey monkey(stage, [&]() -> std::optional<Action> {
        if (done++ >= actions || !subject.complaints().all().isEmpty())
            return std::nullopt;
        return stage::drawFromScreen(stage, subject.random());
    });
    monkey.run();
}

void liveOnce(Subject& subject)
{
    static constexpr std::array<Part, 3> parts{beNotified, beFlooded, beUsed};
    static constexpr std::array writes{BadHost::Writes::Taken, BadHost::Writes::Refused};
    constexpr unsigned int mostParts = 4;
    auto& random = subject.random();
    auto owned = std::make_unique<BadHost>(subject.complaints());
    BadHost& host = *owned;
    host.treatWritesAs(writes[random() % writes.size()]);
    Stage stage(subject, std::move(owned));
    host.welcome();
    const unsigned int count = 1 + random() % mostParts;
    for (unsigned int i = 0; i < count; ++i) {
        parts[random() % parts.size()](subject, stage);
        settle();
        if (!stage.widget())
            fail(QStringLiteral("deletes its widget, which belongs to its host"));
        host.answerWrites(1);
    }
    stage.strike();
    settle();
}

/// By how many bytes it grew in each life, of what was in use after each. Caches grow at first, or
/// once; what is lost is lost all the time.
qint64 slope(const std::vector<qint64>& bytes)
{
    constexpr int parts = 4;
    const auto length = static_cast<std::ptrdiff_t>(bytes.size() / parts);
    const auto leastIn = [&](int part) {
        const auto begin = bytes.begin() + part * length;
        return *std::min_element(begin, begin + length);
    };
    return std::min(leastIn(2) - leastIn(1), leastIn(3) - leastIn(2)) / length;
}

void standsItAll(Subject& subject)
{
    constexpr int full = 1000;
    constexpr int least = 100;              // fewer do not tell a leak from a cache
    constexpr qint64 mostBytes = 1024;      // for each life
    constexpr qint64 mostOfCaches = 200000; // in all, which show where lives are few
    const int lives = subject.share(full, least);
    std::vector<qint64> bytes;
    for (int i = 0; i < lives && subject.complaints().all().isEmpty(); ++i) {
        liveOnce(subject);
        QPixmapCache::clear(); // Qt's, which keeps up to 10 MB
        bytes.push_back(Ledger(0).heapBytes());
    }
    Progress::note(QString());
    if (!subject.complaints().all().isEmpty())
        return;
    const qint64 growth = slope(bytes);
    if (growth > mostBytes + mostOfCaches / lives)
        fail(QStringLiteral("keeps some %1 bytes of memory for each of %2 lives of its widget with "
                            "everything in them")
                 .arg(QString::number(growth), QString::number(lives)));
    subject.remark(QStringLiteral("%1 lives of its widget, memory grows by %2 bytes with each")
                       .arg(QString::number(lives), QString::number(growth)));
}

void doesAsRecorded(Subject& subject)
{
    if (subject.recording().isEmpty())
        skip(QStringLiteral("no recording was given with --recording"));
    const workbench::replay::Assertion assertion(subject.recording(), subject.loader());
    const QString words = assertion.words().join("; ");
    if (!assertion.isSame())
        fail(QStringLiteral("does not do what it did when it was recorded: ") + words);
    subject.remark(words);
}

} // namespace

Tests soakTests()
{
    constexpr auto plugin = Test::Scope::Plugin;
    constexpr auto widget = Test::Scope::Widget;
    return {
        {"soak", 10, widget, standsItAll,
         "stands everything mixed, for minutes, and gives back its memory", 1, 5},
        {"recording", 10, plugin, doesAsRecorded, "does what it did when it was recorded"},
    };
}

} // namespace host::check::tests
