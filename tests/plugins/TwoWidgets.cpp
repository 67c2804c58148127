// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// A sound plugin with a tool bar and a dialog. It notes on the application what it is called.
#include "TestInterface.h"

#include "plugin/gui/DeviceWidget.h"

#include <QCoreApplication>
#include <QStringList>
#include <QVariant>

#include <cstring>

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

namespace {

void note(const char* call)
{
    const char* const property = "test plugin calls";
    QStringList calls = QCoreApplication::instance()->property(property).toStringList();
    QCoreApplication::instance()->setProperty(property, calls << call);
}

class Widget : public plugin::gui::DeviceWidget
{
public:
    Widget(plugin::gui::DeviceDelegate& delegate, const char* name)
        : DeviceWidget(delegate, nullptr)
    {
        setObjectName(name);
        setFocusPolicy(Qt::StrongFocus);
    }

    QString helpContext() const override { return "toolbar"; }
};

bool isWidget(const char* name)
{
#ifdef ONLY
    return !std::strcmp(name, ONLY);
#else
    return !std::strcmp(name, "toolbar") || !std::strcmp(name, "dialog");
#endif
}

class Interface : public TestInterface
{
public:
    void init() const override { note("init"); }

    void deinit() const override { note("deinit"); }

    plugin::gui::DeviceWidget*
    loadDeviceWidget(const char* device, const char* widget,
                     plugin::gui::DeviceDelegate& delegate) const override
    {
        const bool isKnown = !std::strcmp(device, "tests test plugin") && isWidget(widget);
        return isKnown ? new Widget(delegate, widget) : nullptr;
    }
};

} // namespace

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    static Interface instance;
    *interface = &instance;
}
