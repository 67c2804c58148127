// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/plugin/PluginWatch.h"

#include <QFileInfo>

namespace host::workbench::plugin {

PluginWatch::PluginWatch(const QString& file, std::chrono::milliseconds pause)
    : m_file(file),
      m_known(stamp())
{
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(pause);
    connect(&m_quiet, &QTimer::timeout, this, &PluginWatch::onQuiet);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &PluginWatch::onChanged);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &PluginWatch::onChanged);
    // The folder, since a linker removes the old file, and a file that is gone is not watched on.
    const QString folder = QFileInfo(file).path();
    if (QFileInfo(folder).isDir())
        m_watcher.addPath(folder);
    if (m_known.time.isValid())
        m_watcher.addPath(file);
}

PluginWatch::Stamp PluginWatch::stamp() const
{
    const QFileInfo info(m_file);
    return info.isFile() ? Stamp{info.lastModified(), info.size()} : Stamp{};
}

void PluginWatch::onChanged()
{
    m_latest = stamp();
    if (m_latest.time.isValid() && !m_watcher.files().contains(m_file))
        m_watcher.addPath(m_file);
    if (!(m_latest == m_known))
        m_quiet.start();
}

void PluginWatch::onQuiet()
{
    const Stamp now = stamp();
    if (!(now == m_latest)) {
        onChanged();
        return;
    }
    if (!now.time.isValid() || now == m_known)
        return;
    m_known = now;
    Q_EMIT rebuilt();
}

} // namespace host::workbench::plugin
