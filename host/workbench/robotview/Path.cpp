// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/robotview/Path.h"

namespace host::workbench::robotview {

void Path::add(const QPointF& place)
{
    if (!m_last) {
        m_last = place;
        return;
    }
    const QLineF line(*m_last, place);
    if (line.length() < m_step)
        return;
    if (m_lines.size() == mostLines)
        thinOut();
    m_lines.append(line);
    m_last = place;
}

void Path::thinOut()
{
    QVector<QLineF> kept;
    for (int i = 0; i < m_lines.size(); ++i) {
        QLineF line = m_lines.at(i);
        if (i + 1 < m_lines.size() && m_lines.at(i + 1).p1() == line.p2())
            line.setP2(m_lines.at(++i).p2());
        kept.append(line);
    }
    if (kept.size() == mostLines) // nothing but single lines
        kept.remove(0, mostLines / 2);
    m_lines = kept;
    m_step *= 2;
}

} // namespace host::workbench::robotview
