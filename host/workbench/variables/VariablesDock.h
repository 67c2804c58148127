// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_VARIABLES_VARIABLESDOCK_H
#define HOST_WORKBENCH_VARIABLES_VARIABLESDOCK_H

#include "host/workbench/variables/VariableModel.h"

#include <QDockWidget>
#include <QSortFilterProxyModel>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeView;

namespace host::workbench::variables {

/// For developers of plugins: all variables of the device, and below them a form that sets the
/// chosen one as the device would, in any type. Hidden at first; nothing happens while it is.
class VariablesDock : public QDockWidget
{
    Q_OBJECT

public:
    /// @p variables outlives the dock.
    VariablesDock(device::variables::Variables& variables, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void nameChosen();
    void showChosen();
    void setChosen();
    int chosenRow() const;

    VariableModel m_model;
    QSortFilterProxyModel m_filtered;
    QLabel* m_filterLabel;
    QLineEdit* m_filter;
    QTreeView* m_view;
    QLabel* m_chosen;
    QLabel* m_typeLabel;
    QComboBox* m_type;
    QLabel* m_valueLabel;
    QLineEdit* m_value;
    QPushButton* m_set;
    QLabel* m_problem;
};

} // namespace host::workbench::variables

#endif
