// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "AxisText.h"

AxisText AxisText::parse(const QString& text)
{
    AxisText axis;
    axis.target = text.section(QLatin1Char(' '), 0, 0, QString::SectionSkipEmpty);
    axis.speed = text.section(QLatin1Char(' '), 1, 1, QString::SectionSkipEmpty);
    return axis;
}

AxisText AxisText::ofNumbers(const QString& target, const QString& speed)
{
    AxisText axis;
    axis.target = target;
    axis.speed = QLatin1Char('[') + speed + QLatin1Char(']');
    return axis;
}

QString AxisText::speedNumber() const
{
    return QString(speed).remove(QLatin1Char('[')).remove(QLatin1Char(']'));
}

QString AxisText::text() const
{
    return target + QLatin1Char(' ') + speed;
}
