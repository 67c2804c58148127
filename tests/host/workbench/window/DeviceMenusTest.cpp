// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "FullWindow.h"
#include "TestCase.h"

#include "host/workbench/window/Notice.h"

#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QtTest>

namespace device_menus_test {

using full_window::FullWindow;
using host::workbench::window::Notice;
using plugin::gui::VariableKind;

namespace {

QString noticed(const FullWindow& f)
{
    return f.view().findChild<Notice*>()->findChild<QLabel*>()->text();
}

} // namespace

/// The menus of a device, in a window with the real plugin.
class DeviceMenusTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_newest_scan_is_exported();
    void keys_undo_what_the_table_did();
};

void DeviceMenusTest::the_newest_scan_is_exported()
{
    FullWindow f;
    auto* const exportScan = f.view().findChild<QAction*>("exportScan");
    exportScan->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(noticed(f).contains("There is no scan to export"), patience);
    QVERIFY(!f.view().findChild<QFileDialog*>());

    olm::core::LaserScanMessage scan;
    scan.frameId = "laser";
    scan.ranges.append(1.5F);
    f.device.variables().set(VariableKind::Input, "scan", scan);
    exportScan->trigger();
    f.device.variables().set(VariableKind::Input, "scan", olm::core::LaserScanMessage());
    auto* const chooser = f.view().findChild<QFileDialog*>();
    QVERIFY(chooser && !chooser->isModal());
    Q_EMIT chooser->fileSelected(f.settings.filePath("scan.csv"));
    QFile file(f.settings.filePath("scan.csv"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("seq,stamp,frame_id,angle,range,intensity\r\n"
                                        "0,0.000,\"laser\",0,1.5,\r\n"));
}

void DeviceMenusTest::keys_undo_what_the_table_did()
{
    FullWindow f;
    f.tabs().setCurrentIndex(1);
    QAbstractItemModel& table = *f.table().model();
    const QString before = table.index(0, 0).data().toString();
    auto* const undo = f.view().findChild<QMenu*>("positions")->findChild<QAction*>("undo");
    QVERIFY(table.setData(table.index(0, 0), "Elsewhere", Qt::EditRole));
    QTRY_VERIFY_WITH_TIMEOUT(undo->isEnabled(), patience);
    f.table().setFocus();
    QTest::keyClick(f.window.windowHandle(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(table.index(0, 0).data().toString(), before);
    QTest::keyClick(f.window.windowHandle(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(table.index(0, 0).data().toString(), QString("Elsewhere"));
}

TEST_WITH_WINDOWS(DeviceMenusTest)

} // namespace device_menus_test

#include "DeviceMenusTest.moc"
