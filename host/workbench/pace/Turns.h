// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PACE_TURNS_H
#define HOST_WORKBENCH_PACE_TURNS_H

#include <QList>
#include <QTimer>

namespace host::workbench::pace {

class Refresh;

/// Who of the whole program paints next. Each is painted by itself, with other events in between
/// that take as long: however much is to be shown, a person waits for one part of it at most.
class Turns : public QObject
{
public:
    /// For the GUI thread; there is an application.
    static Turns& instance();

    /// @p refresh is shown out of the event loop, once, after those that were added before it.
    void add(Refresh& refresh);
    void remove(Refresh& refresh);

private:
    explicit Turns(QObject* parent);

    void serve();

    QList<Refresh*> m_waiting;
    QTimer m_pause; // as long as the last one took
};

} // namespace host::workbench::pace

#endif
