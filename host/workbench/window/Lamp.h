// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_LAMP_H
#define HOST_WORKBENCH_WINDOW_LAMP_H

#include <QLabel>

namespace host::workbench::window {

/// A round lamp for the state of a connection, beside the words that say it too.
class Lamp : public QLabel
{
    Q_OBJECT

public:
    Lamp();

    /// @p state as in device::Device::connectionState(). @p isLost: the link ended by itself, and
    /// was not closed.
    void setState(int state, bool isLost);
};

} // namespace host::workbench::window

#endif
