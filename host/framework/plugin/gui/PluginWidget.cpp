// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "plugin/gui/PluginWidget.h"

#include "plugin/gui/HostCall.h"

namespace plugin {
namespace gui {

PluginWidget::PluginWidget(DeviceHost& host, QWidget* parent) : QWidget(parent), m_host(host) {}

void PluginWidget::translate() {}

QString PluginWidget::trans(const QString& text) const
{
    return HostCall(m_host, this)->translate(text);
}

QAction* PluginWidget::helpAction(const QString& context) const
{
    return HostCall(m_host, this)->helpAction(context);
}

QString PluginWidget::helpContext() const
{
    return QString();
}

void PluginWidget::update()
{
    QWidget::update();
}

QString PluginWidget::currentLanguage() const
{
    return HostCall(m_host, this)->currentLanguage();
}

QList<QAction*> PluginWidget::libraryActions(const QString&, const QString&, bool)
{
    return {};
}

void PluginWidget::mousePressEvent(QMouseEvent* event)
{
    setFocus(Qt::MouseFocusReason);
    QWidget::mousePressEvent(event);
}

} // namespace gui
} // namespace plugin
