// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_TABORDER_H
#define HOST_WORKBENCH_WINDOW_TABORDER_H

#include <QList>

class QWidget;

namespace host::workbench::window {

/// Where Tab goes in a window of devices: one device after the other, in each from its tool bar
/// through its dialog to its docks, from the top to the bottom, and to the help at last. Left to
/// itself Tab would follow the order in which a plugin happened to build its controls, and go into
/// docks that lie behind another.
class TabOrder
{
public:
    /// As the window is now.
    explicit TabOrder(const QWidget& window);

    const QList<QWidget*>& stops() const { return m_stops; }

    /// The stop after @p focus, or before it; the first or the last one where @p focus is null or
    /// in no stop. Null where there are none.
    QWidget* next(QWidget* focus, bool forward) const;

private:
    QList<QWidget*> m_stops;
};

} // namespace host::workbench::window

#endif
