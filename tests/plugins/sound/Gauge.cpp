// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// A sound plugin that computes in a thread of its own, and paints what comes of it.
#include "plugin/gui/DeviceDelegate.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/DeviceWidget.h"
#include "plugin/gui/Interface.h"
#include "plugin/gui/VariableHistoryBuffer.h"

#include <QCheckBox>
#include <QMetaObject>
#include <QPainter>
#include <QThread>
#include <QVBoxLayout>

#include <algorithm>
#include <string_view>

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

namespace {

/// A bar as long as the value.
class Bar : public QWidget
{
public:
    using QWidget::QWidget;

    QSize sizeHint() const override { return {100, 20}; }

    void setValue(int value)
    {
        m_value = value;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(0, 0, width() * m_value / 100, height(), palette().highlight());
    }

private:
    int m_value = 0;
};

class Gauge : public plugin::gui::DeviceWidget
{
public:
    explicit Gauge(plugin::gui::DeviceDelegate& delegate) : DeviceWidget(delegate, nullptr)
    {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(m_bar);
        layout->addWidget(m_isHeld);
        connect(m_isHeld, &QCheckBox::clicked, this,
                [this](bool isHeld) { writeStateVariable("hold", isHeld); });
        delegate.registerInput("pressure", true);
        delegate.registerStateVariable("hold", true);
        m_worker.moveToThread(&m_thread);
        m_thread.start();
    }

    ~Gauge() override
    {
        m_thread.quit();
        m_thread.wait();
    }

    void translate() override { m_isHeld->setText(trans("Hold the pressure")); }

    void update(const plugin::gui::DeviceHistoryBundle& bundle) override
    {
        if (const auto* held = bundle.getStateVariableHistory("hold"))
            m_isHeld->setChecked(held->last().toBool());
        const auto* pressure = bundle.getInputHistory("pressure");
        if (!pressure)
            return;
        QMetaObject::invokeMethod(&m_worker, [this, value = pressure->last().toInt()] {
            const int shown = std::clamp(value, 0, 100);
            QMetaObject::invokeMethod(m_bar, [bar = m_bar, shown] { bar->setValue(shown); });
        });
    }

    using DeviceWidget::update;

private:
    Bar* m_bar = new Bar(this);
    QCheckBox* m_isHeld = new QCheckBox(this);
    QObject m_worker;
    QThread m_thread;
};

class Factory : public plugin::gui::Interface
{
public:
    Factory() : Interface({"Round Works", "Gauge", "", -1, -1, -1, -1}) {}

    plugin::gui::DeviceWidget*
    loadDeviceWidget(const char* device, const char* widget,
                     plugin::gui::DeviceDelegate& delegate) const override
    {
        using Name = std::string_view;
        const bool isOurs = Name(device) == "Round Works Gauge" && Name(widget) == "dialog";
        return isOurs ? new Gauge(delegate) : nullptr;
    }
};

} // namespace

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    static Factory instance;
    *interface = &instance;
}
