// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NETWORK_CONTROL_H
#define ROBOT_NETWORK_CONTROL_H

#include "rosbridge/server/Authority.h"
#include "rosbridge/server/Peer.h"

#include <QObject>
#include <QString>

#include <optional>

namespace robot::network {

/// Who may command the robot: at most one client at a time, until it gives control back or
/// leaves. Everybody else watches.
class Control : public QObject, public rosbridge::server::Authority
{
    Q_OBJECT

public:
    /// What a std_srvs/Trigger answers.
    struct Answer
    {
        bool success = false;
        QString message;
    };

    using QObject::QObject;

    /// Succeeds if nobody is in control or @p peer already is.
    Answer acquire(const rosbridge::server::Peer& peer);

    /// Succeeds if @p peer is in control.
    Answer release(const rosbridge::server::Peer& peer);

    /// @p peer is gone; whatever it held is free.
    void leave(const rosbridge::server::Peer& peer);

    /// Why @p peer may not command the robot now; empty if it may.
    QString refusal(const rosbridge::server::Peer& peer) const override;

Q_SIGNALS:
    void acquired(const rosbridge::server::Peer& peer);
    void released(const rosbridge::server::Peer& peer);
    void refused(const rosbridge::server::Peer& peer, const QString& reason);

private:
    std::optional<rosbridge::server::Peer> m_holder;
};

} // namespace robot::network

#endif
