// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/connection/ArmJoints.h"

#include <algorithm>
#include <array>

namespace host::device::connection {

using readers::JointTable;
using Unit = JointTable::Unit;

namespace {

const QString jointField = QStringLiteral("joint");
const QString unitField = QStringLiteral("unit");
const QString reversedField = QStringLiteral("reversed");
const QString offsetField = QStringLiteral("offset");

QString inFile(Unit unit)
{
    switch (unit) {
    case Unit::Degrees:
        return QStringLiteral("deg");
    case Unit::Metres:
        return QStringLiteral("m");
    case Unit::Radians:
        break;
    }
    return QStringLiteral("rad");
}

std::optional<Unit> unitOf(const QString& text)
{
    for (const Unit unit : {Unit::Radians, Unit::Degrees, Unit::Metres}) {
        if (text == inFile(unit))
            return unit;
    }
    return std::nullopt;
}

QJsonObject inFile(const ArmJoints::Joint& joint)
{
    return {{jointField, joint.name},
            {unitField, inFile(joint.unit)},
            {reversedField, joint.isReversed},
            {offsetField, joint.offset}};
}

std::optional<ArmJoints::Joint> jointOf(const QJsonValue& entry)
{
    const QJsonObject fields = entry.toObject();
    const std::optional<Unit> unit = unitOf(fields.value(unitField).toString());
    if (!unit || !fields.value(jointField).isString() || !fields.value(reversedField).isBool() ||
        !fields.value(offsetField).isDouble())
        return std::nullopt;
    return ArmJoints::Joint{fields.value(jointField).toString(), *unit,
                            fields.value(reversedField).toBool(),
                            fields.value(offsetField).toDouble()};
}

/// What is wrong with a file's entries, or nothing.
QString faultOfJoints(const QJsonObject& entries)
{
    for (int axis = 0; axis < JointTable::axisCount; ++axis) {
        const QString name = JointTable::ownName(axis);
        if (entries.contains(name) && !jointOf(entries.value(name)))
            return ArmJoints::tr("the entry \"%1\" is no joint: it needs \"joint\", a text, "
                                 "\"unit\", which is rad, deg or m, \"reversed\", true or false, "
                                 "and \"offset\", a number")
                .arg(name);
    }
    return {};
}

/// Judged by its name: robots tell of all their joints alike.
bool isOfAnArm(const QString& joint)
{
    static const std::array others{QLatin1String("wheel"), QLatin1String("caster"),
                                   QLatin1String("gripper"), QLatin1String("finger")};
    return std::none_of(others.begin(), others.end(), [&joint](QLatin1String other) {
        return joint.contains(other, Qt::CaseInsensitive);
    });
}

} // namespace

QString ArmJoints::load(const QString& folder, const QString& deviceName)
{
    m_file.emplace(folder, deviceName, QStringLiteral(".joints"), &faultOfJoints);
    QString problem = m_file->load();
    const QJsonObject entries = m_file->entries();
    for (int axis = 0; axis < JointTable::axisCount; ++axis) {
        const auto joint = jointOf(entries.value(JointTable::ownName(axis)));
        if (!joint)
            continue;
        if (!m_entered)
            m_entered.emplace();
        m_entered->setJoint(axis, *joint);
    }
    update();
    return problem;
}

void ArmJoints::set(int axis, const Joint& joint)
{
    if (joint == m_table.joint(axis))
        return;
    m_entered = m_table;
    m_entered->setJoint(axis, joint);
    save();
    update();
}

void ArmJoints::reset()
{
    m_entered.reset();
    save();
    update();
}

void ArmJoints::seePresent(const QStringList& joints)
{
    see(m_present, joints);
}

void ArmJoints::seeTargets(const QStringList& joints)
{
    see(m_targets, joints);
}

void ArmJoints::forgetRobot()
{
    m_present = {};
    m_targets = {};
    update();
    Q_EMIT told();
}

QStringList ArmJoints::seen() const
{
    QStringList joints = m_targets.list;
    for (const QString& joint : m_present.list) {
        if (!m_targets.set.contains(joint))
            joints.append(joint);
    }
    return joints;
}

QStringList ArmJoints::notShown() const
{
    QStringList joints = seen();
    joints.erase(std::remove_if(joints.begin(), joints.end(),
                                [this](const QString& joint) {
                                    return m_table.contains(joint) || !isOfAnArm(joint);
                                }),
                 joints.end());
    return joints;
}

/// Where a trajectory names joints, it does so along the arm.
JointTable ArmJoints::guess() const
{
    JointTable own;
    QStringList arm;
    const QStringList joints = seen();
    for (const QString& joint : joints) {
        if (own.contains(joint))
            return own;
        if (isOfAnArm(joint))
            arm.append(joint);
    }
    return arm.isEmpty() ? own : JointTable(arm);
}

/// Several parts of a robot may tell of their joints in turn, many times a second.
void ArmJoints::see(Seen& seen, const QStringList& joints)
{
    const auto before = seen.list.size();
    for (const QString& joint : joints) {
        if (seen.list.size() == readers::JointPositions::mostJoints || seen.set.contains(joint))
            continue;
        seen.list.append(joint);
        seen.set.insert(joint);
    }
    if (seen.list.size() == before)
        return;
    update();
    Q_EMIT told();
}

void ArmJoints::update()
{
    const JointTable table = m_entered ? *m_entered : guess();
    if (table == m_table)
        return;
    m_table = table;
    Q_EMIT changed();
}

void ArmJoints::save()
{
    if (!m_file)
        return;
    for (int axis = 0; axis < JointTable::axisCount; ++axis) {
        if (m_entered)
            m_file->insert(JointTable::ownName(axis), inFile(m_entered->joint(axis)));
        else
            m_file->remove(JointTable::ownName(axis));
    }
    const QString words = m_file->save();
    if (!words.isEmpty())
        Q_EMIT problem(words);
}

} // namespace host::device::connection
