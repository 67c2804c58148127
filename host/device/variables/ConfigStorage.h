// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_VARIABLES_CONFIGSTORAGE_H
#define HOST_DEVICE_VARIABLES_CONFIGSTORAGE_H

#include "host/device/variables/SettingsFile.h"
#include "olm/core/variant/Variant.h"

#include <QCoreApplication>
#include <QString>

#include <map>
#include <string>

namespace host::device::variables {

/// The configuration of one device in a SettingsFile. Entries of types that this version does not
/// know are kept as they are.
class ConfigStorage
{
    Q_DECLARE_TR_FUNCTIONS(host::device::variables::ConfigStorage)

public:
    using Variant = olm::core::variant::Variant;

    /// Nothing is read or made yet. No two names share a file.
    ConfigStorage(const QString& folder, const QString& deviceName);

    QString fileName() const { return m_file.fileName(); }

    /// As SettingsFile::load().
    QString load() { return m_file.load(); }

    /// All values that this version understands, by the variables' names.
    std::map<std::string, Variant> values() const;
    /// To be written by the next save(). A value of a type that cannot be stored is left out,
    /// with a warning.
    void set(const std::string& name, const Variant& value);

    /// As SettingsFile::save().
    QString save() { return m_file.save(); }

private:
    static QString fault(const QJsonObject& entries);

    SettingsFile m_file;
};

} // namespace host::device::variables

#endif
