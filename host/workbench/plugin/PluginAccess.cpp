// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/plugin/PluginAccess.h"

#include "host/workbench/plugin/DialogOpening.h"
#include "host/workbench/plugin/MenuKey.h"
#include "olm/qt/log/View.h"

#include <QAbstractItemModel>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QChildEvent>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableView>

#include <algorithm>
#include <iterator>

namespace host::workbench::plugin {

namespace {

/// @p editor is in a cell of @p table, and of its column.
void nameEditor(QWidget& editor, const QTableView& table)
{
    const int column = table.currentIndex().column();
    editor.setAccessibleName(table.model()->headerData(column, Qt::Horizontal).toString());
}

/// What a dialog with one field asks for is its title.
void nameField(const QDialog& dialog)
{
    const auto fields = dialog.findChildren<QAbstractSpinBox*>();
    if (fields.size() == 1)
        fields.first()->setAccessibleName(dialog.windowTitle());
}

/// The control that @p widget is a part of, as the field of a combo box is.
QWidget& wholeOf(QWidget& widget)
{
    QWidget* const parent = widget.parentWidget();
    const bool isPart = qobject_cast<QComboBox*>(parent) || qobject_cast<QAbstractSpinBox*>(parent);
    return isPart ? *parent : widget;
}

QString labelOf(QWidget& control)
{
    const auto labels =
        QAccessible::queryAccessibleInterface(&control)->relations(QAccessible::Label);
    return labels.isEmpty() ? QString() : labels.first().first->text(QAccessible::Name);
}

QString placeholderOf(const QWidget& control)
{
    const auto* const combo = qobject_cast<const QComboBox*>(&control);
    const auto* const field = combo ? combo->lineEdit() : qobject_cast<const QLineEdit*>(&control);
    return field ? field->placeholderText() : QString();
}

} // namespace

PluginAccess::PluginAccess(QWidget& widget) : QObject(&widget), m_widget(widget)
{
    widget.installEventFilter(this);
    for (auto* table : widget.findChildren<QTableView*>()) {
        table->setTabKeyNavigation(false); // the arrow keys lead from cell to cell
        table->installEventFilter(this);
        table->viewport()->installEventFilter(this);
        new MenuKey(*table); // a child
    }
    for (auto* tabs : widget.findChildren<QTabWidget*>())
        tabs->setUsesScrollButtons(false);
    for (auto* control : widget.findChildren<QWidget*>()) {
        if (!isNameless(*control))
            continue;
        m_nameless << control;
        control->installEventFilter(this);
    }
}

bool PluginAccess::eventFilter(QObject* watched, QEvent* event)
{
    // What surrounds the plugin has its titles by the time that the plugin is shown.
    if (watched == &m_widget &&
        (event->type() == QEvent::Show || event->type() == QEvent::LanguageChange))
        nameAll();
    if (event->type() == QEvent::ToolTipChange)
        nameAll();
    if (event->type() != QEvent::ChildPolished)
        return false;
    QObject* const child = static_cast<QChildEvent*>(event)->child();
    if (const auto* table = qobject_cast<QTableView*>(watched->parent())) {
        if (watched == table->viewport() && child->isWidgetType())
            nameEditor(static_cast<QWidget&>(*child), *table);
    } else if (auto* dialog = qobject_cast<QDialog*>(child)) {
        nameField(*dialog);
        new DialogOpening(*dialog); // a child
    }
    return false;
}

/// Whether a screen reader would have nothing to say of it.
bool PluginAccess::isNameless(QWidget& widget)
{
    const QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&widget);
    if (!interface || !widget.accessibleName().isEmpty() || kindOf(widget).isEmpty())
        return false;
    // What a combo box calls its name is what it shows.
    return qobject_cast<QComboBox*>(&widget) ? labelOf(widget).isEmpty()
                                             : interface->text(QAccessible::Name).isEmpty();
}

/// Empty for what is no control.
QString PluginAccess::kindOf(QWidget& widget)
{
    if (qobject_cast<olm::qt::log::View*>(&widget))
        return tr("Log");
    if (widget.inherits("QTableCornerButton"))
        return tr("Select all");
    const QAccessibleInterface& interface = *QAccessible::queryAccessibleInterface(&widget);
    switch (interface.role()) {
    case QAccessible::Button:
    case QAccessible::ButtonMenu:
    case QAccessible::ButtonDropDown:
        return tr("Button");
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
        return tr("Option");
    case QAccessible::ComboBox:
        return static_cast<QComboBox&>(widget).isEditable() ? tr("Input field") : tr("Selection");
    case QAccessible::EditableText:
        return interface.state().readOnly ? tr("Text") : tr("Input field");
    case QAccessible::SpinBox:
    case QAccessible::Slider:
    case QAccessible::Dial:
        return tr("Number");
    case QAccessible::Table:
        return qobject_cast<QHeaderView*>(&widget) ? QString() : tr("Table");
    case QAccessible::Tree:
        return tr("Tree");
    case QAccessible::List:
        return tr("List");
    default:
        return {};
    }
}

void PluginAccess::nameAll()
{
    for (const QPointer<QWidget>& control : std::as_const(m_nameless)) {
        if (control)
            name(*control);
    }
}

void PluginAccess::name(QWidget& control) const
{
    QWidget& whole = wholeOf(control);
    const QString kind = kindOf(control);
    const QString place = placeOf(whole);
    const QString words[] = {labelOf(whole), whole.toolTip(), placeholderOf(whole),
                             place.isEmpty() ? kind : tr("%1: %2").arg(place, kind)};
    control.setAccessibleName(*std::find_if(std::begin(words), std::end(words),
                                            [](const QString& each) { return !each.isEmpty(); }));
}

/// The title of the group, tab, dialog or bar that is nearest around it, if there is any.
QString PluginAccess::placeOf(const QWidget& control) const
{
    QString title;
    const QWidget* inner = &control;
    while (title.isEmpty() && inner != m_widget.parentWidget()) {
        const QWidget* const outer = inner->parentWidget();
        if (!outer)
            break;
        if (const auto* tabs = qobject_cast<const QTabWidget*>(outer->parentWidget()))
            // The pages are in a stack. Qt 5 looks for a widget that is not const only.
            title = tabs->tabText(tabs->indexOf(const_cast<QWidget*>(inner)));
        else if (const auto* box = qobject_cast<const QGroupBox*>(outer))
            title = box->title();
        if (title.isEmpty())
            title = outer->windowTitle();
        inner = outer;
    }
    return title.remove('&');
}

} // namespace host::workbench::plugin
