// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_LOADEDPLUGIN_H
#define QUANDREL_LOADEDPLUGIN_H

#include "plugin/gui/Interface.h"

#include <QString>

#include <dlfcn.h>

/// The plugin's shared library as a strict host loads it: every symbol resolved at once, none
/// of its own visible to others.
class LoadedPlugin
{
public:
    using EntryPoint = void (*)(plugin::gui::Interface**);

    LoadedPlugin() = default;
    LoadedPlugin(const LoadedPlugin&) = delete;
    LoadedPlugin& operator=(const LoadedPlugin&) = delete;
    ~LoadedPlugin() { unload(); }

    static const char* fileName() { return PLUGIN_FILE; }
    static QString error() { return QString::fromLocal8Bit(dlerror()); }
    static bool isInMemory()
    {
        void* const handle = dlopen(fileName(), RTLD_NOW | RTLD_LOCAL | RTLD_NOLOAD);
        if (handle)
            dlclose(handle);
        return handle != nullptr;
    }

    bool load()
    {
        m_handle = dlopen(fileName(), RTLD_NOW | RTLD_LOCAL);
        return m_handle != nullptr;
    }
    /// False where the library could not be closed.
    bool unload()
    {
        void* const handle = m_handle;
        m_handle = nullptr;
        return !handle || dlclose(handle) == 0;
    }
    void* symbol(const char* name) const { return dlsym(m_handle, name); }
    EntryPoint entryPoint() const
    {
        return reinterpret_cast<EntryPoint>(symbol("pluginGuiInterface"));
    }
    plugin::gui::Interface& interface() const
    {
        plugin::gui::Interface* object = nullptr;
        entryPoint()(&object);
        return *object;
    }
    plugin::gui::DeviceWidget* widget(const char* name, plugin::gui::DeviceDelegate& delegate) const
    {
        return interface().loadDeviceWidget("OLM GmbH Quandrel", name, delegate);
    }

private:
    void* m_handle = nullptr;
};

#endif
