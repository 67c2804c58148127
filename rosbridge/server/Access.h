// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_ACCESS_H
#define ROSBRIDGE_SERVER_ACCESS_H

namespace rosbridge::server {

/// Whom a command topic or a service obeys.
enum class Access
{
    Anyone,
    RequiresControl, ///< only the client in control
};

} // namespace rosbridge::server

#endif
