// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/loading/PluginLoader.h"

#include "host/device/trace/CallUnderWay.h"
#include "host/loading/NeededLibraries.h"
#include "plugin/gui/Interface.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

#include <exception>

namespace host::loading {

namespace {

using device::trace::CallUnderWay;

using Factory = void (*)(::plugin::gui::Interface**);

constexpr const char* factoryName = "pluginGuiInterface";
constexpr const char* frameworkName = "libplugin_framework.so."; // before its version

bool isElf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(4) == QByteArray("\177ELF");
}

/// The version of the framework that the plugin @p file was built for; null if it names none.
QString frameworkVersion(const QString& file)
{
    for (const QByteArray& library : neededLibraries(file)) {
        if (library.startsWith(frameworkName))
            return QString::fromLocal8Bit(library.mid(static_cast<int>(qstrlen(frameworkName))));
    }
    return {};
}

} // namespace

PluginLoader::PluginLoader(const QString& file) : m_file(QFileInfo(file).absoluteFilePath())
{
    load();
}

PluginLoader::~PluginLoader()
{
    if (!m_interface)
        return;
    try {
        const CallUnderWay call("deinit");
        m_interface->deinit();
    } catch (const std::exception& e) {
        qWarning("%s: deinit() threw: %s", qPrintable(m_file), e.what());
    } catch (...) {
        qWarning("%s: deinit() threw", qPrintable(m_file));
    }
}

QString PluginLoader::defaultFile()
{
    const QString folder = QCoreApplication::applicationDirPath();
    const QString name = "/libdevice_quandrel_gui.so";
    return QFileInfo::exists(folder + name) ? folder + name
                                            : QDir::cleanPath(folder + "/" PLUGIN_FOLDER + name);
}

std::optional<Failure> PluginLoader::failure() const
{
    return m_failure ? std::make_optional(m_failure()) : std::nullopt;
}

void PluginLoader::load()
{
    const auto fail = [this](auto title, auto reason) {
        m_failure = [file = m_file, title, reason] {
            return Failure{title(), reason(),
                           tr("Check the path given with --plugin. Without that option the "
                              "workbench loads its own plugin."),
                           file};
        };
    };
    const QFileInfo info(m_file);
    if (!info.exists()) {
        fail([] { return tr("The plugin was not found"); },
             [] { return tr("There is no such file."); });
        return;
    }
    if (!info.isFile() || !info.isReadable()) {
        fail([] { return tr("The plugin cannot be read"); },
             [isFile = info.isFile()] {
                 return isFile ? tr("You have no permission to read the file.")
                               : tr("The path names a folder, not a file.");
             });
        return;
    }
    if (!isElf(m_file)) {
        fail([] { return tr("This is not a plugin"); },
             [] { return tr("The file is not a shared library."); });
        return;
    }

    // Before loading: with both versions installed it would succeed, and the plugin would get the
    // functions of the wrong one.
    const QString version = frameworkVersion(m_file);
    if (!version.isNull() && version != FRAMEWORK_VERSION) {
        m_failure = [file = m_file, version] {
            return Failure{tr("The plugin is for another version"),
                           tr("It was built for version %1 of the plugin framework; this "
                              "workbench has version %2.")
                               .arg(version, FRAMEWORK_VERSION),
                           tr("Build the plugin again with the development files of version %1, "
                              "or install the workbench of version %2.")
                               .arg(FRAMEWORK_VERSION, version),
                           file};
        };
        return;
    }

    // All symbols at once: one that is missing is reported here, not by a crash later.
    void* library = dlopen(QFile::encodeName(m_file).constData(), RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        QString error = QString::fromLocal8Bit(dlerror());
        error.remove(m_file + ": ");
        m_failure = [file = m_file, error] {
            return Failure{tr("The plugin could not be loaded"),
                           tr("The system's loader reports: %1.").arg(error),
                           tr("Build the plugin again for this version of the host and of Qt, and "
                              "install the libraries it needs; \"ldd -r\" on the file lists what "
                              "is missing."),
                           file};
        };
        return;
    }
    void* factory = dlsym(library, factoryName);
    if (!factory) {
        fail([] { return tr("This is not a device plugin"); },
             [] { return tr("The library does not export the function %1.").arg(factoryName); });
        return;
    }
    start(factory);
}

void PluginLoader::start(void* factory)
{
    const auto fail = [this](auto reason) {
        m_failure = [file = m_file, reason] {
            return Failure{tr("The plugin failed to start"), reason(),
                           tr("Ask the plugin's author for a fixed version, or choose another "
                              "plugin with --plugin."),
                           file};
        };
    };
    const char* function = factoryName;
    try {
        ::plugin::gui::Interface* interface = nullptr;
        {
            const CallUnderWay call(function);
            reinterpret_cast<Factory>(factory)(&interface);
        }
        if (!interface) {
            fail([] {
                return tr("Its function %1 returned no interface object.").arg(factoryName);
            });
            return;
        }
        function = "init";
        const CallUnderWay call(function);
        interface->init();
        m_interface = interface;
    } catch (const std::exception& e) {
        fail([function, what = QString::fromUtf8(e.what())] {
            return tr("Its function %1 threw an exception: %2.").arg(function, what);
        });
    } catch (...) {
        fail([function] {
            return tr("Its function %1 threw an exception of an unknown type.").arg(function);
        });
    }
}

} // namespace host::loading
