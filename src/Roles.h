// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROLES_H
#define ROLES_H

/// The commands that the plugin's widgets send to the device, each inside a Variant. The host
/// recognises the value by the name of this type.
enum SimulationDirectExecRole
{
    /// No value; answers the text that the laser range finder's log begins with.
    LaserStartTextRole = 1003,
    /// No value; answers the connection state as an integer.
    ConnectionStateRole = 1005,
    /// No value, no answer.
    ToggleTorqueRole = 1006,
    /// No value, no answer: stores the arm's present pose as a new position.
    AddPositionRole = 1007,
    /// A bool: whether supply line 0 is on. Lines 1 and 2 have the next two numbers.
    Line0Role = 1008,
    Line1Role = 1009,
    Line2Role = 1010
};

/// The messages from the device that the plugin's widgets act on, as the numbers that a
/// plugin::plugin::DataRole carries.
enum MessageRole
{
    /// The connection state as an integer, for the connect button alone.
    ButtonStateMessage = 0,
    /// A text for the log of a tab.
    BaseLogMessage = 1000,
    ManipulatorLogMessage = 1001,
    LaserLogMessage = 1002,
    /// A text for the base's log, to stand out there.
    EmphasisedBaseLogMessage = 1004,
    /// The connection state as an integer; it also tells whether the address may be edited.
    ConnectionStateMessage = 1005
};

#endif
