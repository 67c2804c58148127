#include "TestCase.h"

#include "host/device/Device.h"
#include "host/workbench/help/HelpPanel.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/plugin/PluginLoader.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/Window.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QGroupBox>
#include <QHeaderView>
#include <QHostAddress>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>
#include <QtTest>

#include <algorithm>
#include <functional>

namespace accessibility_test {

using namespace host::workbench::plugin;
using namespace host::workbench::preferences;
using namespace host::workbench::window;
using host::device::Device;

namespace {

constexpr int patience = 30000;
constexpr int tabCount = 3;

/// A window with everything in it that it can show at once.
struct Workbench
{
    explicit Workbench(const QString& pluginFile = DEVICE_PLUGIN_FILE)
        : plugin(pluginFile),
          device("Quandrel", settings.path(), environment),
          window(plugin, environment)
    {
        window.add(device, "127.0.0.1:4711");
        view().notify("Something went wrong. Try again.");
        environment.helpAction("toolbar")->trigger();
        for (QDockWidget* dock : docks())
            dock->show();
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window, patience));
    }

    DeviceView& view() const { return *window.views().first(); }

    QList<QDockWidget*> docks() const
    {
        return view().findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly);
    }

    /// In front of the other.
    QDockWidget& raised(const char* name) const
    {
        auto* const dock = view().findChild<QDockWidget*>(name);
        dock->raise();
        QCoreApplication::processEvents();
        return *dock;
    }

    QTabWidget& tabs() const { return *window.findChild<QTabWidget*>(); }

    QTableView& table() const { return *window.findChild<QTableView*>(); }

    void use(const QString& language)
    {
        const QString before = window.windowTitle();
        environment.language().use(language);
        if (language != "en")
            QTRY_VERIFY_WITH_TIMEOUT(window.windowTitle() != before, patience);
    }

    /// Until the window is as large as all in it needs: a window within a window learns of that
    /// step by step.
    void settle() const
    {
        constexpr int steps = 10;
        for (int i = 0; i < steps; ++i)
            QCoreApplication::processEvents();
        QTRY_COMPARE_WITH_TIMEOUT(window.size(), window.size().expandedTo(window.minimumSizeHint()),
                                  patience);
    }

    /// What @p look finds, with every tab and every dock in front in its turn.
    QStringList find(const std::function<QStringList(const QWidget&)>& look) const
    {
        QStringList found;
        auto* const dialog = window.findChild<QTabWidget*>(); // none in place of a plugin
        for (int tab = 0; tab < (dialog ? dialog->count() : 1); ++tab) {
            if (dialog)
                dialog->setCurrentIndex(tab);
            settle();
            found << look(window);
        }
        for (QDockWidget* dock : docks()) {
            dock->raise();
            settle();
            found << look(window);
        }
        found.removeDuplicates();
        return found;
    }

    const QTemporaryDir settings;
    const PluginLoader plugin;
    PluginEnvironment environment;
    Device device;
    Window window;
};

QString describe(const QWidget& widget)
{
    QString words = widget.metaObject()->className();
    for (const QWidget* each = &widget; each; each = each->parentWidget()) {
        if (!each->objectName().isEmpty())
            return words + " in " + each->objectName();
    }
    return words;
}

/// A dock that lies behind another is beside its window.
bool isOutOfSight(const QWidget& widget)
{
    for (const QWidget* each = &widget; !each->isWindow(); each = each->parentWidget()) {
        if (!each->isVisible() || (qobject_cast<const QDockWidget*>(each) &&
                                   !each->parentWidget()->rect().intersects(each->geometry())))
            return true;
    }
    return false;
}

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

/// What a screen reader says of it. A combo box is named by its label, if not by itself.
QString nameOf(QWidget& widget)
{
    QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&widget);
    if (!interface)
        return {};
    if (!qobject_cast<QComboBox*>(&widget))
        return interface->text(QAccessible::Name);
    if (!widget.accessibleName().isEmpty())
        return widget.accessibleName();
    const auto relations = interface->relations(QAccessible::Label);
    return relations.isEmpty() ? QString() : relations.first().first->text(QAccessible::Name);
}

bool isControl(QWidget& widget)
{
    const QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&widget);
    if (!interface || isOutOfSight(widget) || widget.focusProxy())
        return false;
    switch (interface->role()) {
    case QAccessible::Button:
    case QAccessible::ButtonMenu:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::SpinBox:
    case QAccessible::Slider:
    case QAccessible::Table:
    case QAccessible::Tree:
    case QAccessible::List:
        return !qobject_cast<QHeaderView*>(&widget);
    default:
        return widget.focusPolicy() & Qt::TabFocus;
    }
}

QStringList unnamedControls(const QWidget& window)
{
    QStringList unnamed;
    for (auto* widget : window.findChildren<QWidget*>()) {
        if (isControl(*widget) && nameOf(*widget).trimmed().isEmpty())
            unnamed << describe(*widget);
    }
    return unnamed;
}

/// Empty if all of the text has room.
QString clipped(const QWidget& widget)
{
    const QSize hint = widget.sizeHint();
    const QSize size = widget.size();
    constexpr int leading = 1; // what lies between lines may be missing
    QString text;
    bool fits = true;
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        text = label->text();
        fits = label->wordWrap()
                   ? label->heightForWidth(size.width()) <= size.height() &&
                         label->minimumSizeHint().width() <= size.width()
                   : hint.width() <= size.width() && hint.height() <= size.height() + leading;
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        text = button->text();
        fits = hint.width() <= size.width() && hint.height() <= size.height();
    } else if (const auto* box = qobject_cast<const QGroupBox*>(&widget)) {
        text = box->title();
        fits = box->minimumSizeHint().width() <= size.width();
    } else if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        text = combo->currentText();
        QStyleOptionComboBox option;
        option.initFrom(combo);
        option.editable = combo->isEditable();
        const QRect field = combo->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                           QStyle::SC_ComboBoxEditField, combo);
        fits = combo->isEditable() || combo->fontMetrics().horizontalAdvance(text) <= field.width();
    } else if (const auto* bar = qobject_cast<const QTabBar*>(&widget)) {
        for (int tab = 0; tab < bar->count(); ++tab) {
            text += bar->tabText(tab) + ' ';
            fits =
                fits && bar->rect().contains(bar->tabRect(tab)) &&
                bar->fontMetrics().horizontalAdvance(bar->tabText(tab)) < bar->tabRect(tab).width();
        }
    }
    if (fits || text.isEmpty())
        return {};
    return QString("%1: \"%2\" has %3 x %4 of %5 x %6")
        .arg(describe(widget), text)
        .arg(size.width())
        .arg(size.height())
        .arg(hint.width())
        .arg(hint.height());
}

/// Whether something around it cuts it off, where it could not be scrolled to either.
bool isCutOff(const QWidget& widget)
{
    QRect rect = widget.rect();
    for (const QWidget* each = &widget; !each->isWindow(); each = each->parentWidget()) {
        const QWidget* const parent = each->parentWidget();
        if (const auto* area = qobject_cast<const QScrollArea*>(parent->parentWidget())) {
            if (area->viewport() == parent)
                return false;
        }
        rect.translate(each->pos());
        if (!parent->rect().contains(rect))
            return true;
    }
    return false;
}

QStringList clippedTexts(const QWidget& window)
{
    QStringList found;
    for (const auto* widget : window.findChildren<QWidget*>()) {
        if (isOutOfSight(*widget))
            continue;
        const QString words = clipped(*widget);
        if (!words.isEmpty())
            found << words;
        else if (widget->focusPolicy() != Qt::NoFocus && isCutOff(*widget))
            found << describe(*widget) + " is cut off";
    }
    return found;
}

/// Says the whole of it, which a comparison would cut short.
bool isEmpty(const QStringList& found)
{
    for (const QString& words : found)
        qWarning().noquote() << words;
    return found.isEmpty();
}

void addLanguages()
{
    QTest::addColumn<QString>("language");
    for (const QString& code : Language::codes())
        QTest::newRow(qPrintable(code)) << code;
}

} // namespace

/// The whole window for those who have no mouse, see little, or have small screens.
class AccessibilityTest : public TestCase
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
    void every_control_has_a_name_data();
    void every_control_has_a_name();
    void a_card_has_names_too();
    void nothing_is_clipped_in_the_smallest_window_data();
    void nothing_is_clipped_in_the_smallest_window();
};

void AccessibilityTest::tab_reaches_every_control_once_in_the_order_of_reading_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("dock");
    QTest::addColumn<QStringList>("order");
    const QStringList toolBar{"ConnectButton", "AddressInput",
                              "QToolButton"}; // and the strip below
    const QStringList base{"AddressInput", "ConnectButton",      "QComboBox",
                           "QCheckBox",    "olm::qt::log::View", "QTabBar"};
    const QStringList manipulator{"QCheckBox",    "QCheckBox",          "QPushButton", "QCheckBox",
                                  "PositionView", "olm::qt::log::View", "QTabBar"};
    const QStringList laser{"olm::qt::log::View", "QTabBar"};
    const QStringList robot{"QToolButton", "QToolButton", "host::workbench::robotview::WorldView",
                            "QTreeView"};
    const QStringList variables{"QLineEdit", "QTreeView",   "QComboBox",
                                "QLineEdit", "QPushButton", "QTabBar"};
    const QStringList traffic{"QLineEdit",   "QPushButton", "QPushButton",
                              "QPushButton", "QTreeView",   "QTabBar"};
    const QStringList help{"QTextBrowser"};
    QTest::newRow("base, variables")
        << 0 << "VariablesDock" << toolBar + base + robot + variables + help;
    QTest::newRow("manipulator, traffic")
        << 1 << "TrafficDock" << toolBar + manipulator + robot + traffic + help;
    QTest::newRow("laser, variables")
        << 2 << "VariablesDock" << toolBar + laser + robot + variables + help;
}

void AccessibilityTest::tab_reaches_every_control_once_in_the_order_of_reading()
{
    expectWarning("does not support propagateSizeHints");
    QFETCH(const int, tab);
    QFETCH(const QString, dock);
    QFETCH(const QStringList, order);
    Workbench workbench;
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

void AccessibilityTest::an_editor_in_the_table_is_left_by_the_keyboard()
{
    expectWarning("does not support propagateSizeHints");
    Workbench workbench;
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

void AccessibilityTest::the_menu_leads_into_a_dock()
{
    expectWarning("does not support propagateSizeHints");
    Workbench workbench;
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

void AccessibilityTest::the_focus_can_be_seen_wherever_it_is()
{
    expectWarning("does not support propagateSizeHints");
    QApplication::setCursorFlashTime(0);
    Workbench workbench;
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

void AccessibilityTest::no_key_means_two_things_data()
{
    addLanguages();
}

/// Alt and a letter: of menus, buttons and labels.
void AccessibilityTest::no_key_means_two_things()
{
    expectWarning("does not support propagateSizeHints");
    QFETCH(const QString, language);
    Workbench workbench;
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

void AccessibilityTest::every_control_has_a_name_data()
{
    addLanguages();
}

void AccessibilityTest::every_control_has_a_name()
{
    expectWarning("does not support propagateSizeHints");
    QFETCH(const QString, language);
    Workbench workbench;
    workbench.use(language);
    QVERIFY(isEmpty(workbench.find(unnamedControls)));

    // The name of a group is none of what is in it.
    const auto* const camera = workbench.tabs().findChild<QGroupBox*>();
    QCOMPARE(nameOf(*camera->findChild<QComboBox*>()), camera->findChild<QLabel*>()->text());

    // Those that no eye sees are translated too.
    const auto untranslated = [](const QWidget& window) {
        QStringList found;
        for (const auto* widget : window.findChildren<QWidget*>()) {
            const QString name = widget->accessibleName();
            // The help is written in two languages, Qt's buttons speak none.
            const bool isExempt = qobject_cast<const QTextBrowser*>(widget) ||
                                  widget->objectName().startsWith("qt_") ||
                                  qobject_cast<const QTabBar*>(widget->parentWidget()) ||
                                  name == "Quandrel";
            if (!isExempt && !isOutOfSight(*widget) && !name.isEmpty() && !name.contains('['))
                found << describe(*widget) + ": " + name;
        }
        return found;
    };
    if (language == "pseudo")
        QVERIFY(isEmpty(workbench.find(untranslated)));

    for (const QAction* title : workbench.window.menuBar()->actions()) {
        QVERIFY(!title->text().isEmpty());
        for (const QAction* entry : title->menu()->actions())
            QVERIFY2(entry->isSeparator() || !entry->text().isEmpty(), qPrintable(title->text()));
    }
}

void AccessibilityTest::a_card_has_names_too()
{
    expectWarning("does not support propagateSizeHints");
    Workbench workbench(TEST_PLUGIN_FOLDER "/no_such_file.so");
    QVERIFY(isEmpty(unnamedControls(workbench.window)));
}

void AccessibilityTest::nothing_is_clipped_in_the_smallest_window_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("plugin");
    for (const QString& code : Language::codes()) {
        QTest::addRow("%s", qPrintable(code)) << code << DEVICE_PLUGIN_FILE;
        QTest::addRow("%s, without dialog", qPrintable(code))
            << code << TEST_PLUGIN_FOLDER "/OnlyToolbar.so";
        QTest::addRow("%s, without plugin", qPrintable(code))
            << code << TEST_PLUGIN_FOLDER "/no_such_file.so";
    }
}

void AccessibilityTest::nothing_is_clipped_in_the_smallest_window()
{
    expectWarning("does not support propagateSizeHints");
    QFETCH(const QString, language);
    QFETCH(const QString, plugin);
    // Bound and not listening: this port refuses as long as the socket lives. That leaves the
    // longest of all words about a connection.
    QTcpSocket closedPort;
    QVERIFY(closedPort.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress));
    Workbench workbench(plugin);
    workbench.use(language);
    workbench.device.overrideAddress("127.0.0.1:" + QString::number(closedPort.localPort()));
    workbench.device.connectDevice();
    QTRY_VERIFY_WITH_TIMEOUT(!workbench.device.connection().lastFailure().words.isEmpty(),
                             patience);

    workbench.settle();
    workbench.window.resize(workbench.window.minimumSizeHint());
    QVERIFY(isEmpty(workbench.find(clippedTexts)));
}

TEST_WITH_WINDOWS(AccessibilityTest)

} // namespace accessibility_test

#include "AccessibilityTest.moc"
