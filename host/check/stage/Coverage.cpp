// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/stage/Coverage.h"

#include "host/check/stage/Controls.h"
#include "host/input/ControlPath.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QMenu>

#include <algorithm>

namespace host::check::stage {

namespace {

constexpr int mostCells = 1000; // of a table

QString inCell(const QString& view, int row, int column)
{
    return QStringLiteral("%1 %2,%3").arg(view, QString::number(row), QString::number(column));
}

} // namespace

Coverage::Coverage(QWidget& root) : m_root(&root)
{
    forEachControl(root, [&](QWidget& control) { m_controls << input::pathOf(control, root); });
    for (QAction* action : root.findChildren<QAction*>())
        watch(*action);
    for (const QAbstractItemView* view : root.findChildren<QAbstractItemView*>()) {
        const QAbstractItemModel* const model = view->model();
        if (!model)
            continue;
        const int columns = model->columnCount(view->rootIndex());
        const int count = std::min(model->rowCount(view->rootIndex()) * columns, mostCells);
        for (int i = 0; i < count; ++i)
            m_cells << inCell(input::pathOf(*view, root), i / columns, i % columns);
    }
    look();
}

void Coverage::watch(QAction& action)
{
    if (m_watched.contains(&action) || action.isSeparator() || !action.isEnabled())
        return;
    m_watched << &action;
    const QString name = action.text();
    m_actions << name;
    QObject::connect(&action, &QAction::triggered, &m_context,
                     [this, name] { m_usedActions << name; });
    QObject::connect(&action, &QObject::destroyed, &m_context,
                     [this](const QObject* gone) { m_watched.remove(gone); });
}

void Coverage::look()
{
    if (!m_root)
        return;
    if (const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
        for (QAction* action : menu->actions())
            watch(*action);
    }
    for (const QAbstractItemView* view : m_root->findChildren<QAbstractItemView*>()) {
        const QModelIndex current = view->currentIndex();
        if (current.isValid() && view->isVisible())
            m_usedCells << inCell(input::pathOf(*view, *m_root), current.row(), current.column());
    }
}

QString Coverage::inWords() const
{
    const auto among = [](const QSet<QString>& used, const QSet<QString>& all) {
        QSet<QString> known = all;
        known.unite(used);
        return QStringLiteral("%1 of its %2").arg(used.size()).arg(known.size());
    };
    return QStringLiteral("%1 controls, %2 actions and %3 cells were used")
        .arg(among(m_usedControls & m_controls, m_controls), among(m_usedActions, m_actions),
             among(m_usedCells, m_cells));
}

} // namespace host::check::stage
