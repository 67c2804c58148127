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

struct TableFile
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::TableFile)
};

QString cell(QString text)
{
    return '"' + text.replace('"', QStringLiteral("\"\"")) + '"';
}

template <class TextOf>
QByteArray line(int columns, TextOf textOf)
{
    QStringList cells;
    for (int column = 0; column < columns; ++column)
        cells += cell(textOf(column).toString());
    return (cells.join(',') + QStringLiteral("\r\n")).toUtf8();
}

} // namespace

QByteArray tableText(const QAbstractItemModel& table)
{
    const int columns = table.columnCount();
    QByteArray content =
        line(columns, [&](int column) { return table.headerData(column, Qt::Horizontal); });
    for (int row = 0; row < table.rowCount(); ++row)
        content += line(columns, [&](int column) { return table.index(row, column).data(); });
    return content;
}

QString writeTable(const QString& fileName, const QByteArray& content)
{
    const QString error = olm::qt::replaceFile(fileName, content);
    if (error.isEmpty())
        return {};
    return TableFile::tr("%1 was not written: %2. Choose another folder, or free disk space.")
        .arg(fileName, error);
}

QString tableFilter()
{
    return TableFile::tr("Comma-separated values (*.csv)");
}

void saveTableAs(const std::function<QByteArray()>& content, const QString& title, QWidget& parent,
                 const std::function<void(const QString& words)>& onProblem)
{
    // Not modal: the robot goes on meanwhile, and so must whoever watches it.
    auto* dialog = new QFileDialog(&parent, title, QString(), tableFilter());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix("csv");
    QObject::connect(dialog, &QFileDialog::fileSelected, &parent,
                     [content, onProblem](const QString& fileName) {
                         const QString words = writeTable(fileName, content());
                         if (!words.isEmpty())
                             onProblem(words);
                     });
    dialog->show();
}

} // namespace host::workbench::values
