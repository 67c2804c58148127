// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_VALUES_TABLEEND_H
#define HOST_WORKBENCH_VALUES_TABLEEND_H

#include <QObject>

class QAbstractItemView;

namespace host::workbench::values {

/// Keeps the newest row of a growing table in sight, unless a person has scrolled away from it.
class TableEnd : public QObject
{
    Q_OBJECT

public:
    /// @p view owns this, and keeps its model.
    explicit TableEnd(QAbstractItemView& view);

private:
    bool m_isInSight = true;
};

} // namespace host::workbench::values

#endif
