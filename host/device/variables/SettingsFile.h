// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_VARIABLES_SETTINGSFILE_H
#define HOST_DEVICE_VARIABLES_SETTINGSFILE_H

#include <QCoreApplication>
#include <QJsonObject>
#include <QSet>
#include <QString>

#include <functional>

namespace host::device::variables {

/// One file of what a device or the program remembers, a JSON object: at any moment either the old
/// or the new one. Several programs may share it: a save changes the entries that were touched here
/// and keeps what others wrote meanwhile. What goes wrong is returned in words that name the file,
/// the reason and what to do.
class SettingsFile
{
    Q_DECLARE_TR_FUNCTIONS(host::device::variables::SettingsFile)

public:
    /// What is wrong with the entries of a file, or nothing.
    using Check = std::function<QString(const QJsonObject& entries)>;

    /// Larger files are neither read nor written.
    static constexpr qint64 mostBytes = qint64{16} * 1024 * 1024;

    /// Nothing is read or made yet. No two names share a file, and no two endings. A file that
    /// @p check objects to is damaged.
    SettingsFile(
        const QString& folder, const QString& name, const QString& ending,
        Check check = [](const QJsonObject&) { return QString(); });

    QString fileName() const { return m_fileName; }

    /// Reads the file; none is no problem. A damaged one is set aside under a name that no other
    /// file has. What is no file at all, cannot be read or comes from a newer version is left
    /// alone. Returns the problem, or nothing.
    QString load();

    QJsonObject entries() const { return m_entries; }

    /// These are written by the next save() that succeeds.
    void insert(const QString& key, const QJsonValue& value);
    void remove(const QString& key);

    /// Writes the file if there is something new: when this returns nothing, it is on the disk.
    /// Returns the problem otherwise, each time.
    QString save();

private:
    enum class State
    {
        Missing,
        Good,
        Damaged,
        NotOurs ///< to read or to replace
    };

    struct Content
    {
        State state;
        QJsonObject entries;
        QString reason; ///< of a bad state
    };

    Content read() const;
    QString write(const QJsonObject& entries) const;
    QString moveAside(QString* error) const;
    QString notStored(const QString& reason) const;

    QString m_folder;
    QString m_fileName;
    Check m_check;
    QJsonObject m_entries;
    QSet<QString> m_touched; // since the last save that succeeded
};

} // namespace host::device::variables

#endif
