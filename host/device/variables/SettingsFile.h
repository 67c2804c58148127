#ifndef HOST_DEVICE_VARIABLES_SETTINGSFILE_H
#define HOST_DEVICE_VARIABLES_SETTINGSFILE_H

#include <QCoreApplication>
#include <QJsonObject>
#include <QString>

#include <functional>

namespace host::device::variables {

/// One file of what a device remembers, a JSON object: at any moment either the old or the new
/// one. Entries that nobody touches are kept as they are. What goes wrong is returned in words
/// that name the file, the reason and what to do.
class SettingsFile
{
    Q_DECLARE_TR_FUNCTIONS(host::device::variables::SettingsFile)

public:
    /// What is wrong with the entries of a file, or nothing.
    using Check = std::function<QString(const QJsonObject& entries)>;

    /// Nothing is read or made yet. No two names share a file, and no two endings.
    SettingsFile(const QString& folder, const QString& deviceName, const QString& ending);

    QString fileName() const { return m_fileName; }

    /// Reads the file; none is no problem. A damaged one, or one that @p check objects to, is set
    /// aside under a name that no other file has. Returns the problem, or nothing.
    QString load(const Check& check);

    QJsonObject entries() const { return m_entries; }

    /// These are written by the next save().
    void insert(const QString& key, const QJsonValue& value) { m_entries.insert(key, value); }
    void remove(const QString& key) { m_entries.remove(key); }

    /// Writes the file if there is something new: a process killed after this loses nothing.
    /// Returns the problem, or nothing where it succeeded or the problem is the last one again.
    QString save();

private:
    QString setAside(const QString& reason);

    QString m_folder;
    QString m_fileName;
    QJsonObject m_entries;
    QJsonObject m_savedEntries;
    bool m_isReadOnly = false; // the file is not ours to replace
    QString m_lastError;
};

} // namespace host::device::variables

#endif
