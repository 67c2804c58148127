// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_BUGREPORT_BUGREPORTDIALOG_H
#define HOST_WORKBENCH_BUGREPORT_BUGREPORTDIALOG_H

#include "host/workbench/bugreport/BugReport.h"

#include <QDialog>

class QDialogButtonBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QSplitter;
class QTreeWidget;

namespace host::workbench::bugreport {

/// Shows what is in a bug report, file by file, before it is saved; what somebody does not want to
/// pass on can be left out.
class BugReportDialog : public QDialog
{
    Q_OBJECT

public:
    BugReportDialog(const BugReport& report, QWidget* parent);

    /// The parts that are chosen; all but recordings at first.
    QList<Part> chosen() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void showPart();
    void refresh();
    void askForFile();
    void save(const QString& fileName);

    const QList<Part> m_parts;
    QLabel* m_words;
    QTreeWidget* m_list;
    QPlainTextEdit* m_content;
    QLabel* m_problem;
    QDialogButtonBox* m_buttons;
    QPushButton* m_save;
};

} // namespace host::workbench::bugreport

#endif
