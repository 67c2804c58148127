// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "plugin/gui/PluginWidget.h"

#include "TestCase.h"
#include "tests/src/FakeHost.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

namespace plugin_widget_test {

using plugin::gui::PluginWidget;

class PluginWidgetTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void texts_are_translated_by_the_host();
    void the_help_action_is_the_hosts_one_for_the_context();
    void a_plain_widget_has_no_help_and_no_library();
    void translate_does_nothing_by_default();
    void update_repaints_the_widget();
    void a_press_beside_the_controls_ends_an_edit();
};

void PluginWidgetTest::texts_are_translated_by_the_host()
{
    FakeHost host;
    const PluginWidget widget(host, nullptr);
    QCOMPARE(widget.trans("Base"), QString("Base"));
    QCOMPARE(widget.currentLanguage(), QString("en"));
    host.language = "de";
    host.dictionary = {{"Base", "Basis"}};
    QCOMPARE(widget.trans("Base"), QString("Basis"));
    QCOMPARE(widget.trans("base"), QString("base"));
    QCOMPARE(widget.currentLanguage(), QString("de"));
}

void PluginWidgetTest::the_help_action_is_the_hosts_one_for_the_context()
{
    FakeHost host;
    QAction* action = nullptr;
    {
        const PluginWidget widget(host, nullptr);
        const PluginWidget second(host, nullptr);
        action = widget.helpAction("manipulator");
        QCOMPARE(second.helpAction("manipulator"), action);
        QVERIFY(widget.helpAction("rangefinder") != action);
        QCOMPARE(host.calls,
                 (QStringList{"help manipulator", "help manipulator", "help rangefinder"}));
    }
    QCOMPARE(action->text(), QString("Help on manipulator")); // and lives on
}

void PluginWidgetTest::a_plain_widget_has_no_help_and_no_library()
{
    FakeHost host;
    QWidget parent;
    auto* widget = new PluginWidget(host, &parent);
    QCOMPARE(widget->parent(), &parent);
    QCOMPARE(widget->helpContext(), QString());
    QVERIFY(widget->libraryActions("library", "group", true).isEmpty());
    QCOMPARE(host.calls, QStringList());
}

void PluginWidgetTest::translate_does_nothing_by_default()
{
    FakeHost host;
    PluginWidget widget(host, nullptr);
    widget.translate();
    QCOMPARE(host.calls, QStringList());
}

void PluginWidgetTest::update_repaints_the_widget()
{
    struct Painted : PluginWidget
    {
        using PluginWidget::PluginWidget;
        void paintEvent(QPaintEvent*) override { ++paints; }
        int paints = 0;
    };
    FakeHost host;
    Painted widget(host, nullptr);
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QTRY_VERIFY(widget.paints > 0);
    widget.paints = 0;
    PluginWidget& base = widget;
    base.update();
    QTRY_VERIFY(widget.paints > 0);
}

void PluginWidgetTest::a_press_beside_the_controls_ends_an_edit()
{
    FakeHost host;
    PluginWidget widget(host, nullptr);
    QLineEdit field(&widget);
    widget.resize(300, 200);
    widget.show();
    QVERIFY(QTest::qWaitForWindowActive(&widget));
    field.setFocus();
    const QSignalSpy finished(&field, &QLineEdit::editingFinished);
    QTest::keyClicks(&field, "typed");
    QCOMPARE(finished.size(), 0);
    QTest::mousePress(&widget, Qt::LeftButton, {}, QPoint(290, 190));
    QCOMPARE(finished.size(), 1);
    QVERIFY(widget.hasFocus());
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, QPoint(290, 190));
}

TEST_WITH_WINDOWS(PluginWidgetTest)

} // namespace plugin_widget_test

#include "PluginWidgetTest.moc"
