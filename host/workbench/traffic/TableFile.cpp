// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/traffic/TableFile.h"

#include "olm/qt/replaceFile.h"

#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QStringList>

namespace host::workbench::traffic {

namespace {

QString quoted(QString text)
{
    return '"' + text.replace('"', QStringLiteral("\"\"")) + '"';
}

template <class Text>
QByteArray line(int columns, Text textOf)
{
    QStringList cells;
    for (int column = 0; column < columns; ++column)
        cells += quoted(textOf(column).toString());
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

} // namespace host::workbench::traffic
