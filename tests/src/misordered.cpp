// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// Every class here has its operations in a wrong order. The check of the slot orders is run on
// this library to see that it reports each of them; nothing calls anything in it.

#include <QWidget>

class QAction;

namespace olm {
namespace core {
namespace variant {

class Variant
{
};

} // namespace variant
} // namespace core
} // namespace olm

using olm::core::variant::Variant;

namespace plugin {
namespace plugin {

enum DataRole : int
{
};

} // namespace plugin

namespace gui {

class DeviceHistoryBundle;

class PluginWidget : public QWidget
{
public:
    virtual QString trans(const QString&) const { return {}; } // before translate()
    virtual void translate() {}
    virtual QAction* helpAction(const QString&) const { return nullptr; }
    virtual QString helpContext() const { return {}; }
    virtual void update() {}
    virtual QString currentLanguage() const { return {}; }
    virtual QList<QAction*> libraryActions(const QString&, const QString&, bool) { return {}; }
};

class DeviceInterface
{
public:
    virtual ~DeviceInterface() = default;

    virtual void writeInput(const char*, const Variant&) {} // before readInput()
    virtual Variant readInput(const char*) const { return {}; }
    virtual void connected() {} // and most operations missing
    virtual void disconnected() {}
    virtual void on_messageReceived(::plugin::plugin::DataRole, const Variant&) {}
    virtual void update(const DeviceHistoryBundle&) {}
};

class DeviceWidget : public PluginWidget, public DeviceInterface // and no third base
{
public:
    using DeviceInterface::update;
    using PluginWidget::update;
};

} // namespace gui
} // namespace plugin

class Toolbar : public plugin::gui::DeviceWidget
{
public:
    using plugin::gui::DeviceWidget::update;

    void connected() override {} // before update()
    void update(const plugin::gui::DeviceHistoryBundle&) override {}
    virtual bool connectDevice() { return false; }
    void disconnected() override {}
    void on_messageReceived(plugin::plugin::DataRole, const Variant&) override {}
};

class Delegate
{
public:
    virtual ~Delegate() = default;

    virtual void registerInput(const char*, bool) {}
    virtual void registerStateVariable(const char*, bool) {} // nothing between the two
    virtual void registerConfigVariable(const char*, bool) {}
    virtual void registerOutput(const char*, bool) {}
};

class PluginGuiInterface
{
public:
    virtual ~PluginGuiInterface() = default;

    virtual void deinit() const {} // before init()
    virtual void init() const {}
};

// Makes the compiler write the tables down.
void makeAll(QWidget** widgets, plugin::gui::DeviceInterface** interface, Delegate** delegate,
             PluginGuiInterface** plugin);

void makeAll(QWidget** widgets, plugin::gui::DeviceInterface** interface, Delegate** delegate,
             PluginGuiInterface** plugin)
{
    widgets[0] = new Toolbar;
    widgets[1] = new plugin::gui::DeviceWidget;
    widgets[2] = new plugin::gui::PluginWidget;
    *interface = new plugin::gui::DeviceInterface;
    *delegate = new Delegate;
    *plugin = new PluginGuiInterface;
}
