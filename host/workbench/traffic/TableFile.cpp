#include "host/workbench/traffic/TableFile.h"

#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QSaveFile>
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
    QSaveFile file(fileName);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(
            line(columns, [&](int column) { return table.headerData(column, Qt::Horizontal); }));
        for (int row = 0; row < table.rowCount(); ++row)
            file.write(line(columns, [&](int column) { return table.index(row, column).data(); }));
        if (file.commit()) // fails where a write did
            return {};
    }
    return QCoreApplication::translate("host::workbench::TableFile",
                                       "%1 was not written: %2. Choose another folder, or make "
                                       "room in this one.")
        .arg(fileName, file.errorString());
}

} // namespace host::workbench::traffic
