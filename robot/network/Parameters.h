// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NETWORK_PARAMETERS_H
#define ROBOT_NETWORK_PARAMETERS_H

#include <QCborMap>
#include <QString>
#include <QStringList>

namespace robot::network {

/// The robot's parameters, as rosapi tells them.
class Parameters
{
public:
    /// @p values by canonical name.
    explicit Parameters(const QCborMap& values) : m_values(values) {}

    QStringList names() const;

    /// The value of @p name, in either form, as JSON. Of an unknown one @p fallback: as it is if it
    /// is JSON, as a JSON string if it is not, and "null" if it is empty.
    QString json(const QString& name, const QString& fallback) const;

private:
    QCborMap m_values;
};

} // namespace robot::network

#endif
