// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/stage/ShownState.h"

#include "host/input/ControlPath.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QComboBox>
#include <QScrollBar>
#include <QVariant>
#include <QWidget>

namespace host::check::stage {

namespace {

using State = QMap<QString, QString>;

constexpr int mostModelCells = 10000; // of a model

void addProperties(State& state, const QString& where, const QWidget& control)
{
    for (const char* property : {"text", "plainText", "title", "value", "minimum", "maximum",
                                 "checked", "currentIndex", "enabled"}) {
        const QVariant value = control.property(property);
        if (value.isValid())
            state.insert(QStringLiteral("%1 of %2").arg(QLatin1String(property), where),
                         value.toString());
    }
}

void addCells(State& state, const QString& where, const QAbstractItemModel& model,
              const QModelIndex& parent)
{
    const int rows = model.rowCount(parent);
    const int columns = model.columnCount(parent);
    state.insert("size of " + where, QStringLiteral("%1 x %2").arg(rows).arg(columns));
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns && row * columns + column < mostModelCells;
             ++column) {
            const QModelIndex cell = model.index(row, column, parent);
            state.insert(
                QStringLiteral("cell %1, %2 of %3")
                    .arg(QString::number(row + 1), QString::number(column + 1), where),
                QStringList{cell.data().toString(), cell.data(Qt::CheckStateRole).toString()}.join(
                    ' '));
        }
    }
}

} // namespace

QMap<QString, QString> shownState(const QWidget& root)
{
    State state;
    for (const QWidget* control : root.findChildren<QWidget*>()) {
        if (qobject_cast<const QScrollBar*>(control))
            continue; // where a person looks at the moment
        const QString where = input::pathOf(*control, root);
        addProperties(state, where, *control);
        const auto* const choice = qobject_cast<const QComboBox*>(control);
        const auto* const view = qobject_cast<const QAbstractItemView*>(control);
        if (choice)
            addCells(state, where, *choice->model(), choice->rootModelIndex());
        else if (view && view->model())
            addCells(state, where, *view->model(), view->rootIndex());
    }
    return state;
}

} // namespace host::check::stage
