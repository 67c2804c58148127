// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_TESTS_PROBE_H
#define HOST_DEVICE_TESTS_PROBE_H

#include "host/device/Environment.h"
#include "plugin/gui/DeviceWidget.h"
#include "plugin/gui/Interface.h"

#include <QAction>
#include <QStringList>

#include <functional>

/// A widget that keeps the names of the notifications it gets, and does in each what a test
/// tells it to.
class Probe : public plugin::gui::DeviceWidget
{
public:
    explicit Probe(plugin::gui::DeviceDelegate& delegate, QWidget* parent = nullptr)
        : DeviceWidget(delegate, parent)
    {
    }

    using DeviceWidget::update;

    void translate() override { heard(QStringLiteral("translate"), onTranslate); }

    void connected() override { heard(QStringLiteral("connected"), onConnected); }

    void disconnected() override { heard(QStringLiteral("disconnected"), {}); }

    void update(const plugin::gui::DeviceHistoryBundle& bundle) override
    {
        const auto handler = onUpdate; // it may delete us
        calls.append(QStringLiteral("update"));
        if (handler)
            handler(bundle);
    }

    void on_messageReceived(plugin::plugin::DataRole role,
                            const olm::core::variant::Variant& value) override
    {
        bool isText = false;
        const QString text = value.get<QString>(&isText);
        const auto call = QStringLiteral("%1 %2").arg(role).arg(
            isText ? text : QString::number(value.get<int>()));
        heard(call, onMessage);
    }

    int count(const char* call) const { return int(calls.count(QLatin1String(call))); }

    QStringList calls; ///< messages as "role value"
    std::function<void()> onTranslate;
    std::function<void()> onConnected;
    std::function<void()> onMessage;
    std::function<void(const plugin::gui::DeviceHistoryBundle&)> onUpdate;

private:
    void heard(const QString& call, const std::function<void()>& handler)
    {
        calls.append(call);
        const auto copy = handler; // it may delete us
        if (copy)
            copy();
    }
};

/// A plugin that builds what a test says.
class Factory : public plugin::gui::Interface
{
public:
    using Build = std::function<plugin::gui::DeviceWidget*(const char* device, const char* widget,
                                                           plugin::gui::DeviceDelegate& delegate)>;

    explicit Factory(Build build)
        : Interface(plugin::plugin::PluginInfo("vendor", "name", "", -1, -1, -1, -1)),
          m_build(std::move(build))
    {
    }

    plugin::gui::DeviceWidget*
    loadDeviceWidget(const char* device, const char* widget,
                     plugin::gui::DeviceDelegate& delegate) const override
    {
        return m_build(device, widget, delegate);
    }

private:
    Build m_build;
};

class TestEnvironment : public host::device::Environment
{
public:
    QString translate(const QString& text) const override { return text.toUpper(); }

    QString currentLanguage() const override { return QStringLiteral("de"); }

    QAction* helpAction(const QString& context) override
    {
        action.setText(context);
        return &action;
    }

    QAction action;
};

#endif
