// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_REPLAY_ASSERTION_H
#define HOST_WORKBENCH_REPLAY_ASSERTION_H

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace host::loading {
class PluginLoader;
} // namespace host::loading

namespace host::workbench::replay {

/// Plays a recording into a plugin, as fast as it goes and without a window, and compares what the
/// plugin asks of its host with what it asked then.
class Assertion
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::replay::Assertion)

public:
    /// Plays @p file up to the first difference.
    Assertion(const QString& file, const loading::PluginLoader& plugin);

    /// Whether all was played, and is the same.
    bool isSame() const { return m_isSame; }

    /// How it ended, line by line: how much is the same, the first difference, or why nothing can
    /// be told.
    const QStringList& words() const { return m_words; }

private:
    void play(const QString& file, const loading::PluginLoader& plugin);

    bool m_isSame = false;
    QStringList m_words;
};

} // namespace host::workbench::replay

#endif
