// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TOOLBAR_H
#define TOOLBAR_H

#include "Quandrel.h"

/// The connection widget as a compact strip for the host's tool bar: the connect button, then
/// the address field.
class Toolbar : public Quandrel
{
    Q_OBJECT

public:
    /// No parent: the host takes the widget.
    explicit Toolbar(plugin::gui::DeviceDelegate& delegate);
};

#endif
