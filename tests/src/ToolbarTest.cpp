// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Toolbar.h"

#include "AddressInput.h"
#include "ConnectButton.h"
#include "FakeHost.h"
#include "TestCase.h"

#include <QHBoxLayout>
#include <QMainWindow>
#include <QToolBar>
#include <QtTest>

namespace toolbar_test {

class ToolbarTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void construction_calls_the_host_in_order();
    void it_adds_nothing_to_the_connection_widget_but_the_layout();
    void the_button_comes_first_and_the_address_second();
    void the_sizes_are_those_of_a_tool_bar();
    void it_never_grows_wider_than_200_pixels();
    void its_help_is_about_the_toolbar();
};

void ToolbarTest::construction_calls_the_host_in_order()
{
    FakeHost host;
    const Toolbar toolbar(host);
    QCOMPARE(host.calls, (QStringList{"read config ipAddressHistory", "read config ipAddress",
                                      "register config ipAddress true",
                                      "register config ipAddressHistory true", "exec 1005"}));
    QCOMPARE(host.widgets.size(), 1);
    QVERIFY(!toolbar.parent());
}

void ToolbarTest::it_adds_nothing_to_the_connection_widget_but_the_layout()
{
    const QMetaObject& type = Toolbar::staticMetaObject;
    QCOMPARE(type.className(), "Toolbar");
    QCOMPARE(type.superClass(), &Quandrel::staticMetaObject);
    QCOMPARE(type.methodCount(), type.superClass()->methodCount());
    QCOMPARE(type.propertyCount(), type.superClass()->propertyCount());
    QCOMPARE(sizeof(Toolbar), sizeof(Quandrel));
}

void ToolbarTest::the_button_comes_first_and_the_address_second()
{
    FakeHost host;
    const Toolbar toolbar(host);
    const auto* layout = qobject_cast<QHBoxLayout*>(toolbar.layout());
    QVERIFY(layout);
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(0)->widget(), toolbar.connectButton());
    QCOMPARE(layout->itemAt(1)->widget(), toolbar.addressInput());
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->spacing(), 5);
    for (int index = 0; index < 2; ++index) {
        QCOMPARE(layout->stretch(index), 0);
        QCOMPARE(layout->itemAt(index)->alignment(), Qt::Alignment());
    }
    QCOMPARE(toolbar.connectButton()->parent(), &toolbar);
    QCOMPARE(toolbar.addressInput()->parent(), &toolbar);
}

void ToolbarTest::the_sizes_are_those_of_a_tool_bar()
{
    FakeHost host;
    const Toolbar toolbar(host);
    QCOMPARE(toolbar.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(toolbar.sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(toolbar.maximumWidth(), 200);
    QCOMPARE(toolbar.minimumWidth(), 0); // it may be narrower
    QCOMPARE(toolbar.connectButton()->minimumSize(), QSize(27, 27));
    QCOMPARE(toolbar.connectButton()->maximumSize(), QSize(27, 27));
    QCOMPARE(toolbar.connectButton()->iconSize(), QSize(27, 27));
}

void ToolbarTest::it_never_grows_wider_than_200_pixels()
{
    FakeHost host;
    auto* toolbar = new Toolbar(host);
    QMainWindow window;
    QToolBar* bar = window.addToolBar("tools");
    bar->addWidget(toolbar);
    for (int width : {1500, 500, 1200}) {
        window.resize(width, 300);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTRY_COMPARE(toolbar->width(), 200);
        QCOMPARE(toolbar->connectButton()->size(), QSize(27, 27));
        QCOMPARE(toolbar->connectButton()->x(), 0);
        QCOMPARE(toolbar->addressInput()->x(), 27 + 5);
        QCOMPARE(toolbar->addressInput()->width(), 200 - 27 - 5);
    }

    auto* other = new Toolbar(host);
    QWidget wide;
    auto* layout = new QHBoxLayout(&wide);
    layout->addWidget(other);
    wide.resize(1500, 100);
    wide.show();
    QVERIFY(QTest::qWaitForWindowExposed(&wide));
    QTRY_COMPARE(other->width(), 200);
    QCOMPARE(other->connectButton()->size(), QSize(27, 27));
}

void ToolbarTest::its_help_is_about_the_toolbar()
{
    FakeHost host;
    const Toolbar toolbar(host);
    QCOMPARE(toolbar.helpContext(), QString("toolbar"));
    QCOMPARE(toolbar.helpAction(), host.helpAction("toolbar"));
}

TEST_WITH_WINDOWS(ToolbarTest)

} // namespace toolbar_test

#include "ToolbarTest.moc"
