// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// A sound plugin for another device than the one that this program was made for: controls that show
// no words, under names of their own, and texts that are translated beside its library.
#include "TestInterface.h"

#include "olm/qt/log/View.h"
#include "plugin/gui/DeviceWidget.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolButton>

#include <cstring>

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

namespace {

class GripperBar : public plugin::gui::DeviceWidget
{
public:
    explicit GripperBar(plugin::gui::DeviceDelegate& delegate)
        : DeviceWidget(delegate, nullptr),
          m_grip(new QToolButton),
          m_port(new QLineEdit),
          m_tool(new QComboBox)
    {
        m_tool->setEditable(true);
        auto* layout = new QHBoxLayout(this);
        layout->addWidget(m_grip);
        layout->addWidget(m_port);
        layout->addWidget(m_tool);
    }

    void translate() override
    {
        m_grip->setToolTip(trans("Open or close"));
        m_port->setPlaceholderText(trans("Port"));
    }

private:
    QToolButton* m_grip;
    QLineEdit* m_port;
    QComboBox* m_tool;
};

class GripperDialog : public plugin::gui::DeviceWidget
{
public:
    explicit GripperDialog(plugin::gui::DeviceDelegate& delegate)
        : DeviceWidget(delegate, nullptr),
          m_tabs(new QTabWidget),
          m_caption(new QLabel)
    {
        auto* page = new QWidget;
        auto* force = new QSpinBox;
        auto* mode = new QComboBox;
        m_caption->setBuddy(mode);
        auto* layout = new QHBoxLayout(page);
        layout->addWidget(force);
        layout->addWidget(m_caption);
        layout->addWidget(mode);
        layout->addWidget(new QTableWidget(2, 2));
        layout->addWidget(new olm::qt::log::View(page));
        m_tabs->addTab(page, QString());
        (new QHBoxLayout(this))->addWidget(m_tabs);
    }

    void translate() override
    {
        m_tabs->setTabText(0, trans("Fingers"));
        m_caption->setText(trans("Mode") + ":");
    }

private:
    QTabWidget* m_tabs;
    QLabel* m_caption;
};

class Interface : public TestInterface
{
public:
    plugin::gui::DeviceWidget*
    loadDeviceWidget(const char* device, const char* widget,
                     plugin::gui::DeviceDelegate& delegate) const override
    {
        if (std::strcmp(device, "tests test plugin") != 0)
            return nullptr;
        if (std::strcmp(widget, "toolbar") == 0)
            return new GripperBar(delegate);
        return std::strcmp(widget, "dialog") == 0 ? new GripperDialog(delegate) : nullptr;
    }
};

} // namespace

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    static Interface instance;
    *interface = &instance;
}
