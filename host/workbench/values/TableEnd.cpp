// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/values/TableEnd.h"

#include <QAbstractItemView>
#include <QScrollBar>

namespace host::workbench::values {

TableEnd::TableEnd(QAbstractItemView& view) : QObject(&view)
{
    connect(view.model(), &QAbstractItemModel::rowsAboutToBeInserted, this, [this, &view] {
        const QScrollBar* const bar = view.verticalScrollBar();
        m_isInSight = bar->value() == bar->maximum();
    });
    connect(view.model(), &QAbstractItemModel::rowsInserted, this, [this, &view] {
        if (m_isInSight)
            view.scrollToBottom();
    });
}

} // namespace host::workbench::values
