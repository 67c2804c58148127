// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_LOADING_PLUGINLOADER_H
#define HOST_LOADING_PLUGINLOADER_H

#include "host/loading/Failure.h"

#include <QCoreApplication>
#include <QString>

#include <optional>

namespace plugin::gui {
class Interface;
}

namespace host::loading {

/// Loads a device plugin the way production does: the shared library, its exported factory
/// `pluginGuiInterface`, then init(). Nothing of the plugin escapes as an exception or ends the
/// program: what goes wrong is a Failure.
class PluginLoader
{
    Q_DECLARE_TR_FUNCTIONS(host::loading::PluginLoader)

public:
    /// Loads @p file at once; a relative path is taken from the current directory.
    explicit PluginLoader(const QString& file);
    /// Calls deinit(); every widget of the plugin must be gone by now. The library itself stays
    /// mapped until the process ends, since Qt keeps pointers into libraries it has met.
    ~PluginLoader();
    PluginLoader(const PluginLoader&) = delete;
    PluginLoader& operator=(const PluginLoader&) = delete;

    /// The plugin that comes with this program: beside it, or where it is installed.
    static QString defaultFile();

    /// Owned by the plugin; null when loading failed.
    const ::plugin::gui::Interface* interface() const { return m_interface; }

    /// Set when loading failed; in the language of the moment.
    std::optional<Failure> failure() const;

    /// Absolute.
    const QString& file() const { return m_file; }

private:
    void load();
    void start(void* factory);

    QString m_file;
    const ::plugin::gui::Interface* m_interface = nullptr;
    FailureWords m_failure; // empty when all is well
};

} // namespace host::loading

#endif
