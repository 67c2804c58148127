// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/bugreport/BugReportDialog.h"

#include "host/workbench/bugreport/ReportArchive.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QFileDialog>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace host::workbench::bugreport {

namespace {

enum Column
{
    NameColumn,
    SizeColumn,
    ColumnCount
};

} // namespace

BugReportDialog::BugReportDialog(const BugReport& report, QWidget* parent)
    : QDialog(parent),
      m_parts(report.parts()),
      m_words(new QLabel),
      m_list(new QTreeWidget),
      m_content(new QPlainTextEdit),
      m_problem(new QLabel),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Close)),
      m_save(m_buttons->addButton(QString(), QDialogButtonBox::ActionRole))
{
    setObjectName("BugReportDialog");
    m_words->setTextFormat(Qt::PlainText);
    m_words->setWordWrap(true);
    m_list->setObjectName("files");
    m_list->setColumnCount(ColumnCount);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    for (const Part& part : m_parts) {
        auto* item = new QTreeWidgetItem(m_list, {part.name, QString()});
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        // What a robot has sent may show anything: somebody has to want that.
        item->setCheckState(NameColumn, part.file.isEmpty() ? Qt::Checked : Qt::Unchecked);
        item->setTextAlignment(SizeColumn, Qt::AlignRight | Qt::AlignVCenter);
    }
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    m_list->header()->setSectionResizeMode(SizeColumn, QHeaderView::ResizeToContents);
    m_content->setObjectName("content");
    m_content->setReadOnly(true);
    m_content->setTabChangesFocus(true);
    m_content->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_content->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_problem->setObjectName("problem");
    m_problem->setTextFormat(Qt::PlainText);
    m_problem->setWordWrap(true);
    m_problem->hide();
    m_save->setObjectName("save");
    m_save->setDefault(true);

    auto* splitter = new QSplitter;
    splitter->addWidget(m_list);
    splitter->addWidget(m_content);
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(1, 1); // the names have as much as they need
    const int character = fontMetrics().averageCharWidth();
    splitter->setSizes({44 * character, 76 * character});
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_words);
    layout->addWidget(splitter, 1);
    layout->addWidget(m_problem);
    layout->addWidget(m_buttons);
    resize(120 * character, 28 * fontMetrics().height());

    connect(m_list, &QTreeWidget::currentItemChanged, this, &BugReportDialog::showPart);
    connect(m_list, &QTreeWidget::itemChanged, this, &BugReportDialog::refresh);
    connect(m_save, &QPushButton::clicked, this, &BugReportDialog::askForFile);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    translate();
    m_list->setCurrentItem(m_list->topLevelItem(0));
}

QList<Part> BugReportDialog::chosen() const
{
    QList<Part> chosen;
    for (int i = 0; i < m_parts.size(); ++i) {
        if (m_list->topLevelItem(i)->checkState(NameColumn) == Qt::Checked)
            chosen << m_parts.at(i);
    }
    return chosen;
}

void BugReportDialog::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

void BugReportDialog::translate()
{
    setWindowTitle(tr("Save a bug report"));
    m_words->setText(
        tr("The checked files go into the report. Addresses, certificates and histories "
           "have been taken out; read what is left before you pass it on."));
    m_list->setAccessibleName(tr("Files of the report"));
    m_list->setHeaderLabels({tr("File"), tr("Size")});
    for (int i = 0; i < m_parts.size(); ++i)
        m_list->topLevelItem(i)->setText(SizeColumn,
                                         QLocale().formattedDataSize(m_parts.at(i).size()));
    m_content->setAccessibleName(tr("Content of the file"));
    m_save->setText(tr("&Save…"));
}

void BugReportDialog::showPart()
{
    const int row = m_list->indexOfTopLevelItem(m_list->currentItem());
    const Part part = row < 0 ? Part() : m_parts.at(row);
    m_content->setPlainText(part.file.isEmpty()
                                ? QString::fromUtf8(part.content)
                                : tr("The last recording, %1, with all that the robot sent. "
                                     "Addresses in it are not taken out.")
                                      .arg(part.file));
}

void BugReportDialog::refresh()
{
    m_save->setEnabled(!chosen().isEmpty());
}

void BugReportDialog::askForFile()
{
    auto* dialog = new QFileDialog(this, tr("Save the bug report"), "bug-report.tar.gz",
                                   tr("Compressed archives (*.tar.gz)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    connect(dialog, &QFileDialog::fileSelected, this, &BugReportDialog::save);
    dialog->open();
}

void BugReportDialog::save(const QString& fileName)
{
    const QString problem = ReportArchive::write(fileName, chosen());
    m_problem->setText(problem);
    m_problem->setVisible(!problem.isEmpty());
    if (problem.isEmpty())
        close();
}

} // namespace host::workbench::bugreport
