// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/plots/Recorder.h"

#include "host/device/Device.h"
#include "host/device/readers/JointPositions.h"
#include "host/device/variables/Latin1.h"
#include "host/workbench/plots/Numbers.h"

#include <chrono>
#include <cmath>
#include <utility>

namespace host::workbench::plots {

using device::connection::Connection;
using device::connection::Offer;
using device::readers::JointPositions;
using device::readers::JointTable;
using device::readers::RateMeter;
using device::variables::Variables;
using Kind = Quantity::Kind;

namespace {

using namespace std::chrono_literals;

constexpr auto tick = 250ms;
constexpr auto fieldInterval = 33ms; // so that an hour has room

Variables::Key variableOf(const Quantity& quantity)
{
    return {static_cast<Variables::Kind>(quantity.index),
            device::variables::toLatin1(quantity.name)};
}

/// None where the message, which may be of other joints only, does not tell of the axis.
std::optional<double> placeOf(int axis, const std::optional<JointPositions>& joints,
                              const JointTable& table)
{
    QString fault;
    const auto axes = joints ? table.axes(*joints, &fault) : std::nullopt;
    return axes ? axes->at(static_cast<std::size_t>(axis)) : std::nullopt;
}

} // namespace

Recorder::Recorder(device::Device& device, QObject* parent) : QObject(parent), m_device(device)
{
    m_tick.setInterval(tick);
    connect(&m_tick, &QTimer::timeout, this, &Recorder::onTick);
    connect(&device.offer(), &Offer::changed, this, &Recorder::arrange);
    connect(&device.offer(), &Offer::ready, this, &Recorder::arrange);
    connect(&device, &device::Device::connectionStateChanged, this, &Recorder::arrange);
    connect(&device.variables(), &Variables::touched, this, &Recorder::onTouched);
}

Recorder::~Recorder()
{
    for (const auto& line : m_lines)
        leave(*line);
}

void Recorder::setActive(bool active)
{
    if (active == m_isActive)
        return;
    m_isActive = active;
    for (const auto& line : m_lines)
        line->series.breakOff();
    arrange();
}

void Recorder::add(const Quantity& quantity)
{
    m_lines.push_back(std::make_unique<Line>());
    m_lines.back()->quantity = quantity;
    arrange();
}

void Recorder::remove(int index)
{
    const auto line = m_lines.begin() + index;
    leave(**line);
    m_lines.erase(line);
    arrange();
}

void Recorder::clear()
{
    for (const auto& line : m_lines)
        line->series.clear();
}

double Recorder::now()
{
    using Steady = std::chrono::steady_clock;
    using Seconds = std::chrono::duration<double>;
    static const Steady::time_point start = Steady::now();
    static const Seconds epoch = std::chrono::system_clock::now().time_since_epoch();
    return (epoch + Seconds(Steady::now() - start)).count();
}

void Recorder::arrange()
{
    const bool isConnected = m_device.connectionState() >= Connection::connected;
    for (const auto& line : m_lines) {
        if (!m_isActive || !isConnected)
            leave(*line);
        else if (line->quantity.isOfTopic() && line->follower == 0 && m_device.offer().isReady() &&
                 isOffered(line->quantity.topic()))
            follow(*line);
    }
    const bool isTicking = m_isActive && !m_lines.empty();
    if (!isTicking)
        m_tick.stop();
    else if (!m_tick.isActive())
        m_tick.start();
}

bool Recorder::isOffered(const QString& topic) const
{
    return m_device.offer().topics().contains(topic);
}

/// A rate counts all messages. Of the others as many are asked for as can be kept for an hour.
void Recorder::follow(Line& line)
{
    const QString topic = line.quantity.topic();
    line.meter = {};
    line.follower = m_device.connection().follow(
        topic, m_device.offer().topics().value(topic),
        [this, &line](const QCborMap& message) { take(line, message); },
        line.quantity.kind == Kind::Rate ? 0ms : fieldInterval);
}

void Recorder::leave(Line& line)
{
    if (line.follower == 0)
        return;
    m_device.connection().unfollow(std::exchange(line.follower, 0));
    line.series.breakOff();
}

void Recorder::take(Line& line, const QCborMap& message)
{
    QString fault;
    const Quantity& quantity = line.quantity;
    const auto recordPlace = [&](const std::optional<JointPositions>& joints) {
        if (const auto place = placeOf(quantity.index, joints, m_device.joints().table()))
            record(line, *place);
    };
    switch (quantity.kind) {
    case Kind::Present:
        recordPlace(JointPositions::readPresent(message, &fault));
        break;
    case Kind::Target:
        recordPlace(JointPositions::readTargets(message, &fault));
        break;
    case Kind::Rate:
        line.meter.arrived(RateMeter::TimePoint::clock::now());
        break;
    default:
        record(line, numberAt(message, quantity.path));
    }
}

void Recorder::readVariable(Line& line)
{
    const Variables::Entry* const entry = m_device.variables().find(variableOf(line.quantity));
    record(line, entry ? numberAt(entry->value, line.quantity.path) : std::nan(""));
}

void Recorder::onTouched(const Variables::Key& key)
{
    if (!m_isActive)
        return;
    for (const auto& line : m_lines) {
        if (line->quantity.kind == Kind::Variable && variableOf(line->quantity) == key)
            readVariable(*line);
    }
}

void Recorder::onTick()
{
    for (const auto& line : m_lines) {
        if (line->quantity.kind == Kind::Variable)
            readVariable(*line);
        else if (line->quantity.kind == Kind::Rate && line->follower != 0)
            record(*line, line->meter.rate(RateMeter::TimePoint::clock::now()));
    }
}

void Recorder::record(Line& line, double value)
{
    line.series.append(now(), value);
    Q_EMIT recorded();
}

} // namespace host::workbench::plots
