// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/stage/Actions.h"

#include "host/check/stage/Progress.h"
#include "host/check/stage/Stage.h"
#include "host/check/stage/Values.h"
#include "host/input/ControlPath.h"
#include "plugin/gui/DeviceWidget.h"

#include <QHash>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cstddef>

namespace host::check::stage {

namespace {

constexpr int leastRole = 1000; // devices have their own above it
constexpr int mostRoles = 10;

const Variant& valueOf(const Action& action)
{
    const std::vector<Variant>& values = usualValues();
    return values[action.value.toUInt() % values.size()];
}

/// "config brightness" and back.
const std::array<QString, 4>& kinds()
{
    static const std::array<QString, 4> names{QStringLiteral("input"), QStringLiteral("output"),
                                              QStringLiteral("state"), QStringLiteral("config")};
    return names;
}

QString targetOf(const Variable& variable)
{
    return kinds()[static_cast<std::size_t>(variable.first)] + ' ' +
           QString::fromLatin1(variable.second.c_str());
}

Variable variableOf(const QString& target)
{
    Variable variable;
    for (std::size_t i = 0; i < kinds().size(); ++i) {
        if (target.startsWith(kinds()[i] + ' '))
            variable = {static_cast<plugin::gui::VariableKind>(i),
                        target.mid(kinds()[i].size() + 1).toLatin1().toStdString()};
    }
    return variable;
}

using Deed = void (*)(const Action& action, Stage& stage);

const QHash<QString, Deed>& deeds()
{
    static const QHash<QString, Deed> all{
        {"show", [](const Action&, Stage& stage) { stage.widget()->show(); }},
        {"hide", [](const Action&, Stage& stage) { stage.widget()->hide(); }},
        {"resize",
         [](const Action& action, Stage& stage) {
             stage.widget()->resize(action.value.toInt(), action.value.toInt());
         }},
        {"translate", [](const Action&, Stage& stage) { stage.host().translate(); }},
        {"connected", [](const Action&, Stage& stage) { stage.host().connected(); }},
        {"disconnected", [](const Action&, Stage& stage) { stage.host().disconnected(); }},
        {"message",
         [](const Action& action, Stage& stage) {
             stage.host().message(action.target.toInt(), valueOf(action));
         }},
        {"update",
         [](const Action& action, Stage& stage) {
             stage.host().change(variableOf(action.target), valueOf(action));
         }},
    };
    return all;
}

/// Those that a person sees in @p screen, itself included.
QList<QWidget*> seenIn(QWidget& screen)
{
    QList<QWidget*> seen{&screen};
    for (QWidget* widget : screen.findChildren<QWidget*>()) {
        if (widget->isVisibleTo(&screen) && widget->isEnabled() && widget->window() == &screen)
            seen << widget;
    }
    return seen;
}

} // namespace

ActionList notifications(const Usage& usage, std::mt19937& random)
{
    ActionList actions;
    for (const char* verb : {"show", "hide", "translate", "connected", "disconnected"})
        actions.insert(actions.end(), 2, {QLatin1String(verb), QString(), QString()});
    for (const char* size : {"10", "1000"})
        actions.push_back({"resize", QString(), QLatin1String(size)});
    const auto draw = [&] { return QString::number(random() % usualValues().size()); };
    for (const Variable& variable : usage.registered)
        actions.push_back({"update", targetOf(variable), draw()});
    for (int i = 0; i < mostRoles; ++i)
        actions.push_back({"message", QString::number(i % 2 == 0 ? i : leastRole + i), draw()});
    return actions;
}

Action drawFromScreen(const Stage& stage, std::mt19937& random)
{
    static const QStringList keys{"Tab",   "Return", "Esc",  "Up",  "Down",     "Left",
                                  "Right", "Space",  "Home", "End", "Delete",   "F2",
                                  "7",     "a",      "-",    ".",   "Backspace"};
    static const QStringList verbs{"click", "click",       "click",        "click", "press",
                                   "press", "right-click", "double-click", "drag"};
    const auto draw = [&](qsizetype end) {
        return static_cast<int>(random() % static_cast<std::size_t>(std::max<qsizetype>(end, 1)));
    };
    QWidget& screen = *input::screenAbove(stage.widget());
    const QString& verb = verbs.at(draw(verbs.size()));
    if (verb == QLatin1String("press"))
        return {verb, QString(), keys.at(draw(keys.size()))};
    const QList<QWidget*> seen = seenIn(screen);
    const QWidget& control = *seen.at(draw(seen.size()));
    const auto place = [&] {
        const int x = draw(control.width());
        return QStringLiteral("%1,%2").arg(x).arg(draw(control.height()));
    };
    QString value = place();
    if (verb == QLatin1String("drag"))
        value += ' ' + place();
    return {verb, input::pathOf(control, screen), value};
}

void perform(const Action& action, Stage& stage)
{
    QWidget* const screen = input::screenAbove(stage.widget());
    if (const Deed deed = deeds().value(action.verb))
        deed(action, stage);
    else if (QWidget* const control = screen ? input::controlOf(action, *screen) : nullptr)
        input::perform(action, *control);
}

void play(const ActionList& actions, Stage& stage)
{
    QStringList done;
    for (const Action& action : actions) {
        if (!stage.widget())
            return;
        done << action.inWords();
        Progress::note(done.join(", "));
        perform(action, stage);
        settle();
    }
    Progress::note(QString());
}

} // namespace host::check::stage
