#ifndef ROBOT_ENDPOINT_ACCESS_H
#define ROBOT_ENDPOINT_ACCESS_H

namespace robot {

/// Whom a command topic or a service obeys.
enum class Access
{
    Anyone,
    RequiresControl, ///< only the client in control
};

} // namespace robot

#endif
