// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "olm/core/Export.h"
#include "plugin/gui/DeviceDelegate.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/DeviceWidget.h"
#include "plugin/gui/Interface.h"
#include "plugin/gui/VariableHistoryBuffer.h"

#include <QFormLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>

#include <cstring>

// The widget shows and sets one variable of the device, its setting "brightness".
class LampDialog : public plugin::gui::DeviceWidget
{
public:
    explicit LampDialog(plugin::gui::DeviceDelegate& delegate)
        : DeviceWidget(delegate, nullptr),
          m_caption(new QLabel),
          m_brightness(new QSlider(Qt::Horizontal))
    {
        m_brightness->setRange(0, 100);
        m_caption->setBuddy(m_brightness);
        auto* layout = new QFormLayout(this);
        layout->addRow(m_caption, m_brightness); // owned from here on, should the host throw
        m_brightness->setValue(readConfigVariable("brightness").toInt());

        connect(m_brightness, &QSlider::valueChanged, this,
                [this](int value) { writeConfigVariable("brightness", value); });
        delegate.registerConfigVariable("brightness", true);
    }

    // Called after construction, and when the language changes.
    void translate() override { m_caption->setText(trans("Brightness")); }

    // Called when variables changed that are registered, whoever changed them.
    void update(const plugin::gui::DeviceHistoryBundle& bundle) override
    {
        if (const auto* history = bundle.getConfigVariableHistory("brightness")) {
            const QSignalBlocker blocker(m_brightness); // what the device says is not written back
            m_brightness->setValue(history->last().toInt());
        }
    }

private:
    QLabel* m_caption;
    QSlider* m_brightness;
};

// The plugin: its vendor, its device, and its widgets by name.
class LampPlugin : public plugin::gui::Interface
{
public:
    LampPlugin() : Interface({"Example Works", "Lamp", "", -1, -1, -1, -1}) {}

    plugin::gui::DeviceWidget*
    loadDeviceWidget(const char* device, const char* widget,
                     plugin::gui::DeviceDelegate& delegate) const override
    {
        const bool isDialog =
            std::strcmp(device, "Example Works Lamp") == 0 && std::strcmp(widget, "dialog") == 0;
        return isDialog ? new LampDialog(delegate) : nullptr;
    }
};

// The one function that a host calls by name, and all that the library exports.
extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface)
{
    static LampPlugin lamp;
    *interface = &lamp;
}
