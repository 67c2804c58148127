// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/connection/Remappings.h"

#include "rosbridge/protocol/Services.h"
#include "rosbridge/protocol/Topics.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace host::device::connection {

namespace service = rosbridge::protocol::service;
namespace topic = rosbridge::protocol::topic;

namespace {

/// One line of the tables, of a topic or a service.
template <class Named>
struct Row
{
    Named named;
    const char* purpose = nullptr;
    bool isRequired = true;
};

// clang-format off
const Row<rosbridge::protocol::Topic> topics[] = {
    {topic::scan,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the laser's scans")},
    {topic::cameraInfo,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the camera's rate")},
    {topic::cameraImage,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the camera's pictures")},
    {topic::jointStates,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the arm's position, and storing it")},
    {topic::armState,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the arm's targets")},
    {topic::armTorqueEnabled,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the state of the arm's torque")},
    {topic::armLineEnabled[0],
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the state of supply line 1")},
    {topic::armLineEnabled[1],
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the state of supply line 2")},
    {topic::armLineEnabled[2],
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the state of supply line 3")},
    {topic::driveDisabled,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the state of the drive")},
    {topic::odometry,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the robot's position")},
    {topic::footprint,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the robot's outline"),
     false},
    {topic::map,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the map")},
    {topic::transforms,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the positions of the robot and its laser on the map")},
    {topic::staticTransforms,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "fixed frames, if any"),
     false},
    {topic::log,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the robot's own log messages")},
    {topic::stopped,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "whether the robot is stopped"),
     false},
};

const Row<rosbridge::protocol::Topic> commands[] = {
    {topic::velocityCommand,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "driving")},
    {topic::armCommand,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "moving the arm")},
};

const Row<rosbridge::protocol::Service> services[] = {
    {service::acquireControl,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "exclusive control")},
    {service::releaseControl,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "releasing control")},
    {service::disableDrive,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "disabling the drive")},
    {service::setCamera,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "setting the camera's resolution")},
    {service::armTorque,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "switching the arm's torque")},
    {service::armLine[0],
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "switching supply line 1")},
    {service::armLine[1],
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "switching supply line 2")},
    {service::armLine[2],
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "switching supply line 3")},
    {service::stop,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "stopping all motion"),
     false},
    {service::releaseStop,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "letting the robot move again after a stop"),
     false},
    {service::topics,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the list of topics")},
    {service::services,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the list of services")},
    {service::publishers,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "the list of topics that are published"),
     false},
    {service::parameter,
     QT_TRANSLATE_NOOP("host::device::connection::Remappings", "detecting a simulated robot")},
};
// clang-format on

std::vector<Remappings::Entry> makeAll()
{
    std::vector<Remappings::Entry> entries;
    const auto add = [&](Remappings::Kind kind, const auto& row) {
        entries.push_back({kind, row.named.name, row.named.type, row.purpose, row.isRequired});
    };
    for (const auto& row : topics)
        add(Remappings::Kind::Topic, row);
    for (const auto& row : commands)
        add(Remappings::Kind::Command, row);
    for (const auto& row : services)
        add(Remappings::Kind::Service, row);
    return entries;
}

QString unknown(const QString& ours)
{
    QStringList known;
    for (const Remappings::Entry& entry : Remappings::all())
        known += entry.name;
    return Remappings::tr("This program does not use the name \"%1\": choose one of %2.")
        .arg(ours, known.join(QStringLiteral(", ")));
}

/// What is wrong with a file's entries, or nothing.
QString faultOf(const QJsonObject& entries)
{
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        if (!Remappings::find(entry.key()))
            continue;
        if (!entry->isString())
            return Remappings::tr("the name for \"%1\" is not text").arg(entry.key());
        QString fault = Remappings::fault(entry->toString());
        if (!fault.isEmpty())
            return fault;
    }
    return {};
}

} // namespace

const std::vector<Remappings::Entry>& Remappings::all()
{
    static const std::vector<Entry> entries = makeAll();
    return entries;
}

const Remappings::Entry* Remappings::find(const QString& ours)
{
    const auto entry = std::find_if(all().begin(), all().end(),
                                    [&](const Entry& each) { return each.name == ours; });
    return entry == all().end() ? nullptr : &*entry;
}

QString Remappings::fault(const QString& theirs)
{
    static const QRegularExpression name(QStringLiteral("\\A(/[A-Za-z_][A-Za-z0-9_]*)+\\z"));
    if (name.match(theirs).hasMatch())
        return {};
    return tr("\"%1\" is not a valid name of a topic or service: write it as in /front/scan. Each "
              "part consists of letters from A to Z, digits and \"_\", and does not begin with a "
              "digit.")
        .arg(theirs);
}

std::optional<Remappings::Mapping> Remappings::parseOption(const QString& text, QString* error)
{
    const QString sign = QStringLiteral(":=");
    const QString ours = text.section(sign, 0, 0);
    const QString theirs = text.section(sign, 1);
    if (!text.contains(sign))
        *error = tr("\"%1\" is not a mapping: write our name, \":=\" and the robot's, as in "
                    "/scan:=/base_scan.")
                     .arg(text);
    else if (Remappings().set(ours, theirs, error))
        return Mapping(ours, theirs);
    return std::nullopt;
}

QString Remappings::load(const QString& folder, const QString& deviceName)
{
    m_file.emplace(folder, deviceName, QStringLiteral(".names"), &faultOf);
    QString problem = m_file->load();
    const QJsonObject stored = m_file->entries();
    for (const Entry& entry : all()) {
        if (!stored.contains(entry.name))
            continue;
        m_theirs.insert(entry.name, stored.value(entry.name).toString());
        Q_EMIT changed(entry.name);
    }
    return problem;
}

QString Remappings::theirs(const QString& ours) const
{
    return m_theirs.value(ours, ours);
}

bool Remappings::set(const QString& ours, const QString& theirs, QString* error)
{
    const QString why = find(ours) ? fault(theirs) : unknown(ours);
    if (!why.isEmpty()) {
        if (error)
            *error = why;
        return false;
    }
    if (theirs == this->theirs(ours))
        return true;
    if (theirs == ours)
        m_theirs.remove(ours);
    else
        m_theirs.insert(ours, theirs);
    remember(ours);
    Q_EMIT changed(ours);
    return true;
}

void Remappings::reset()
{
    const QStringList mapped = m_theirs.keys();
    for (const QString& ours : mapped)
        set(ours, ours);
}

void Remappings::remember(const QString& ours)
{
    if (!m_file)
        return;
    if (m_theirs.contains(ours))
        m_file->insert(ours, m_theirs.value(ours));
    else
        m_file->remove(ours);
    const QString words = m_file->save();
    if (!words.isEmpty())
        Q_EMIT problem(words);
}

} // namespace host::device::connection
