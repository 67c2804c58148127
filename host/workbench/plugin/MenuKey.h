// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PLUGIN_MENUKEY_H
#define HOST_WORKBENCH_PLUGIN_MENUKEY_H

#include <QObject>

class QAbstractItemView;

namespace host::workbench::plugin {

/// Opens, by the key Menu or Shift+F10, the menu of a plugin's table that hangs on the right mouse
/// button: the key becomes a press of that button on the current cell, or beside the cells where
/// there is none.
class MenuKey : public QObject
{
    Q_OBJECT

public:
    /// @p view owns this.
    explicit MenuKey(QAbstractItemView& view);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void press();

    QAbstractItemView& m_view;
};

} // namespace host::workbench::plugin

#endif
