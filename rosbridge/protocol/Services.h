// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_PROTOCOL_SERVICES_H
#define ROSBRIDGE_PROTOCOL_SERVICES_H

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
constexpr QLatin1String setBool("std_srvs/SetBool");
constexpr QLatin1String trigger("std_srvs/Trigger");
} // namespace type

// clang-format off
constexpr Service acquireControl{QLatin1String("/control/acquire"), type::trigger};
constexpr std::array<Service, 3> armLine{{
    {QLatin1String("/arm/line0"), type::setBool},
    {QLatin1String("/arm/line1"), type::setBool},
    {QLatin1String("/arm/line2"), type::setBool},
}};
constexpr Service armTorque{QLatin1String("/arm/torque"), type::setBool};
constexpr Service disableDrive{QLatin1String("/drive/disable"), type::setBool};
constexpr Service parameter{QLatin1String("/rosapi/get_param"), QLatin1String("rosapi/GetParam")};
constexpr Service publishers{QLatin1String("/rosapi/publishers"), QLatin1String("rosapi/Publishers")};
constexpr Service releaseControl{QLatin1String("/control/release"), type::trigger};
constexpr Service releaseStop{QLatin1String("/stop/release"), type::trigger};
constexpr Service services{QLatin1String("/rosapi/services"), QLatin1String("rosapi/Services")};
constexpr Service setCamera{QLatin1String("/camera/set_parameters"), QLatin1String("dynamic_reconfigure/Reconfigure")};
constexpr Service stop{QLatin1String("/stop"), type::trigger};
constexpr Service topics{QLatin1String("/rosapi/topics"), QLatin1String("rosapi/Topics")};
// clang-format on

} // namespace service

} // namespace rosbridge::protocol

#endif
