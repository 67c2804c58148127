// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ROBOTVIEW_PATH_H
#define HOST_WORKBENCH_ROBOTVIEW_PATH_H

#include <QLineF>
#include <QVector>

#include <optional>

namespace host::workbench::robotview {

/// The path that the robot drove, in metres. It takes the same room however long it becomes: when
/// it is full, it keeps every second point and is coarser from then on.
class Path
{
public:
    static constexpr int mostLines = 2000;

    void add(const QPointF& place);
    /// The robot was not seen for a while: the next place begins anew.
    void interrupt() { m_last.reset(); }
    void clear() { *this = {}; }

    const QVector<QLineF>& lines() const { return m_lines; }

private:
    void thinOut();

    QVector<QLineF> m_lines;
    std::optional<QPointF> m_last;
    double m_step = 0.02; // metres: the shortest line
};

} // namespace host::workbench::robotview

#endif
