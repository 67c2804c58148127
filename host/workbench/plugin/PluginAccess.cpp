#include "host/workbench/plugin/PluginAccess.h"

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QAbstractSpinBox>
#include <QChildEvent>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableView>

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

} // namespace

PluginAccess::PluginAccess(QWidget& widget) : QObject(&widget), m_widget(widget)
{
    widget.installEventFilter(this);
    for (auto* table : widget.findChildren<QTableView*>()) {
        table->setTabKeyNavigation(false); // the arrow keys lead from cell to cell
        table->installEventFilter(this);
        table->viewport()->installEventFilter(this);
    }
    for (auto* tabs : widget.findChildren<QTabWidget*>())
        tabs->setUsesScrollButtons(false);
    translate();
}

bool PluginAccess::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::LanguageChange && watched == &m_widget)
        translate();
    if (event->type() != QEvent::ChildPolished)
        return false;
    QObject* const child = static_cast<QChildEvent*>(event)->child();
    if (const auto* table = qobject_cast<QTableView*>(watched->parent())) {
        if (watched == table->viewport() && child->isWidgetType())
            nameEditor(static_cast<QWidget&>(*child), *table);
    } else if (const auto* dialog = qobject_cast<QDialog*>(child)) {
        nameField(*dialog);
    }
    return false;
}

void PluginAccess::translate()
{
    for (auto* widget : m_widget.findChildren<QWidget*>()) {
        if (widget->inherits("ConnectButton")) {
            widget->setAccessibleName(tr("Connect or disconnect"));
        } else if (widget->inherits("AddressInput")) {
            widget->setAccessibleName(tr("Address of the robot"));
            static_cast<QComboBox*>(widget)->lineEdit()->setAccessibleName(
                widget->accessibleName());
        } else if (widget->inherits("PositionView")) {
            widget->setAccessibleName(tr("Stored positions of the arm"));
        } else if (widget->inherits("QTableCornerButton")) {
            widget->setAccessibleName(tr("Select all"));
        } else if (widget->inherits("olm::qt::log::View")) {
            widget->setAccessibleName(tr("Log"));
        }
    }
}

} // namespace host::workbench::plugin
