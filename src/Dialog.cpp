// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Dialog.h"

#include "BaseDialog.h"
#include "LaserRangeFinderDialog.h"
#include "ManipulatorDialog.h"

#include <QTabWidget>
#include <QVBoxLayout>

Dialog::Dialog(plugin::gui::DeviceDelegate& delegate)
    : plugin::gui::DeviceWidget(delegate, nullptr),
      m_tabs(new QTabWidget(this))
{
    QVBoxLayout* const layout = new QVBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    setLayout(layout);

    m_tabs->setTabPosition(QTabWidget::South);
    m_tabs->setTabShape(QTabWidget::Triangular);
    layout->addWidget(m_tabs);

    m_tabs->addTab(new BaseDialog(delegate, this), QString());
    m_tabs->addTab(new ManipulatorDialog(delegate, this), QString());
    m_tabs->addTab(new LaserRangeFinderDialog(delegate, this), QString());
}

void Dialog::translate()
{
    m_tabs->setTabText(0, trans("Base"));
    m_tabs->setTabText(1, trans("Manipulator"));
    m_tabs->setTabText(2, trans("Laser rangefinder"));
}

void Dialog::update(const plugin::gui::DeviceHistoryBundle&) {}

void Dialog::connected() {}

void Dialog::disconnected() {}

void Dialog::on_messageReceived(plugin::plugin::DataRole, const olm::core::variant::Variant&) {}
