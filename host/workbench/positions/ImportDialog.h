// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_POSITIONS_IMPORTDIALOG_H
#define HOST_WORKBENCH_POSITIONS_IMPORTDIALOG_H

#include "host/workbench/positions/ImportPlan.h"

#include <QDialog>

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QPushButton;
class QTableWidget;

namespace host::device {
class Device;
}

namespace host::workbench::positions {

class PositionHistory;

/// Shows what an import would make of the device's positions, before it does.
class ImportDialog : public QDialog
{
    Q_OBJECT

public:
    /// Both outlive the dialog; the history tells of changes while it is open.
    ImportDialog(device::Device& device, const PositionHistory& history, QWidget* parent);

    /// Opens the dialog for @p positions; @p source is where they come from, in words.
    void offer(const ImportPlan::Positions& positions, const QString& source);

protected:
    void changeEvent(QEvent* event) override;

private:
    ImportPlan plan() const;
    static QString inWords(ImportPlan::Change change);
    void translate();
    void refresh();
    void import();

    device::Device& m_device;
    ImportPlan::Positions m_offered;
    QString m_source;
    QLabel* m_words;
    QComboBox* m_way;
    QTableWidget* m_table;
    QLabel* m_problem;
    QDialogButtonBox* m_buttons;
    QPushButton* m_import;
};

} // namespace host::workbench::positions

#endif
