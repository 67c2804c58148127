// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_POSITIONS_POSITIONHISTORY_H
#define HOST_WORKBENCH_POSITIONS_POSITIONHISTORY_H

#include <QJsonObject>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QUndoStack>

#include <map>
#include <string>

namespace host::device {
class Device;
}

namespace host::workbench::positions {

/// Every change of the device's positions, by whomever, to be undone and redone. What changes until
/// the event loop runs is one change; an undone one is written back in one transaction.
class PositionHistory : public QObject
{
    Q_OBJECT

public:
    /// @p device outlives the history.
    explicit PositionHistory(device::Device& device, QObject* parent = nullptr);

    /// To undo, redo, and to read what that would be; nobody else pushes.
    QUndoStack& stack() { return m_stack; }

Q_SIGNALS:
    /// The positions are others than before.
    void changed();

private:
    class Change;
    /// The variables of the positions, as they are stored. Those beyond the count belong to it too.
    using Snapshot = std::map<std::string, QJsonObject>;

    static QString titleOf(int added);
    Snapshot snapshot() const;
    void take();
    void restore(const Snapshot& wanted, const QString& title);

    device::Device& m_device;
    QUndoStack m_stack;
    Snapshot m_present;
    QTimer m_timer{this}; // runs only while there is something to take
};

} // namespace host::workbench::positions

#endif
