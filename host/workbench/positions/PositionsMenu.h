// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_POSITIONS_POSITIONSMENU_H
#define HOST_WORKBENCH_POSITIONS_POSITIONSMENU_H

#include "host/workbench/positions/PositionHistory.h"

#include <QMenu>

namespace host::workbench::positions {

class ImportDialog;

/// What can be done with the device's positions as a whole: undo and redo their changes, carry them
/// to another device by the clipboard, and to and from a file.
class PositionsMenu : public QMenu
{
    Q_OBJECT

public:
    /// @p device outlives the menu. @p parent also owns the dialogs that the menu opens.
    PositionsMenu(device::Device& device, QWidget* parent);

    /// Reads @p fileName and opens the preview.
    void importFile(const QString& fileName);

Q_SIGNALS:
    /// Something cannot be done: in words, with what to do.
    void problem(const QString& words);

protected:
    void changeEvent(QEvent* event) override;

private:
    QByteArray table() const;
    void copy();
    void paste();
    void chooseFile();
    void exportTable();
    void offer(const QByteArray& table, const QString& source);
    void refresh();

    device::Device& m_device;
    QWidget& m_window;
    PositionHistory m_history;
    ImportDialog* m_dialog = nullptr; // until something is to be imported
    QAction* m_undo;
    QAction* m_redo;
    QAction* m_copy;
    QAction* m_paste;
    QAction* m_import;
    QAction* m_export;
};

} // namespace host::workbench::positions

#endif
