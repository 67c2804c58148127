#ifndef ROBOT_ENDPOINT_PEER_H
#define ROBOT_ENDPOINT_PEER_H

#include <QMetaType>
#include <QString>

namespace robot {

/// One connected client as the rules know it: a number never given twice while the robot runs,
/// and a name to tell people, "client 3 (127.0.0.1:51344)".
struct Peer
{
    quint64 id = 0;
    QString name;
};

inline bool operator==(const Peer& a, const Peer& b)
{
    return a.id == b.id;
}

inline bool operator!=(const Peer& a, const Peer& b)
{
    return !(a == b);
}

} // namespace robot

Q_DECLARE_METATYPE(robot::Peer)

#endif
