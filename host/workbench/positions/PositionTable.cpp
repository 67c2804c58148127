// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/positions/PositionTable.h"

#include "host/workbench/values/FloatText.h"

#include <QCoreApplication>
#include <QStringList>

#include <charconv>
#include <cmath>
#include <system_error>
#include <utility>

namespace host::workbench::positions {

using device::variables::Position;
using values::floatText;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::positions::PositionTable)
};

constexpr int columnCount = 1 + 2 * device::readers::ArmPose::axisCount;

QStringList columns()
{
    QStringList names{QStringLiteral("name")};
    for (int axis = 1; axis <= device::readers::ArmPose::axisCount; ++axis)
        names << QStringLiteral("axis%1_target").arg(axis)
              << QStringLiteral("axis%1_speed").arg(axis);
    return names;
}

/// The cells of a table, by lines. Cells in quotes may have separators and line ends in them.
class Cells
{
public:
    Cells(const QString& text, QChar separator)
    {
        for (int at = 0; at < text.size(); ++at) {
            const QChar c = text.at(at);
            if (m_isQuoted && c == '"' && at + 1 < text.size() && text.at(at + 1) == '"')
                m_cell += text.at(++at);
            else if (c == '"' && (m_isQuoted || m_cell.isEmpty()))
                m_isQuoted = !m_isQuoted;
            else if (!m_isQuoted && c == separator)
                endCell();
            else if (!m_isQuoted && c == '\n')
                endLine();
            else if (m_isQuoted || c != '\r')
                m_cell += c;
        }
        if (!m_cell.isEmpty() || !m_line.isEmpty())
            endLine();
    }

    const QList<QStringList>& lines() const { return m_lines; }

    /// Whether a quote is not closed.
    bool isOpen() const { return m_isQuoted; }

private:
    void endCell() { m_line << std::exchange(m_cell, QString()); }

    void endLine()
    {
        endCell();
        m_lines << std::exchange(m_line, QStringList());
    }

    QList<QStringList> m_lines;
    QStringList m_line;
    QString m_cell;
    bool m_isQuoted = false;
};

/// What stands most often in the first line.
QChar separatorOf(const QString& text)
{
    const QString first = text.section('\n', 0, 0);
    QChar most = ',';
    for (const char separator : {';', '\t'})
        if (first.count(separator) > first.count(most))
            most = separator;
    return most;
}

/// Empty if the name can be stored.
QString nameFault(const QString& name)
{
    for (const QChar c : name)
        if (c.unicode() > 0xff)
            return Text::tr("the name \"%1\" has the character \"%2\", which a device cannot store")
                .arg(name, QString(c));
    return {};
}

bool readAxes(const QStringList& line, bool hasDecimalCommas, Position& position, QString* fault)
{
    for (int column = 1; column < columnCount; ++column) {
        QByteArray text = line.at(column).trimmed().toUtf8();
        if (hasDecimalCommas)
            text.replace(',', '.');
        float value = 0;
        const auto read = std::from_chars(text.cbegin(), text.cend(), value);
        if (read.ec != std::errc() || read.ptr != text.cend() || !std::isfinite(value)) {
            *fault =
                Text::tr("%1: \"%2\" is not a number").arg(columns().at(column), line.at(column));
            return false;
        }
        Position::Axis& axis = position.axes.at(static_cast<std::size_t>((column - 1) / 2));
        (column % 2 == 1 ? axis.target : axis.speed) = value;
    }
    return true;
}

} // namespace

QByteArray toTable(const std::vector<Position>& positions)
{
    QByteArray table = columns().join(',').toLatin1() + "\r\n";
    for (const Position& position : positions) {
        table += '"' + QString(position.name).replace('"', QStringLiteral("\"\"")).toUtf8() + '"';
        for (const Position::Axis& axis : position.axes)
            table += ',' + floatText(axis.target) + ',' + floatText(axis.speed);
        table += "\r\n";
    }
    return table;
}

std::optional<std::vector<Position>> fromTable(const QByteArray& utf8, QString* error)
{
    QString text = QString::fromUtf8(utf8);
    if (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    const QChar separator = separatorOf(text);
    const Cells cells(text, separator);
    const auto refuse = [error](int row, const QString& fault) {
        *error = Text::tr("Row %1: %2.").arg(row).arg(fault);
        return std::nullopt;
    };
    if (text.contains(QChar::ReplacementCharacter) || text.contains(QChar::Null)) {
        *error = Text::tr("This is not text in UTF-8.");
        return std::nullopt;
    }
    if (cells.isOpen()) {
        *error = Text::tr("A quote is not closed.");
        return std::nullopt;
    }
    if (cells.lines().value(0) != columns()) {
        *error = Text::tr("The first row must have the names of the columns: %1, %2 … %3.")
                     .arg(columns().at(0), columns().at(1), columns().last());
        return std::nullopt;
    }
    std::vector<Position> positions;
    for (int line = 1; line < cells.lines().size(); ++line) {
        const QStringList& row = cells.lines().at(line);
        if (row.join(QString()).trimmed().isEmpty())
            continue;
        if (row.size() != columnCount)
            return refuse(line + 1,
                          Text::tr("%1 columns instead of %2").arg(row.size()).arg(columnCount));
        Position position;
        position.name = row.first();
        QString fault = nameFault(position.name);
        if (!fault.isEmpty() || !readAxes(row, separator != ',', position, &fault))
            return refuse(line + 1, fault);
        positions.push_back(position);
    }
    return positions;
}

} // namespace host::workbench::positions
