// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_PEER_H
#define ROSBRIDGE_SERVER_PEER_H

#include <QMetaType>
#include <QString>

namespace rosbridge::server {

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

} // namespace rosbridge::server

Q_DECLARE_METATYPE(rosbridge::server::Peer)

#endif
