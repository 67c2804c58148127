#ifndef ROBOT_ENDPOINT_CONTROL_H
#define ROBOT_ENDPOINT_CONTROL_H

#include "robot/endpoint/Peer.h"

#include <QObject>
#include <QString>

#include <optional>

namespace robot {

/// Who may command the robot: at most one client at a time, until it gives control back or
/// leaves. Everybody else watches.
class Control : public QObject
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
    Answer acquire(const Peer& peer);

    /// Succeeds if @p peer is in control.
    Answer release(const Peer& peer);

    /// @p peer is gone; whatever it held is free.
    void leave(const Peer& peer);

    /// Why @p peer may not command the robot now; empty if it may.
    QString refusal(const Peer& peer) const;

Q_SIGNALS:
    void acquired(const robot::Peer& peer);
    void released(const robot::Peer& peer);
    void refused(const robot::Peer& peer, const QString& reason);

private:
    std::optional<Peer> m_holder;
};

} // namespace robot

#endif
