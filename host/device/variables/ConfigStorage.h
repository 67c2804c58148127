#ifndef HOST_DEVICE_VARIABLES_CONFIGSTORAGE_H
#define HOST_DEVICE_VARIABLES_CONFIGSTORAGE_H

#include "host/device/variables/SettingsFile.h"
#include "olm/core/variant/Variant.h"

#include <QCoreApplication>
#include <QString>

#include <map>
#include <string>

namespace host::device::variables {

/// The configuration of one device in one JSON file, which is at any moment either the old or
/// the new one. Entries of types that this version does not know are kept as they are. What goes
/// wrong is returned in words that name the file, the reason and what to do.
class ConfigStorage
{
    Q_DECLARE_TR_FUNCTIONS(host::device::variables::ConfigStorage)

public:
    using Variant = olm::core::variant::Variant;

    /// Nothing is read or made yet. No two names share a file.
    ConfigStorage(const QString& folder, const QString& deviceName);

    QString fileName() const { return m_file.fileName(); }

    /// Reads the file; none is no problem. A damaged one is set aside under a name that no other
    /// file has. Returns the problem, or nothing.
    QString load();

    /// All values that this version understands, by the variables' names.
    std::map<std::string, Variant> values() const;
    /// To be written by the next save(). A value of a type that cannot be stored is left out,
    /// with a warning.
    void set(const std::string& name, const Variant& value);

    /// Writes the file if there is something new: a process killed after this loses nothing.
    /// Returns the problem, or nothing where it succeeded or the problem is the last one again.
    QString save();

private:
    SettingsFile m_file;
};

} // namespace host::device::variables

#endif
