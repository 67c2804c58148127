// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_OPERATION_STOPKEY_H
#define HOST_WORKBENCH_OPERATION_STOPKEY_H

#include <QKeySequence>
#include <QObject>

#include <vector>

namespace host::device::operation {
class Stopping;
} // namespace host::device::operation

namespace host::workbench::operation {

/// The one key that stops the robots of all devices of the program, wherever the focus is: in a
/// floating dock, an open menu, a dialog that blocks the window or an editor. A shortcut would not
/// reach all of these.
class StopKey : public QObject
{
    Q_OBJECT

public:
    static constexpr Qt::Key key = Qt::Key_F12;

    StopKey();

    /// As it is shown to people.
    static QString name() { return QKeySequence(key).toString(QKeySequence::NativeText); }

    /// One more that the key stops; it outlives this.
    void add(device::operation::Stopping& stopping) { m_stoppings.push_back(&stopping); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::vector<device::operation::Stopping*> m_stoppings;
};

} // namespace host::workbench::operation

#endif
