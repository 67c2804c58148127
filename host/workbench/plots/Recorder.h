// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PLOTS_RECORDER_H
#define HOST_WORKBENCH_PLOTS_RECORDER_H

#include "host/device/readers/RateMeter.h"
#include "host/device/variables/Variables.h"
#include "host/workbench/plots/Quantity.h"
#include "host/workbench/plots/Series.h"

#include <QCborMap>
#include <QObject>
#include <QTimer>

#include <memory>
#include <vector>

namespace host::device {
class Device;
}

namespace host::workbench::plots {

/// A quantity, and how it went.
struct Line
{
    Quantity quantity;
    Series series;
    device::readers::RateMeter meter; ///< of a rate
    int follower = 0;                 ///< 0 while no topic is followed for it
};

/// Records the quantities that somebody chose while somebody looks: follows the topics that tell
/// them. What is not recorded is a gap in the line.
class Recorder : public QObject
{
    Q_OBJECT

public:
    /// @p device outlives the recorder. Not active at first.
    Recorder(device::Device& device, QObject* parent);
    ~Recorder() override;

    /// While it is not active it follows nothing, and the lines stay as they are.
    void setActive(bool active);

    /// In the order in which they were added. They stay where they are until they are removed.
    const std::vector<std::unique_ptr<Line>>& lines() const { return m_lines; }

    void add(const Quantity& quantity);
    /// @p index is that of a line.
    void remove(int index);
    /// Forgets the values, not the lines.
    void clear();

    /// Seconds since the epoch; never goes backwards, whatever becomes of the computer's clock.
    static double now();

Q_SIGNALS:
    /// A line got a value; maybe hundreds of times a second.
    void recorded();

private:
    void arrange();
    bool isOffered(const QString& topic) const;
    void follow(Line& line);
    void leave(Line& line);
    void take(Line& line, const QCborMap& message);
    void readVariable(Line& line);
    void onTouched(const device::variables::Variables::Key& key);
    void onTick();
    void record(Line& line, double value);

    device::Device& m_device;
    std::vector<std::unique_ptr<Line>> m_lines;
    bool m_isActive = false;
    QTimer m_tick{this}; // for what has a value at any time
};

} // namespace host::workbench::plots

#endif
