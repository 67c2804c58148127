// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/script/DeviceCommands.h"

#include "host/device/Device.h"
#include "host/workbench/script/Scene.h"
#include "host/workbench/script/VariableWords.h"
#include "host/workbench/values/ValueText.h"

#include <cmath>

namespace host::workbench::script {

using device::faults::Faults;
using olm::core::variant::Variant;

namespace {

constexpr double longestDelay = 60; // seconds

/// A statement that needs no time.
template <Progress (*act)(Scene&, const Arguments&)>
Attempt atOnce(Scene& scene, const Arguments& arguments)
{
    return [progress = act(scene, arguments)] { return progress; };
}

} // namespace

Commands DeviceCommands::all()
{
    using Kind = Command::Kind;
    return {
        {"set KIND=input|output|state|config NAME VALUE [as TYPE]", Kind::Act, atOnce<set>},
        {"send ROLE VALUE [as TYPE]", Kind::Act, atOnce<send>},
        {"fault drop", Kind::Act, atOnce<inject>},
        {"fault SWITCH=refuse|controller|freeze|writes [off]", Kind::Act, atOnce<inject>},
        {"fault delay DELAY", Kind::Act, atOnce<inject>},
        {"fault lose COUNT", Kind::Act, atOnce<inject>},
        {"fault type KIND=input|output|state|config NAME [off]", Kind::Act, atOnce<inject>},
        {"fault end", Kind::Act, atOnce<inject>},
    };
}

QString DeviceCommands::expected(const QString& name, const QString& value)
{
    bool isWhole = false;
    const int whole = value.toInt(&isWhole);
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (name == "ROLE" && !isWhole)
        return tr("a whole number");
    if (name == "COUNT" && !(isWhole && whole >= 0))
        return tr("a whole number from 0");
    if (name == "DELAY" && !(isNumber && number >= 0 && number <= longestDelay))
        return tr("a number of seconds from 0 to %1").arg(longestDelay);
    if (name == "TYPE" && typeNamed(value) < 0)
        return typeNames().join(", ");
    return {};
}

Progress DeviceCommands::set(Scene& scene, const Arguments& arguments)
{
    auto& variables = scene.device().variables();
    const auto [kind, name] = variableOf(arguments);
    const int type = arguments.has("as")
                         ? typeNamed(arguments.value("TYPE"))
                         : values::enterableType(variables.value(kind, name.c_str()));
    if (type <= 0 && !arguments.has("as"))
        return Progress::failed(
            tr("the variable has no value yet: say the type, as in \"as int\""));
    QString problem;
    const auto value = values::fromText(type, arguments.value("VALUE"), &problem);
    if (!value)
        return Progress::failed(problem);
    variables.set(kind, name.c_str(), *value);
    return Progress::done();
}

Progress DeviceCommands::send(Scene& scene, const Arguments& arguments)
{
    const int type = arguments.has("as") ? typeNamed(arguments.value("TYPE"))
                                         : values::enterableType(Variant(QString()));
    QString problem;
    const auto value = values::fromText(type, arguments.value("VALUE"), &problem);
    if (!value)
        return Progress::failed(problem);
    scene.device().sendMessage(::plugin::plugin::DataRole(arguments.value("ROLE").toInt()), *value);
    return Progress::done();
}

Progress DeviceCommands::inject(Scene& scene, const Arguments& arguments)
{
    struct Switch
    {
        const char* name;
        void (Faults::*set)(bool on);
    };
    static constexpr Switch switches[] = {
        {"refuse", &Faults::setNextRefused},
        {"controller", &Faults::setOtherController},
        {"freeze", &Faults::setScanFrozen},
        {"writes", &Faults::setWritesRefused},
    };
    Faults& faults = scene.device().faults();
    const bool isOn = !arguments.has("off");
    for (const Switch& each : switches) {
        if (arguments.value("SWITCH") == QLatin1String(each.name))
            (faults.*each.set)(isOn);
    }
    if (arguments.has("drop"))
        faults.dropLink();
    if (arguments.has("delay"))
        faults.setDelay(
            std::chrono::milliseconds(std::lround(1000 * arguments.value("DELAY").toDouble())));
    if (arguments.has("lose"))
        faults.setDropInterval(arguments.value("COUNT").toInt());
    if (arguments.has("type"))
        faults.setWrongType(variableOf(arguments), isOn);
    if (arguments.has("end"))
        faults.endAll();
    return Progress::done();
}

} // namespace host::workbench::script
