// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_PLAYEDROBOT_H
#define ROBOT_PLAYEDROBOT_H

#include "robot/network/Clock.h"
#include "robot/network/LogWriter.h"
#include "robot/network/Network.h"
#include "robot/network/RobotLimits.h"
#include "rosbridge/server/Limits.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <vector>

namespace robot::nodes {
class ClockNode;
} // namespace robot::nodes

namespace robot::recording {
class BagPlayer;
} // namespace robot::recording

namespace robot {

/// A bag's topics behind a rosbridge endpoint, as the robot had them that was recorded; nothing in
/// it moves. It plays while somebody subscribes to one of them, and from the beginning again for
/// who comes after the end. Its clock is the recording's. Needs an event loop and nothing else.
class PlayedRobot : public QObject
{
    Q_OBJECT

public:
    explicit PlayedRobot(std::unique_ptr<recording::BagPlayer> player,
                         const rosbridge::server::Limits& limits = network::robotLimits(),
                         QObject* parent = nullptr);
    ~PlayedRobot() override;

    /// What of the bag is left out, and why, for the user.
    const QStringList& problems() const { return m_problems; }

    /// See Network.
    void setAllowedOrigins(const QStringList& origins) { m_network.setAllowedOrigins(origins); }
    bool listen(const rosbridge::protocol::Address& address, QString* error)
    {
        return m_network.listen(address, error);
    }
    quint16 port() const { return m_network.port(); }

private:
    void addTopics();
    void resume();
    void step();
    void begin();
    void publishDue();
    bool isWanted() const;

    std::unique_ptr<recording::BagPlayer> m_player;
    network::Clock m_clock;
    network::Network m_network;
    network::LogWriter m_log;
    std::unique_ptr<nodes::ClockNode> m_clockNode; // null: the bag has a clock
    QStringList m_problems;
    std::vector<QString> m_names; // of the player's topics; empty: left out
    std::vector<bool> m_isDamaged;
    bool m_isWanted = false;
    QTimer m_timer;
};

} // namespace robot

#endif
