// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_PACED_H
#define HOST_WORKBENCH_WINDOW_PACED_H

#include <QTimer>

#include <functional>

namespace host::workbench::window {

/// Shows what may change at any rate: a change at once, and those that follow closely together, at
/// most 25 times a second. The last one is always shown.
class Paced
{
public:
    /// @p show is called out of request() or the event loop.
    explicit Paced(std::function<void()> show);

    /// There is something new.
    void request();

private:
    std::function<void()> m_show;
    QTimer m_pause; // after each show
    bool m_isRequested = false;
};

} // namespace host::workbench::window

#endif
