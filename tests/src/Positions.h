// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_POSITIONS_H
#define QUANDREL_POSITIONS_H

#include "FakeHost.h"
#include "VariantMetaType.h"
#include "olm/core/Vector.h"
#include "plugin/gui/DeviceWidget.h"

#include <QList>

/// Stored arm positions as a device holds them.

using Values = olm::core::Vector<float>;

inline Values valuesOf(const QList<float>& numbers)
{
    Values values;
    for (const float number : numbers)
        values.append(number);
    return values;
}

/// 1, 2, 3 and so on.
inline Values countedValues(unsigned int size)
{
    Values values(size);
    for (unsigned int i = 0; i < size; ++i)
        values[static_cast<int>(i)] = static_cast<float>(i + 1);
    return values;
}

/// Every axis of position i at 10 * (i + 1), with a speed of 5; named "first", "second" and so
/// on up to the fifth.
inline void setPositions(FakeHost& host, int count, int maximum)
{
    static const char* const names[] = {"first", "second", "third", "fourth", "fifth"};
    host.set(Kind::Config, "num_pos", count);
    host.set(Kind::Config, "num_pos_max", maximum);
    for (int i = 0; i < count && i < 5; ++i) {
        Values values;
        for (int axis = 0; axis < 9; ++axis) {
            values.append(static_cast<float>(10 * (i + 1)));
            values.append(5);
        }
        const std::string name = "pos" + std::to_string(i);
        host.set(Kind::Config, name.c_str(), values);
        host.set(Kind::Config, (name + "_name").c_str(), std::string(names[i]));
    }
}

/// What the device holds; fails no test by itself, a missing value is empty.
inline Values storedValues(const FakeHost& host, const char* name)
{
    const auto found = host.variables.find({Kind::Config, name});
    return found == host.variables.end() ? Values() : found->second.get<Values>();
}

inline QString storedText(const FakeHost& host, const char* name)
{
    const auto found = host.variables.find({Kind::Config, name});
    return found == host.variables.end() ? QString()
                                         : QString::fromStdString(found->second.toString());
}

inline int storedNumber(const FakeHost& host, const char* name)
{
    const auto found = host.variables.find({Kind::Config, name});
    return found == host.variables.end() ? -1 : found->second.toInt();
}

/// The calls of the host that change the device.
inline QStringList changes(const FakeHost& host)
{
    QStringList found;
    for (const QString& call : std::as_const(host.calls)) {
        if (call.startsWith("write ") || call.startsWith("exec "))
            found.append(call);
    }
    return found;
}

/// A device widget without anything of its own.
class Owner : public plugin::gui::DeviceWidget
{
public:
    explicit Owner(plugin::gui::DeviceDelegate& host) : plugin::gui::DeviceWidget(host, nullptr) {}
};

#endif
