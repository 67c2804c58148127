// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_PROTOCOL_SERVICES_H
#define ROSBRIDGE_PROTOCOL_SERVICES_H

#include "rosbridge/protocol/Literal.h"

#include <QLatin1String>

#include <array>

namespace rosbridge::protocol {

/// A service that the robot offers and the device calls; see docs/robot-link.md.
struct Service
{
    QLatin1String name; ///< with its slash, "/control/acquire"
    QLatin1String type; ///< as ROS 1 writes it
};

namespace service {

namespace type {
constexpr auto setBool = "std_srvs/SetBool"_latin1;
constexpr auto trigger = "std_srvs/Trigger"_latin1;
} // namespace type

// clang-format off
constexpr Service acquireControl{"/control/acquire"_latin1, type::trigger};
constexpr std::array<Service, 3> armLine{{
    {"/arm/line0"_latin1, type::setBool},
    {"/arm/line1"_latin1, type::setBool},
    {"/arm/line2"_latin1, type::setBool},
}};
constexpr Service armTorque{"/arm/torque"_latin1, type::setBool};
constexpr Service disableDrive{"/drive/disable"_latin1, type::setBool};
constexpr Service parameter{"/rosapi/get_param"_latin1, "rosapi/GetParam"_latin1};
constexpr Service publishers{"/rosapi/publishers"_latin1, "rosapi/Publishers"_latin1};
constexpr Service releaseControl{"/control/release"_latin1, type::trigger};
constexpr Service releaseStop{"/stop/release"_latin1, type::trigger};
constexpr Service services{"/rosapi/services"_latin1, "rosapi/Services"_latin1};
constexpr Service setCamera{"/camera/set_parameters"_latin1, "dynamic_reconfigure/Reconfigure"_latin1};
constexpr Service stop{"/stop"_latin1, type::trigger};
constexpr Service topics{"/rosapi/topics"_latin1, "rosapi/Topics"_latin1};
// clang-format on

} // namespace service

} // namespace rosbridge::protocol

#endif
