// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/variables/ConfigStorage.h"

#include "host/device/variables/Latin1.h"
#include "host/device/variables/StoredValue.h"

#include <QDebug>

namespace host::device::variables {

ConfigStorage::ConfigStorage(const QString& folder, const QString& deviceName)
    : m_file(folder, deviceName, QStringLiteral(".json"), &ConfigStorage::fault)
{
}

QString ConfigStorage::fault(const QJsonObject& entries)
{
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        const QJsonObject stored = entry->toObject();
        if (!stored.value(QLatin1String("type")).isString() ||
            !stored.contains(QLatin1String("value")))
            return tr("\"%1\" is not an object with a type and a value").arg(entry.key());
        if (isKnownType(stored) && !fromStored(stored))
            return tr("the value of \"%1\" does not match its type").arg(entry.key());
    }
    return {};
}

std::map<std::string, ConfigStorage::Variant> ConfigStorage::values() const
{
    std::map<std::string, Variant> values;
    const QJsonObject entries = m_file.entries();
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        const QJsonObject stored = entry->toObject();
        if (!isKnownType(stored))
            continue;
        if (const auto value = fromStored(stored))
            values.emplace(toLatin1(entry.key()), *value);
    }
    return values;
}

void ConfigStorage::set(const std::string& name, const Variant& value)
{
    if (const auto entry = toStored(value))
        m_file.insert(fromLatin1(name), *entry);
    else
        qWarning("The configuration variable \"%s\" is not stored: a value of its type cannot be.",
                 name.c_str());
}

} // namespace host::device::variables
