// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PLUGIN_PLUGINWATCH_H
#define HOST_WORKBENCH_PLUGIN_PLUGINWATCH_H

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>

namespace host::workbench::plugin {

/// Notices that a plugin's file is another one than before: that it was built again.
class PluginWatch : public QObject
{
    Q_OBJECT

public:
    /// Until a new file counts as complete: a linker writes it piece by piece.
    static constexpr std::chrono::milliseconds usualPause{1000};

    /// @p file as it is now is the one that is known. Its folder need not exist; then nothing is
    /// ever noticed.
    explicit PluginWatch(const QString& file, std::chrono::milliseconds pause = usualPause);

Q_SIGNALS:
    /// Each time that the file is there, has another date or size, and keeps them for the pause.
    void rebuilt();

private:
    struct Stamp
    {
        QDateTime time; // invalid where there is no such file
        qint64 size = 0;

        bool operator==(const Stamp& other) const
        {
            return time == other.time && size == other.size;
        }
    };

    Stamp stamp() const;
    void onChanged();
    void onQuiet();

    const QString m_file;
    QFileSystemWatcher m_watcher;
    QTimer m_quiet;
    Stamp m_known;
    Stamp m_latest; // while the pause lasts
};

} // namespace host::workbench::plugin

#endif
