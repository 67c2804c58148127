// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_FAULTS_FAULTYCLIENT_H
#define HOST_DEVICE_FAULTS_FAULTYCLIENT_H

#include "rosbridge/client/Client.h"

#include <QObject>

#include <functional>
#include <memory>

namespace host::device::faults {

class Faults;

/// The client end of a link on which faults are injected: it is refused or lost, the robot's end
/// of the handshake and its answers come late, and some messages are lost. As for the rest, all
/// deadlines included, it is any client.
class FaultyClient : public rosbridge::client::Client
{
    Q_OBJECT

public:
    /// @p faults outlive the client.
    FaultyClient(const Timeouts& timeouts, Faults& faults);

    void open(const rosbridge::protocol::Address& address) override;
    QString subscribe(const QString& topic, const QString& type, const SubscribeOptions& options,
                      const Handler& handler) override;

protected:
    void openSocket() override;
    void onHandshake() override;
    void onMessage(const QCborMap& message) override;

private:
    void afterDelay(const std::function<void()>& step);

    Faults& m_faults;
    bool m_isRefused = false;
    std::unique_ptr<QObject> m_link; // what waits for its delay ends with it
};

} // namespace host::device::faults

#endif
