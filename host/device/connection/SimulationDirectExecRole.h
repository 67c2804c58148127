// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_SIMULATIONDIRECTEXECROLE_H
#define HOST_DEVICE_CONNECTION_SIMULATIONDIRECTEXECROLE_H

/// The number of a command that a widget sends to its device. A plugin has an enumeration of
/// this name of its own: values are recognised by the name of their type, so ours is global too.
enum SimulationDirectExecRole : unsigned int
{
};

namespace host::device::connection {

/// No value; answers the text that the laser tab's log starts with, empty where there is none.
constexpr SimulationDirectExecRole laserStartText{1003};
/// No value; answers the connection state, an int.
constexpr SimulationDirectExecRole currentConnectionState{1005};
/// No value; switches the torque of the arm on or off, whichever it is not.
constexpr SimulationDirectExecRole toggleTorque{1006};
/// No value; the arm's present pose becomes a new stored position.
constexpr SimulationDirectExecRole storePosition{1007};
/// A bool; switches the first of the arm's three supply lines. The others follow in order.
constexpr SimulationDirectExecRole enableFirstLine{1008};

} // namespace host::device::connection

#endif
