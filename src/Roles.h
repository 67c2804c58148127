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

#endif
