// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "FullWindow.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>
#include <QtTest>

#include <algorithm>

namespace keyboard_test {

using namespace full_window;

namespace {

constexpr int tabCount = 3;

/// Whether Tab stops there.
bool isStop(const QWidget& widget)
{
    return !isOutOfSight(widget) && widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) &&
           !widget.focusProxy();
}

void pressTab(QWidget& window, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(window.windowHandle(), modifiers ? Qt::Key_Backtab : Qt::Key_Tab, modifiers);
}

/// Where Tab, or Shift and Tab, leads from @p start until it is there again.
QList<QWidget*> walk(QWidget& window, QWidget& start, Qt::KeyboardModifiers modifiers)
{
    constexpr int most = 200;
    QList<QWidget*> stops{&start};
    start.setFocus();
    for (int i = 0; i < most; ++i) {
        pressTab(window, modifiers);
        QWidget* const focus = QApplication::focusWidget();
        if (focus == stops.last())
            continue; // a text with links is left after its last link
        if (focus == &start)
            break;
        stops << focus;
    }
    return stops;
}

} // namespace

/// The whole window for those who have no mouse: Tab, the keys of menus, and where the focus is.
class KeyboardTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void tab_reaches_every_control_once_in_the_order_of_reading_data();
    void tab_reaches_every_control_once_in_the_order_of_reading();
    void an_editor_in_the_table_is_left_by_the_keyboard();
    void the_menu_leads_into_a_dock();
    void the_focus_can_be_seen_wherever_it_is();
    void no_key_means_two_things_data();
    void no_key_means_two_things();
};

void KeyboardTest::tab_reaches_every_control_once_in_the_order_of_reading_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("dock");
    QTest::addColumn<QStringList>("order");
    const QStringList toolBar{"ConnectButton", "AddressInput",
                              "host::workbench::operation::StopButton",
                              "QToolButton"}; // and the strip below
    const QStringList base{"AddressInput", "ConnectButton",      "QComboBox",
                           "QCheckBox",    "olm::qt::log::View", "QTabBar"};
    const QStringList manipulator{"QCheckBox",    "QCheckBox",          "QPushButton", "QCheckBox",
                                  "PositionView", "olm::qt::log::View", "QTabBar"};
    const QStringList laser{"olm::qt::log::View", "QTabBar"};
    const QStringList status{"host::workbench::recording::RecordButton"};
    const QStringList robot{"QToolButton", "QToolButton", "host::workbench::robotview::WorldView",
                            "QTreeView"};
    const QStringList drive{"QDoubleSpinBox", "QDoubleSpinBox",
                            "host::workbench::operation::DrivePad"};
    // Docks for operators are stacked, and those for developers.
    const QStringList tabBars{"QTabBar", "QTabBar"};
    const QStringList variables =
        QStringList{"QLineEdit", "QTreeView", "QComboBox", "QLineEdit", "QPushButton"} + tabBars;
    const QStringList traffic =
        QStringList{"QLineEdit",   "QCheckBox",   "QCheckBox", "QPushButton",
                    "QPushButton", "QPushButton", "QTreeView"} +
        tabBars;
    const QStringList help{"QTextBrowser"};
    QTest::newRow("base, variables")
        << 0 << "VariablesDock" << toolBar + base + status + robot + drive + variables + help;
    QTest::newRow("manipulator, traffic")
        << 1 << "TrafficDock" << toolBar + manipulator + status + robot + drive + traffic + help;
    QTest::newRow("laser, variables")
        << 2 << "VariablesDock" << toolBar + laser + status + robot + drive + variables + help;
}

void KeyboardTest::tab_reaches_every_control_once_in_the_order_of_reading()
{
    expectWarning("does not support propagateSizeHints");
    QFETCH(const int, tab);
    QFETCH(const QString, dock);
    QFETCH(const QStringList, order);
    FullWindow workbench;
    workbench.window.resize(1400, 1000);
    workbench.tabs().setCurrentIndex(tab);
    const QDockWidget& chosen = workbench.raised(qPrintable(dock));
    if (auto* const variables = chosen.findChild<QTreeView*>("variables"))
        variables->setCurrentIndex(variables->model()->index(0, 0)); // its form is enabled then
    QCoreApplication::processEvents();

    int count = 0;
    for (const auto* widget : workbench.window.findChildren<QWidget*>())
        count += isStop(*widget) ? 1 : 0;
    QCOMPARE(order.size(), count);

    auto* const first = workbench.window.findChild<QToolBar*>()->findChild<QToolButton*>(
        "OLM GmbH Quandrel ConnectButton");
    const QList<QWidget*> forth = walk(workbench.window, *first, Qt::NoModifier);
    QStringList found;
    for (const QWidget* widget : forth)
        found << widget->metaObject()->className();
    QCOMPARE(found.join(' '), order.join(' '));
    for (const QWidget* widget : forth)
        QVERIFY(!isOutOfSight(*widget));
    QCOMPARE(QSet<QWidget*>(forth.begin(), forth.end()).size(), forth.size());

    QList<QWidget*> back = walk(workbench.window, *forth.last(), Qt::ShiftModifier);
    std::reverse(back.begin(), back.end());
    QVERIFY(back == forth);
}

void KeyboardTest::an_editor_in_the_table_is_left_by_the_keyboard()
{
    expectWarning("does not support propagateSizeHints");
    FullWindow workbench;
    workbench.tabs().setCurrentIndex(1);
    QTableView& table = workbench.table();
    table.setFocus();
    for (const int column : {0, 3}) {
        for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
            table.setCurrentIndex(table.model()->index(0, column));
            QTest::keyClick(workbench.window.windowHandle(), Qt::Key_F2);
            QVERIFY(QApplication::focusWidget() != &table);
            QVERIFY(table.isAncestorOf(QApplication::focusWidget()));
            QVERIFY(!QApplication::focusWidget()->accessibleName().isEmpty());
            QTest::keyClick(workbench.window.windowHandle(), key);
            QTRY_COMPARE_WITH_TIMEOUT(QApplication::focusWidget(), static_cast<QWidget*>(&table),
                                      patience);
        }
    }
    pressTab(workbench.window);
    QVERIFY(!table.isAncestorOf(QApplication::focusWidget()));
    QVERIFY(QApplication::focusWidget() != &table);
}

void KeyboardTest::the_menu_leads_into_a_dock()
{
    expectWarning("does not support propagateSizeHints");
    FullWindow workbench;
    for (QDockWidget* dock : workbench.docks()) {
        dock->toggleViewAction()->trigger(); // closes it
        QVERIFY(!dock->isVisible());
    }
    for (QDockWidget* dock : workbench.docks()) {
        dock->toggleViewAction()->trigger();
        QCoreApplication::processEvents();
        QVERIFY2(!dock->visibleRegion().isEmpty(), qPrintable(dock->objectName()));
        QVERIFY2(dock->isAncestorOf(QApplication::focusWidget()), qPrintable(dock->objectName()));
    }
}

void KeyboardTest::the_focus_can_be_seen_wherever_it_is()
{
    expectWarning("does not support propagateSizeHints");
    QApplication::setCursorFlashTime(0);
    FullWindow workbench;
    workbench.window.resize(1400, 1000);
    QStringList unseen;
    for (int tab = 0; tab < tabCount; ++tab) {
        workbench.tabs().setCurrentIndex(tab);
        workbench.raised(tab == 1 ? "TrafficDock" : "VariablesDock");
        QCoreApplication::processEvents();
        auto* const first = workbench.window.findChild<QToolBar*>()->findChild<QToolButton*>(
            "OLM GmbH Quandrel ConnectButton");
        const QList<QWidget*> stops = walk(workbench.window, *first, Qt::NoModifier);
        for (int i = 0; i < stops.size(); ++i) {
            QWidget& stop = *stops.at(i);
            const QRect place(stop.mapTo(&workbench.window, QPoint()), stop.size());
            const auto picture = [&] {
                QCoreApplication::processEvents();
                return workbench.window.grab(place.adjusted(-3, -3, 3, 3)).toImage();
            };
            stop.setFocus(Qt::TabFocusReason);
            const QImage with = picture();
            stops.at((i + stops.size() / 2) % stops.size())->setFocus(Qt::TabFocusReason);
            if (picture() == with)
                unseen << describe(stop);
        }
    }
    QVERIFY(isEmpty(unseen));
}

void KeyboardTest::no_key_means_two_things_data()
{
    addLanguages();
}

/// Alt and a letter: of menus, buttons and labels.
void KeyboardTest::no_key_means_two_things()
{
    expectWarning("does not support propagateSizeHints");
    QFETCH(const QString, language);
    FullWindow workbench;
    workbench.use(language);
    const auto keys = [](const QWidget& window) {
        QStringList texts;
        for (const QAction* action :
             static_cast<const QMainWindow&>(window).menuWidget()->actions())
            texts << action->text();
        for (const auto* label : window.findChildren<QLabel*>()) {
            if (!isOutOfSight(*label) && label->buddy())
                texts << label->text();
        }
        for (const auto* button : window.findChildren<QAbstractButton*>()) {
            if (!isOutOfSight(*button))
                texts << button->text();
        }
        QHash<QString, QString> textOf;
        QStringList found;
        for (const QString& text : texts) {
            const QString key = QKeySequence::mnemonic(text).toString();
            if (key.isEmpty())
                continue;
            if (textOf.contains(key))
                found << key + ": " + textOf.value(key) + ", " + text;
            textOf.insert(key, text);
        }
        return found;
    };
    QVERIFY(isEmpty(workbench.find(keys)));
}

TEST_WITH_WINDOWS(KeyboardTest)

} // namespace keyboard_test

#include "KeyboardTest.moc"
