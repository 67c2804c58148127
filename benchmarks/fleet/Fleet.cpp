// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Fleet.h"

#include "host/workbench/window/DeviceView.h"
#include "olm/core/Vector.h"

#include <QDockWidget>
#include <QTabWidget>
#include <QTest>

namespace {

using plugin::gui::VariableKind;

constexpr int patience = 30000;
constexpr int settlingTime = 2000;
constexpr QSize viewSize(520, 560);
constexpr QSize largeViewSize(1500, 1000); // with room for every dock

/// The resolution in which the camera is the quickest.
olm::core::Vector<unsigned int> quickestResolution()
{
    olm::core::Vector<unsigned int> resolution(2);
    resolution[0] = 320;
    resolution[1] = 240;
    return resolution;
}

} // namespace

Fleet::Fleet(int robots, Docks docks)
{
    for (int i = 0; i < robots; ++i)
        m_robots.emplace_back(QStringLiteral(ROBOT_FILE),
                              QStringList{"--port", "0", "--seed", QString::number(i + 1)});
    for (int i = 0; i < robots; ++i) {
        auto& device = m_devices.emplace_back(QStringLiteral("Robot %1").arg(i + 1),
                                              m_settings.path(), m_environment);
        device.overrideAddress(m_robots[static_cast<std::size_t>(i)].address());
        m_window.add(device, QString());
    }
    if (docks == Docks::None) {
        for (auto* dock : m_window.findChildren<QDockWidget*>())
            dock->hide();
    } else if (docks == Docks::All) {
        spreadDocks();
    }
    const QSize size = docks == Docks::All ? largeViewSize : viewSize;
    m_window.resize(robots * size.width(), size.height());
    m_window.show();
}

/// In three columns beside the plugin's dialog and one row below it.
void Fleet::spreadDocks()
{
    for (auto* view : m_window.views()) {
        const auto docks = view->findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly);
        QDockWidget* before = nullptr;
        for (QDockWidget* dock : docks) {
            view->addDockWidget(Qt::RightDockWidgetArea, dock);
            dock->show();
            if (before)
                view->splitDockWidget(before, dock, Qt::Vertical);
            before = dock;
        }
    }
}

bool Fleet::connectAll()
{
    for (auto& device : m_devices)
        device.connectDevice();
    const auto isReady = [](const host::device::Device& device) {
        return device.connectionState() == host::device::connection::Connection::connected &&
               !device.read(VariableKind::Input, "scan").isEmpty();
    };
    for (auto& device : m_devices) {
        if (!QTest::qWaitFor([&] { return isReady(device); }, patience)) {
            qWarning("%s: %s", qPrintable(device.name()), qPrintable(device.status()));
            return false;
        }
        device.write(VariableKind::Config, "camera_resolution", quickestResolution());
    }
    QTest::qWait(settlingTime);
    return true;
}

void Fleet::setTab(int index)
{
    for (auto* tabs : m_window.findChildren<QTabWidget*>())
        tabs->setCurrentIndex(index);
}

void Fleet::repaintTabs()
{
    for (const auto* tabs : m_window.findChildren<QTabWidget*>())
        tabs->currentWidget()->update();
}
