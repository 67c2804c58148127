// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PLOTS_SERIES_H
#define HOST_WORKBENCH_PLOTS_SERIES_H

#include <QSharedPointer>

#include <optional>

class QCPGraphData;
template <class Data>
class QCPDataContainer;

namespace host::workbench::plots {

/// The newest values of one quantity, in the form that QCustomPlot draws without copying it. Where
/// nothing came for a while there is a point without a value (NaN), which no line crosses.
class Series
{
public:
    using Data = QCPDataContainer<QCPGraphData>;

    /// An hour at 30 a second; older ones are dropped.
    static constexpr int mostPoints = 30 * 3600;

    Series();

    /// @p time is in seconds since the epoch and never goes backwards. What is no finite number is
    /// none that can be drawn: the line ends before it.
    void append(double time, double value);
    /// The next value is not joined to the last one.
    void breakOff() { m_isBroken = true; }
    void clear();

    /// The newest value; none where the line has ended, or nothing has come for a while by @p now.
    std::optional<double> current(double now) const;

    /// Never null; shared with who draws it.
    const QSharedPointer<Data>& data() const { return m_data; }

private:
    bool isGap(double pause) const;

    QSharedPointer<Data> m_data;
    bool m_isBroken = true;
    double m_lastTime = 0;
    double m_lastPause = 0; // before the newest value
};

} // namespace host::workbench::plots

#endif
