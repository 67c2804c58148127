// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_CLIENT_FAILURETEXT_H
#define ROSBRIDGE_CLIENT_FAILURETEXT_H

#include "rosbridge/protocol/Address.h"
#include "rosbridge/websocket/Connector.h"

#include <QCoreApplication>
#include <QString>

namespace rosbridge::client {

/// Tells a person why a server was not reached, and what to do.
class FailureText
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::client::FailureText)

public:
    /// @p why as Connector says it.
    static QString of(websocket::Connector::Failure failure, const protocol::Address& address,
                      const QString& why);
};

} // namespace rosbridge::client

#endif
