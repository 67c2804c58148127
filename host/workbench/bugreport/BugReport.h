// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_BUGREPORT_BUGREPORT_H
#define HOST_WORKBENCH_BUGREPORT_BUGREPORT_H

#include "host/workbench/bugreport/Privacy.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

namespace host::device {
class Device;
}

namespace host::loading {
class PluginLoader;
} // namespace host::loading

namespace host::workbench::bugreport {

/// A file of a report.
struct Part
{
    QString name; ///< with its folder in the report
    QByteArray content;
    QString file = {}; ///< whose content it is instead; empty for none

    qint64 size() const;
};

/// What somebody who looks for a fault would ask for first: versions, the plugin, what happened,
/// and the settings, without what is private. As it is at the moment of its making.
class BugReport
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::bugreport::BugReport)

public:
    /// The settings are in the folder @p settings.
    BugReport(const loading::PluginLoader& plugin, const QList<device::Device*>& devices,
              const QString& settings);

    const QList<Part>& parts() const { return m_parts; }

private:
    void addVersions();
    void addPlugin(const loading::PluginLoader& plugin);
    void addDevice(device::Device& device);
    void addSettings(const QString& folder);
    void add(const QString& name, const QStringList& lines);
    static QStringList addressesIn(const QString& settings, const QList<device::Device*>& devices);

    const Privacy m_privacy;
    QList<Part> m_parts;
};

} // namespace host::workbench::bugreport

#endif
