// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/script/ExpectCommands.h"

#include "host/device/Device.h"
#include "host/workbench/script/Controls.h"
#include "host/workbench/script/Scene.h"
#include "host/workbench/script/VariableWords.h"
#include "host/workbench/values/ValueText.h"

#include <QAbstractButton>
#include <QRegularExpression>
#include <QWidget>

#include <algorithm>

namespace host::workbench::script {

using device::trace::PluginCall;

namespace {

constexpr int mostSeen = 400; // characters of what is seen instead
constexpr int mostCalls = 10; // of those that are seen instead

QString shortened(const QString& text)
{
    const QString line = QString(text).replace('\n', " | ");
    return line.size() <= mostSeen ? line : line.left(mostSeen) + QChar(0x2026);
}

/// A statement that does nothing but look.
template <Progress (*look)(const Scene&, const Arguments&)>
Attempt looking(Scene& scene, const Arguments& arguments)
{
    return [&scene, arguments] { return look(scene, arguments); };
}

bool isWrite(const PluginCall& call)
{
    return QLatin1String(call.name).startsWith(QLatin1String("write"));
}

QString argument(const PluginCall& call, std::size_t index)
{
    return index < call.arguments->size() ? values::toText((*call.arguments)[index].value)
                                          : QString();
}

} // namespace

Commands ExpectCommands::all()
{
    using Kind = Command::Kind;
    return {
        {"expect [no] text TEXT [in CONTROL]", Kind::Look, looking<text>},
        {"expect [no] match PATTERN [in CONTROL]", Kind::Look, looking<text>},
        {"expect control CONTROL [in PLACE] BEING=shown|hidden|enabled|disabled|checked|unchecked",
         Kind::Look, looking<control>},
        {"expect variable KIND=input|output|state|config NAME VALUE", Kind::Look,
         looking<variable>},
        {"expect write NAME [VALUE]", Kind::Look, looking<write>},
        {"expect call FUNCTION [ARGUMENT…]", Kind::Look, looking<call>},
    };
}

QString ExpectCommands::expected(const QString& name, const QString& value)
{
    const bool isWrong = name == "PATTERN" && !QRegularExpression(value).isValid();
    return isWrong ? tr("a regular expression") : QString();
}

Progress ExpectCommands::text(const Scene& scene, const Arguments& arguments)
{
    QString problem;
    const QWidget* const control =
        arguments.has("in") ? Controls::find(scene, arguments.value("CONTROL"), {}, &problem)
                            : nullptr;
    if (!problem.isEmpty())
        return Progress::waiting(problem);
    const QString seen = control ? Controls::text(*control) : Controls::text(scene);
    const bool isThere =
        arguments.has("match")
            ? QRegularExpression(arguments.value("PATTERN"), QRegularExpression::MultilineOption)
                  .match(seen)
                  .hasMatch()
            : seen.contains(arguments.value("TEXT"));
    return isThere != arguments.has("no")
               ? Progress::done()
               : Progress::waiting(tr("it shows \"%1\"").arg(shortened(seen)));
}

Progress ExpectCommands::control(const Scene& scene, const Arguments& arguments)
{
    const QString being = arguments.value("BEING");
    const QString name = arguments.value("CONTROL");
    const QString place = arguments.value("PLACE");
    if (being == "hidden" && !Controls::isAny(scene, name, place))
        return Progress::done();
    QString problem;
    const QWidget* const control = Controls::find(scene, name, place, &problem);
    if (!control)
        return Progress::waiting(problem);
    if (being == "hidden")
        return Progress::waiting(
            tr("it is shown, with \"%1\"").arg(shortened(Controls::text(*control))));
    const auto* const button = qobject_cast<const QAbstractButton*>(control);
    const bool isChecked = button && button->isChecked();
    const bool isSo = being == "shown" || (being == "enabled" && control->isEnabled()) ||
                      (being == "disabled" && !control->isEnabled()) ||
                      (being == "checked" && isChecked) || (being == "unchecked" && !isChecked);
    return isSo ? Progress::done() : Progress::waiting(tr("it is not"));
}

Progress ExpectCommands::variable(const Scene& scene, const Arguments& arguments)
{
    const auto [kind, name] = variableOf(arguments);
    const auto value = scene.device().variables().value(kind, name.c_str());
    return values::toText(value) == arguments.value("VALUE")
               ? Progress::done()
               : Progress::waiting(tr("it is %1").arg(values::inWords(value)));
}

Progress ExpectCommands::write(const Scene& scene, const Arguments& arguments)
{
    return find(scene, isWrite, [&](const PluginCall& call) {
        return isWrite(call) && argument(call, 0) == arguments.value("NAME") &&
               (!arguments.has("VALUE") || argument(call, 1) == arguments.value("VALUE"));
    });
}

Progress ExpectCommands::call(const Scene& scene, const Arguments& arguments)
{
    const QStringList wanted = arguments.values("ARGUMENT");
    const auto any = [](const PluginCall&) { return true; };
    return find(scene, any, [&](const PluginCall& call) {
        bool isMeant = arguments.value("FUNCTION") == QLatin1String(call.name);
        for (int i = 0; i < wanted.size() && isMeant; ++i)
            isMeant = argument(call, static_cast<std::size_t>(i)) == wanted.at(i);
        return isMeant;
    });
}

/// Where none is meant, the last ones that are near are told of.
Progress ExpectCommands::find(const Scene& scene, const IsMeant& isNear, const IsMeant& isMeant)
{
    const auto& traffic = scene.device().traffic();
    QStringList seen;
    for (auto number = traffic.end(); number > scene.marked(); --number) {
        const PluginCall& call = *traffic.call(number - 1);
        if (isMeant(call))
            return Progress::done();
        if (seen.size() < mostCalls && isNear(call) && !seen.contains(inWords(call)))
            seen.prepend(inWords(call));
    }
    return Progress::waiting(seen.isEmpty() ? tr("there was none")
                                            : tr("there were: %1").arg(seen.join(", ")));
}

QString ExpectCommands::inWords(const PluginCall& call)
{
    QStringList arguments;
    for (const auto& argument : *call.arguments)
        arguments << values::inWords(argument.value);
    return QStringLiteral("%1(%2)").arg(QLatin1String(call.name), arguments.join(", "));
}

} // namespace host::workbench::script
