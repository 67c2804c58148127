// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_REMAPPINGS_H
#define HOST_DEVICE_CONNECTION_REMAPPINGS_H

#include "host/device/variables/SettingsFile.h"

#include <QHash>
#include <QObject>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace host::device::connection {

/// What the robot of one device calls the topics and services that this program uses: our own,
/// standard names until somebody maps them to others. A mapping is remembered for the device.
class Remappings : public QObject
{
    Q_OBJECT

public:
    enum class Kind
    {
        Topic,   ///< published by the robot
        Command, ///< a topic that the robot listens to
        Service,
    };

    /// A topic or service that this program uses.
    struct Entry
    {
        Kind kind;
        QString name;       ///< ours, which no other entry has
        QString type;       ///< as ROS 1 writes it
        const char* source; ///< of purpose()
        bool isRequired;    ///< false where a robot may do without, and nothing is missed

        /// What it is for: a few words that may stand in a sentence.
        QString purpose() const { return tr(source); }
    };

    /// Ours, and what the robot has for it.
    using Mapping = std::pair<QString, QString>;

    /// The topics, then the commands, then the services.
    static const std::vector<Entry>& all();
    /// Null where this program uses no such name.
    static const Entry* find(const QString& ours);
    /// What is wrong with a robot's name of a topic or service and what is right, or nothing.
    static QString fault(const QString& theirs);
    /// Of "/scan:=/base_scan". Nothing where it is no mapping of one of our names; @p error then
    /// says why.
    static std::optional<Mapping> parseOption(const QString& text, QString* error);

    /// Until now all are standard, and none is remembered: from now on they are, for the device.
    /// Returns the problem, or nothing.
    QString load(const QString& folder, const QString& deviceName);

    /// What the robot calls @p ours.
    QString theirs(const QString& ours) const;

    /// Maps @p ours to @p theirs, at once and for the time to come; our own name is the standard.
    /// False, and nothing changes, where one is no name that can be; @p error then says why.
    bool set(const QString& ours, const QString& theirs, QString* error = nullptr);
    /// All standard again.
    void reset();

Q_SIGNALS:
    /// The robot's name for @p ours is another one.
    void changed(const QString& ours);
    /// The names cannot be remembered, with what to do.
    void problem(const QString& words);

private:
    void remember(const QString& ours);

    std::optional<variables::SettingsFile> m_file; // none until load()
    QHash<QString, QString> m_theirs;              // by ours; only those that differ
};

} // namespace host::device::connection

#endif
