// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/plots/Quantities.h"

#include "host/device/Device.h"
#include "host/device/variables/Latin1.h"
#include "host/workbench/plots/Numbers.h"

#include <algorithm>

namespace host::workbench::plots {

using device::readers::JointTable;
using device::variables::Variables;
using Kind = Quantity::Kind;

namespace {

constexpr std::chrono::milliseconds newsInterval{200};

} // namespace

Quantities::Quantities(device::Device& device, QObject* parent)
    : QObject(parent),
      m_device(device),
      m_finder(device, this)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(newsInterval);
    const auto announce = [this] {
        if (m_isActive && !m_timer.isActive())
            m_timer.start();
    };
    connect(&m_timer, &QTimer::timeout, this, &Quantities::changed);
    connect(&m_finder, &FieldFinder::changed, this, announce);
    connect(&device.variables(), &Variables::touched, this,
            [this, announce](const Variables::Key& key) {
                if (m_isActive && m_seen.insert(key).second)
                    announce();
            });
}

void Quantities::setActive(bool active)
{
    m_isActive = active;
    m_finder.setActive(active);
    m_timer.stop();
    if (!active)
        return;
    m_seen = m_device.variables().keys();
    Q_EMIT changed();
}

std::vector<Quantity> Quantities::all() const
{
    std::vector<Quantity> quantities;
    for (int axis = 0; axis < JointTable::axisCount; ++axis) {
        quantities.push_back({Kind::Present, QString(), QString(), axis});
        quantities.push_back({Kind::Target, QString(), QString(), axis});
    }
    addTopics(quantities);
    addVariables(quantities);
    return quantities;
}

std::optional<Quantity> Quantities::find(const QString& text) const
{
    const std::vector<Quantity> known = all();
    const auto found = std::find_if(known.begin(), known.end(), [&](const Quantity& each) {
        return each.inWords(m_device) == text;
    });
    if (found != known.end())
        return *found;
    // A topic that was silent until now tells nothing of its fields.
    const QMap<QString, QString> topics = m_device.offer().topics();
    for (auto topic = topics.cbegin(); topic != topics.cend(); ++topic) {
        Quantity field{Kind::Field, topic.key(), QString(), 0};
        const QString start = field.inWords(m_device);
        field.path = text.mid(start.size()).trimmed();
        if (text.startsWith(start) && !field.path.isEmpty() && field.path.size() <= longestPath)
            return field;
    }
    return std::nullopt;
}

/// Of those that the robot has; without a link, of those that it had.
void Quantities::addTopics(std::vector<Quantity>& quantities) const
{
    QStringList topics = m_device.offer().topics().keys() + m_finder.fields().keys();
    topics.removeDuplicates();
    topics.sort();
    for (const QString& topic : std::as_const(topics)) {
        quantities.push_back({Kind::Rate, topic, QString(), 0});
        const QStringList paths = m_finder.fields().value(topic);
        for (const QString& path : paths)
            quantities.push_back({Kind::Field, topic, path, 0});
    }
}

void Quantities::addVariables(std::vector<Quantity>& quantities) const
{
    for (const Variables::Key& key : m_device.variables().keys()) {
        const Variables::Entry* const entry = m_device.variables().find(key);
        if (!entry)
            continue;
        const QStringList paths = numbersIn(entry->value);
        for (const QString& path : paths)
            quantities.push_back({Kind::Variable, device::variables::fromLatin1(key.second), path,
                                  static_cast<int>(key.first)});
    }
}

} // namespace host::workbench::plots
