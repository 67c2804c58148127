// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/tests/BadValueTests.h"

#include "host/check/stage/BadHost.h"
#include "host/check/stage/BadValues.h"
#include "host/check/stage/Controls.h"
#include "host/check/stage/Progress.h"
#include "host/check/stage/Stage.h"
#include "host/check/stage/Subject.h"

#include <QScrollArea>

#include <limits>
#include <memory>

namespace host::check::tests {

namespace {

using stage::BadHost;
using stage::badValues;
using stage::Progress;
using stage::settle;
using stage::Stage;
using stage::Subject;
using stage::usualValues;
using stage::Variable;
using stage::Variant;

/// Those of hosts, those of devices and what is neither.
const std::vector<int>& roles()
{
    static const std::vector<int> all = [] {
        constexpr int many = 32;
        constexpr int ofDevices = 1000;
        std::vector<int> numbers{-1, std::numeric_limits<int>::min(),
                                 std::numeric_limits<int>::max()};
        for (int i = 0; i < many; ++i)
            numbers.insert(numbers.end(), {i, ofDevices + i});
        return numbers;
    }();
    return all;
}

/// Now a sound one, now a bad one.
const Variant& draw(Subject& subject, unsigned int badAmong)
{
    const auto& values = subject.random()() % badAmong == 0 ? badValues() : usualValues();
    return values[subject.random()() % values.size()];
}

/// Shows the widget in a window that does not grow with what a widget makes of a long text. The
/// window owns it.
std::unique_ptr<QScrollArea> showScrolled(Stage& stage)
{
    auto window = std::make_unique<QScrollArea>();
    window->setWidget(stage.widget());
    window->show();
    window->activateWindow();
    stage.show();
    return window;
}

void updateAll(Subject& subject, Stage& stage)
{
    const auto registered = stage.host().usage().registered; // an update may register more
    for (const Variable& variable : registered) {
        if (subject.isSpared(variable.second))
            continue;
        for (const Variant& value : badValues()) {
            Progress::note("an update of the " + stage::inWords(variable, value));
            stage.host().change(variable, value);
            settle();
        }
        for (const Variant& value : usualValues())
            stage.host().change(variable, value);
    }
}

void takesEveryUpdate(Subject& subject)
{
    Stage stage(subject);
    stage.host().welcome();
    updateAll(subject, stage);
    const auto window = showScrolled(stage);
    updateAll(subject, stage);
    stage.host().translate();
    settle();
}

void takesEveryMessage(Subject& subject)
{
    Stage stage(subject);
    stage.host().welcome();
    std::unique_ptr<QScrollArea> window;
    for (const bool isShown : {false, true}) {
        if (isShown)
            window = showScrolled(stage);
        for (const Variant& value : badValues()) {
            const QString words = stage::inWords(value);
            for (const int role : roles()) {
                Progress::note(
                    QStringLiteral("a message of role %1, %2").arg(QString::number(role), words));
                stage.host().message(role, value);
            }
            settle();
        }
    }
}

/// A life with a device that answers everything with what @p draw gives.
void liveWith(Subject& subject, const BadHost::Answer& answer, bool isUsed)
{
    auto host = std::make_unique<BadHost>(subject.complaints());
    host->answerWith([&](const std::string& name) {
        return subject.isSpared(name) ? usualValues().front() : answer(name);
    });
    Stage stage(subject, std::move(host));
    stage.host().welcome();
    const auto window = showScrolled(stage);
    stage.host().connected();
    settle();
    if (isUsed)
        stage::forEachControl(*stage.widget(), [](QWidget& control) {
            Progress::note("the use of the " + stage::nameOf(control));
            stage::use(control);
        });
    stage.host().translate();
    stage.host().disconnected();
    settle();
}

void takesEveryAnswer(Subject& subject)
{
    constexpr int rounds = 10;
    for (const Variant& value : badValues()) {
        Progress::note("every variable and answer is " + stage::inWords(value));
        liveWith(
            subject, [&](const std::string&) { return value; }, false);
    }
    for (int i = 0; i < rounds; ++i) {
        Progress::note(QStringLiteral("every variable and answer is something else"));
        liveWith(
            subject, [&](const std::string&) { return draw(subject, 2); }, true);
    }
}

void takesManyUpdates(Subject& subject)
{
    constexpr int updates = 1000000;
    constexpr int atOnce = 1000;
    constexpr unsigned int messagesAmong = 4; // one in so many
    constexpr unsigned int badAmong = 100;    // likewise: they may be long
    Stage stage(subject);
    stage.host().welcome();
    const auto window = showScrolled(stage);
    std::vector<Variable> variables;
    for (const Variable& variable : stage.host().usage().registered) {
        if (!subject.isSpared(variable.second))
            variables.push_back(variable);
    }
    const int count = subject.share(updates);
    for (int i = 0; i < count && stage.widget(); ++i) {
        const Variant& value = draw(subject, badAmong);
        if (variables.empty() || subject.random()() % messagesAmong == 0)
            stage.host().message(roles()[subject.random()() % roles().size()], value);
        else
            stage.host().change(variables[subject.random()() % variables.size()], value);
        if (i % atOnce != 0)
            continue;
        Progress::note(QStringLiteral("%1 updates and messages").arg(i));
        settle();
    }
}

} // namespace

Tests badValueTests()
{
    constexpr auto widget = Test::Scope::Widget;
    return {
        {"bad-updates", 4, widget, takesEveryUpdate,
         "takes values of any type, size and kind for its variables"},
        {"bad-messages", 4, widget, takesEveryMessage, "takes messages of any role and value"},
        {"bad-answers", 4, widget, takesEveryAnswer,
         "can be built, shown and used whatever it reads"},
        {"many-updates", 4, widget, takesManyUpdates, "takes a million updates and messages", 1, 5},
    };
}

} // namespace host::check::tests
