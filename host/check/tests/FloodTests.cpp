// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/tests/FloodTests.h"

#include "host/check/stage/Failure.h"
#include "host/check/stage/GuiTime.h"
#include "host/check/stage/Progress.h"
#include "host/check/stage/ShownState.h"
#include "host/check/stage/Stage.h"
#include "host/check/stage/Subject.h"
#include "host/check/stage/Values.h"

#include <QApplication>
#include <QElapsedTimer>

#include <vector>

namespace host::check::tests {

namespace {

using stage::fail;
using stage::GuiTime;
using stage::Progress;
using stage::settle;
using stage::shownState;
using stage::Stage;
using stage::Subject;
using stage::usualValues;
using stage::Variable;
using stage::Variant;
using stage::wait;
using Changes = stage::RecordingHost::Changes;

/// A message, or a bundle.
struct Delivery
{
    int role;
    Variant value;
    Changes changes; // none: it is a message
};

using Flood = std::vector<Delivery>;

QString inWords(const Delivery& delivery)
{
    if (delivery.changes.empty())
        return QStringLiteral("a message of role %1, %2")
            .arg(QString::number(delivery.role), stage::inWords(delivery.value));
    const auto& [variable, value] = delivery.changes.front();
    const QString first = "an update of the " + stage::inWords(variable, value);
    const std::size_t others = delivery.changes.size() - 1;
    return others == 0 ? first : QStringLiteral("%1 and %2 more").arg(first).arg(others);
}

void deliver(const Delivery& delivery, Stage& stage)
{
    if (delivery.changes.empty())
        stage.host().message(delivery.role, delivery.value);
    else
        stage.host().changeAll(delivery.changes);
}

/// As many as @p count. What a widget of the plugin registers is all in it.
Flood draw(Subject& subject, int count)
{
    constexpr unsigned int mostRoles = 8; // of hosts, and as many of devices
    constexpr int ofDevices = 1000;
    const std::vector<Variant>& values = usualValues();
    auto& random = subject.random();
    const auto value = [&]() -> const Variant& { return values[random() % values.size()]; };
    Stage stage(subject);
    stage.host().welcome();
    const auto& registered = stage.host().usage().registered;
    const std::vector<Variable> variables(registered.begin(), registered.end());
    Flood flood;
    flood.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        Delivery delivery{0, {}, {}};
        if (variables.empty() || random() % 2 == 0) {
            delivery.role = static_cast<int>(random() % mostRoles);
            if (random() % 2 == 0)
                delivery.role += ofDevices;
            delivery.value = value();
        } else {
            const std::size_t size = 1 + random() % variables.size();
            for (std::size_t j = 0; j < size; ++j) {
                const Variable& variable = variables[random() % variables.size()];
                delivery.changes.emplace_back(variable, value()); // drawn in this order everywhere
            }
        }
        flood.push_back(std::move(delivery));
    }
    return flood;
}

/// Without the focus: what a person is about to change may well stay as it is.
void showQuietly(Stage& stage)
{
    stage.widget()->show();
    settle();
    if (QWidget* const focus = QApplication::focusWidget())
        focus->clearFocus();
    settle();
}

enum class Way
{
    Slowly, ///< with all that follows from each, on the screen
    Shown,
    Hidden,
    NotYetShown
};

QString inWords(Way way)
{
    switch (way) {
    case Way::Hidden:
        return QStringLiteral(" while it is hidden, and it is shown again");
    case Way::NotYetShown:
        return QStringLiteral(" before it is shown for the first time");
    default:
        return {};
    }
}

void pourInto(Stage& stage, const Flood& flood, Way way)
{
    stage.host().welcome();
    stage.host().connected();
    if (way != Way::NotYetShown)
        showQuietly(stage);
    if (way == Way::Hidden)
        stage.widget()->hide();
    for (const Delivery& delivery : flood) {
        Progress::note(inWords(delivery) + inWords(way));
        deliver(delivery, stage);
        if (way == Way::Slowly)
            settle();
    }
    Progress::note(QString());
    if (!stage.widget()->isVisible())
        showQuietly(stage);
}

/// What a widget shows when it was told all of @p flood, and had time for it.
QMap<QString, QString> slowState(Subject& subject, const Flood& flood)
{
    constexpr int aftermath = 300; // ms for what comes by itself, such as updates put together
    Stage stage(subject);
    pourInto(stage, flood, Way::Slowly);
    wait(aftermath);
    return shownState(*stage.widget());
}

/// Where they are not the same.
QStringList differences(const QMap<QString, QString>& one, const QMap<QString, QString>& other)
{
    QStringList places;
    for (auto entry = one.begin(); entry != one.end(); ++entry) {
        if (other.value(entry.key()) != entry.value())
            places << entry.key();
    }
    for (auto entry = other.begin(); entry != other.end(); ++entry) {
        if (!one.contains(entry.key()))
            places << entry.key();
    }
    return places;
}

void endsAsIfSlow(Subject& subject)
{
    constexpr int deliveries = 500;
    constexpr int least = 50;
    constexpr int patience = 2000; // ms until it is as it should be
    constexpr int interval = 50;   // ms
    const Flood flood = draw(subject, subject.share(deliveries, least));
    const auto expected = slowState(subject, flood);
    for (const Way way : {Way::Shown, Way::Hidden, Way::NotYetShown}) {
        Stage stage(subject);
        pourInto(stage, flood, way);
        settle();
        QMap<QString, QString> shown = shownState(*stage.widget());
        QElapsedTimer clock;
        clock.start();
        while (shown != expected && clock.elapsed() < patience) {
            wait(interval);
            shown = shownState(*stage.widget());
        }
        const QStringList places = differences(shown, expected);
        if (places.isEmpty())
            continue;
        // What changes with time is not the same however slowly it is told.
        const auto later = slowState(subject, flood);
        for (const QString& place : places) {
            if (later.value(place) == expected.value(place))
                fail(QStringLiteral("does not show the final values: after %1 messages and updates "
                                    "as fast as they come%2, the %3 is \"%4\"; told one after the "
                                    "other it is \"%5\"")
                         .arg(QString::number(flood.size()), inWords(way), place,
                              shown.value(place), expected.value(place)));
        }
    }
}

#ifdef QUANDREL_SANITIZERS           // with which everything takes longer
constexpr qint64 longestTime = 1000; // ms
#else
constexpr qint64 longestTime = 100; // ms
#endif

/// Comes back as soon as one takes too long.
void pourMeasured(Subject& subject, const Flood& flood, GuiTime& time)
{
    constexpr std::size_t atOnce = 1000; // then what follows from them may happen
    Stage stage(subject);
    stage.host().welcome();
    stage.host().connected();
    const auto pour = [&](const QString& when) {
        for (std::size_t i = 0; i < flood.size() && time.milliseconds() <= longestTime; ++i) {
            const Delivery& delivery = flood[i];
            const auto words = [&] { return inWords(delivery) + when; };
            time.measure(words, [&] { deliver(delivery, stage); });
            if (i % atOnce == 0)
                settle();
        }
        settle();
    };
    pour(QStringLiteral(" before it is shown"));
    stage.widget()->show();
    pour(QStringLiteral(" while it is shown"));
    stage.widget()->hide();
    pour(QStringLiteral(" while it is hidden"));
    stage.widget()->show();
    settle();
}

void leavesTheThreadFree(Subject& subject)
{
    constexpr int deliveries = 10000;
    constexpr int runs = 2; // a machine has its moods
    const Flood flood = draw(subject, subject.share(deliveries));
    {
        Stage first(subject); // which loads fonts, for instance
        first.host().welcome();
        first.show();
    }
    for (int run = 1; run <= runs; ++run) {
        GuiTime time;
        pourMeasured(subject, flood, time);
        if (time.milliseconds() <= longestTime) {
            subject.remark(
                QStringLiteral("the longest time on the GUI thread, in %1 messages and updates "
                               "three times, was %2 ms, for %3; %4 ms are the most")
                    .arg(QString::number(flood.size()), QString::number(time.milliseconds()),
                         time.words(), QString::number(longestTime)));
            return;
        }
        if (run == runs)
            fail(QStringLiteral("keeps the GUI thread for %1 ms, %2 ms are the most: %3")
                     .arg(QString::number(time.milliseconds()), QString::number(longestTime),
                          time.words()));
    }
}

} // namespace

Tests floodTests()
{
    constexpr auto widget = Test::Scope::Widget;
    return {
        {"flood", 7, widget, endsAsIfSlow,
         "shows the final values however fast they come, shown, hidden and not yet shown"},
        {"gui-thread", 7, widget, leavesTheThreadFree,
         "does not keep the GUI thread to itself while it is told much"},
    };
}

} // namespace host::check::tests
