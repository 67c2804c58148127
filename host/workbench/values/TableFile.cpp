// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/values/TableFile.h"

#include "olm/qt/replaceFile.h"

#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QFileDialog>
#include <QStringList>

namespace host::workbench::values {

namespace {

QString cell(QString text)
{
    return '"' + text.replace('"', QStringLiteral("\"\"")) + '"';
}

template <class Text>
QByteArray line(int columns, Text textOf)
{
    QStringList cells;
    for (int column = 0; column < columns; ++column)
        cells += cell(textOf(column).toString());
    return (cells.join(',') + QStringLiteral("\r\n")).toUtf8();
}

} // namespace

QString saveTable(const QAbstractItemModel& table, const QString& fileName)
{
    const int columns = table.columnCount();
    QByteArray content =
        line(columns, [&](int column) { return table.headerData(column, Qt::Horizontal); });
    for (int row = 0; row < table.rowCount(); ++row)
        content += line(columns, [&](int column) { return table.index(row, column).data(); });
    const QString error = olm::qt::replaceFile(fileName, content);
    if (error.isEmpty())
        return {};
    return QCoreApplication::translate("host::workbench::TableFile",
                                       "%1 was not written: %2. Choose another folder, or free "
                                       "disk space.")
        .arg(fileName, error);
}

void saveTableAs(const QAbstractItemModel& table, const QString& title, QWidget& parent,
                 const std::function<void(const QString& words)>& onProblem)
{
    // Not modal: the robot goes on meanwhile, and so must whoever watches it.
    auto* dialog = new QFileDialog(&parent, title, QString(),
                                   QCoreApplication::translate("host::workbench::TableFile",
                                                               "Comma-separated values (*.csv)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix("csv");
    QObject::connect(dialog, &QFileDialog::fileSelected, &parent,
                     [&table, onProblem](const QString& fileName) {
                         const QString words = saveTable(table, fileName);
                         if (!words.isEmpty())
                             onProblem(words);
                     });
    dialog->show();
}

} // namespace host::workbench::values
