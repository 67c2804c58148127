// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_VALUES_TABLEDOCK_H
#define HOST_WORKBENCH_VALUES_TABLEDOCK_H

#include <QDockWidget>
#include <QList>

class QAbstractItemModel;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeView;

namespace host::workbench::values {

/// A dock with a growing table below a filter and the buttons pause, clear and save. Hidden at
/// first. What is listed, and all texts, come from who inherits it.
class TableDock : public QDockWidget
{
    Q_OBJECT

public:
    explicit TableDock(QWidget* parent);

Q_SIGNALS:
    /// The table could not be saved; with what to do.
    void problem(const QString& words);

protected:
    void changeEvent(QEvent* event) override;

    /// Lists @p table, which outlives its use here, in a view called @p name: at least
    /// @p fewestRows, in columns of @p widths in characters; @p choices stand beside the filter.
    /// To be called once.
    void list(QAbstractItemModel& table, const QString& name, int fewestRows,
              const QList<int>& widths, const QList<QWidget*>& choices);

    /// Asks for a file, and saves what is listed there.
    void askForFile(const QString& title);

    /// The language has changed.
    virtual void translate() = 0;

    QLabel& filterLabel() const { return *m_filterLabel; }
    QLineEdit& filter() const { return *m_filter; }
    QPushButton& pauseButton() const { return *m_pause; }
    QPushButton& clearButton() const { return *m_clear; }
    QPushButton& saveButton() const { return *m_save; }
    QTreeView& view() const { return *m_view; }

private:
    QLabel* m_filterLabel;
    QLineEdit* m_filter;
    QPushButton* m_pause;
    QPushButton* m_clear;
    QPushButton* m_save;
    QTreeView* m_view;
};

} // namespace host::workbench::values

#endif
