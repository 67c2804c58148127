#include "host/workbench/PluginLoader.h"

#include "plugin/gui/Interface.h"

#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

#include <exception>

namespace host::workbench {

namespace {

using Factory = void (*)(plugin::gui::Interface**);

constexpr const char* factoryName = "pluginGuiInterface";

bool isElf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(4) == QByteArray("\177ELF");
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
        m_interface->deinit();
    } catch (const std::exception& e) {
        qWarning("%s: deinit() threw: %s", qPrintable(m_file), e.what());
    } catch (...) {
        qWarning("%s: deinit() threw", qPrintable(m_file));
    }
}

QString PluginLoader::defaultFile()
{
    return QCoreApplication::applicationDirPath() + "/libdevice_quandrel_gui.so";
}

void PluginLoader::load()
{
    const QString otherPath = tr("Check the path given with --plugin. Without that option the "
                                 "workbench loads the one that came with it.");
    const QFileInfo info(m_file);
    if (!info.exists()) {
        fail(tr("The plugin was not found"), tr("There is no such file."), otherPath);
        return;
    }
    if (!info.isFile() || !info.isReadable()) {
        fail(tr("The plugin cannot be read"),
             info.isFile() ? tr("You have no permission to read the file.")
                           : tr("The path names a folder, not a file."),
             otherPath);
        return;
    }
    if (!isElf(m_file)) {
        fail(tr("This is not a plugin"), tr("The file is not a shared library."), otherPath);
        return;
    }

    // All symbols at once: one that is missing is reported here, not by a crash later.
    void* library = dlopen(QFile::encodeName(m_file).constData(), RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        QString error = QString::fromLocal8Bit(dlerror());
        error.remove(m_file + ": ");
        fail(tr("The plugin could not be loaded"), tr("The system's loader says: %1.").arg(error),
             tr("Build the plugin again for this version of the host and of Qt, and install the "
                "libraries it needs; \"ldd -r\" on the file lists what is missing."));
        return;
    }
    void* factory = dlsym(library, factoryName);
    if (!factory) {
        fail(tr("This is not a device plugin"),
             tr("The library does not export the function %1.").arg(factoryName), otherPath);
        return;
    }
    start(factory);
}

void PluginLoader::start(void* factory)
{
    const QString askMaker = tr("Ask the maker of the plugin for a repaired version, or choose "
                                "another plugin with --plugin.");
    const QString title = tr("The plugin failed to start");
    const char* function = factoryName;
    try {
        plugin::gui::Interface* interface = nullptr;
        reinterpret_cast<Factory>(factory)(&interface);
        if (!interface) {
            fail(title, tr("Its function %1 gave no interface object.").arg(factoryName), askMaker);
            return;
        }
        function = "init";
        interface->init();
        m_interface = interface;
    } catch (const std::exception& e) {
        fail(title, tr("Its function %1 threw: %2.").arg(function, QString::fromUtf8(e.what())),
             askMaker);
    } catch (...) {
        fail(title, tr("Its function %1 threw something unknown.").arg(function), askMaker);
    }
}

void PluginLoader::fail(const QString& title, const QString& reason, const QString& advice)
{
    m_failure = Failure{title, reason, advice, m_file};
}

} // namespace host::workbench
