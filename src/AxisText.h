// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef AXISTEXT_H
#define AXISTEXT_H

#include <QString>

/// What a cell of the table of positions says of one axis: "target [speed]". Words and not
/// numbers, since each reader takes them as what it edits.
struct AxisText
{
    QString target; ///< the first word
    QString speed;  ///< the second, with its brackets where it has any

    /// The first two words of @p text; what is missing is empty.
    static AxisText parse(const QString& text);
    /// Puts the speed into brackets.
    static AxisText ofNumbers(const QString& target, const QString& speed);

    /// The speed without brackets.
    QString speedNumber() const;
    QString text() const;
};

#endif
