// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "FullWindow.h"

#include <QAccessible>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <QTextBrowser>
#include <QtTest>

namespace accessible_names_test {

using namespace full_window;

namespace {

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

} // namespace

/// What a screen reader says of the window.
class AccessibleNamesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void every_control_has_a_name_data();
    void every_control_has_a_name();
    void a_card_has_names_too();
};

void AccessibleNamesTest::every_control_has_a_name_data()
{
    addLanguages();
}

void AccessibleNamesTest::every_control_has_a_name()
{
    expectWarning("does not support propagateSizeHints");
    QFETCH(const QString, language);
    FullWindow workbench;
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

void AccessibleNamesTest::a_card_has_names_too()
{
    expectWarning("does not support propagateSizeHints");
    FullWindow workbench(TEST_PLUGIN_FOLDER "/no_such_file.so");
    QVERIFY(isEmpty(unnamedControls(workbench.window)));
}

TEST_WITH_WINDOWS(AccessibleNamesTest)

} // namespace accessible_names_test

#include "AccessibleNamesTest.moc"
