// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ROBOTVIEW_ROBOTSTATE_H
#define HOST_WORKBENCH_ROBOTVIEW_ROBOTSTATE_H

#include "host/device/readers/JointTable.h"
#include "host/device/readers/RateMeter.h"
#include "host/workbench/robotview/Footprint.h"
#include "host/workbench/robotview/GridMap.h"
#include "host/workbench/robotview/LaserRays.h"
#include "host/workbench/robotview/Path.h"
#include "host/workbench/robotview/TransformTree.h"
#include "rosbridge/protocol/Topics.h"

#include <QCborMap>
#include <QCoreApplication>
#include <QDateTime>
#include <QStringList>

#include <array>
#include <chrono>
#include <optional>
#include <vector>

namespace host::workbench::robotview {

/// The newest that a robot told of each thing, when it came, and what is missing. It shows a robot
/// that tells only some of it; what is wrong changes nothing but the notes.
class RobotState
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::robotview::RobotState)

public:
    using Clock = std::chrono::steady_clock;
    using TimePoint = Clock::time_point;

    enum Topic
    {
        Map,
        Transforms,
        StaticTransforms,
        Odometry,
        Footprint,
        Scan,
        JointStates,
        ArmState,
        Torque,
        FirstLine,
        SecondLine,
        ThirdLine,
        DriveDisabled,
        Camera,
        Stopped,
        TopicCount
    };

    struct TopicInfo
    {
        rosbridge::protocol::Topic topic;
        std::chrono::milliseconds throttle;
    };

    struct Axis
    {
        std::optional<float> target; ///< degrees or millimetres, as the joints say
        std::optional<float> present;
    };

    static constexpr int axisCount = device::readers::JointTable::axisCount;

    static const TopicInfo& info(Topic topic);

    /// Which joints are the axes; @p others are those of the robot's arm that are none.
    void setJoints(const device::readers::JointTable& joints, const QStringList& others);
    const device::readers::JointTable& joints() const { return m_joints; }

    /// A link begins: what another robot told is forgotten.
    void begin();
    /// The link is over. The picture stays, the switches are not known any more.
    void end(TimePoint now);

    /// What the robot calls the topic, where that is not our name.
    void setName(Topic topic, const QString& theirs) { m_names.at(topic) = theirs; }

    /// Whether the robot publishes the topic; what it publishes is due soon.
    void setPublished(Topic topic, bool isPublished, TimePoint now);

    /// Takes a message of any topic but Scan.
    void read(Topic topic, const QCborMap& message, TimePoint now);
    void readScan(const olm::core::LaserScanMessage& scan, TimePoint now);
    /// A message on the topic was ignored, for the reason in @p fault.
    void refuse(Topic topic, const QString& fault);

    bool isConnected() const { return m_isConnected; }

    const std::optional<GridMap>& map() const { return m_map; }

    const std::optional<LaserRays>& rays() const { return m_rays; }

    const Path& path() const { return m_path; }

    // Where things are in the world, which is the map, or what the robot's place is told in.
    const std::optional<Transform>& mapPlace() const { return m_places.map; }

    const std::optional<Transform>& robotPlace() const { return m_places.robot; }

    /// What the robot covers, in metres in the frame whose place footprintPlace() is.
    const std::optional<robotview::Footprint>& footprint() const { return m_footprint; }

    const std::optional<Transform>& footprintPlace() const { return m_places.footprint; }

    /// When the rays were measured, as near as it was told.
    const std::optional<Transform>& raysPlace() const { return m_raysPlace; }

    const Axis& axis(int axis) const { return m_axes.at(static_cast<std::size_t>(axis)); }

    /// Torque, a line, the drive's being disabled, or the robot's being stopped.
    std::optional<bool> isSet(Topic topic) const { return m_switches.at(topic); }

    /// Frames a second.
    unsigned int cameraRate(TimePoint now) const { return m_camera.rate(now); }

    /// How long ago what flows came last, "12 s"; empty while it is fresh, or never came. The
    /// topic Transforms stands for the robot's place.
    QString overdue(Topic topic, TimePoint now) const;

    /// Sentences on what is missing, wrong or old.
    QStringList notes(TimePoint now) const;

private:
    /// What follows from all that was told: found once for each message, and looked at by whoever
    /// paints.
    struct Places
    {
        QString base;  // the robot's own frame; empty as long as its place was not told
        QString world; // that path and rays are in
        std::optional<Transform> robot;
        std::optional<Transform> map;
        std::optional<Transform> footprint;
    };

    template <class Take>
    void admit(Topic topic, TimePoint now, const Take& take);
    bool take(Topic topic, const QCborMap& message, TimePoint now, QString* fault);
    bool takeAxes(Topic topic, const QCborMap& message, QString* fault);
    void findPlaces();
    QString findBase() const;
    QString frameOf(const QString& told) const;
    void placeRays();
    QString name(Topic topic) const; // as the robot says
    QString withoutPlace(TimePoint now) const;
    QString missing(const QString& what, const std::vector<Topic>& topics, TimePoint now) const;

    device::readers::JointTable m_joints;
    QStringList m_otherJoints;
    bool m_isConnected = false;
    QDateTime m_lastSeen;             // of the link that is over
    std::optional<TimePoint> m_asked; // what the robot publishes
    std::array<bool, TopicCount> m_published{};
    std::array<QString, TopicCount> m_names; // empty: ours
    std::array<std::optional<TimePoint>, TopicCount> m_arrivals;
    std::array<QString, TopicCount> m_errors;
    std::optional<GridMap> m_map;
    TransformTree m_frames;
    QString m_odometryFrame;
    std::optional<robotview::Footprint> m_footprint;
    std::optional<LaserRays> m_rays;
    std::optional<Transform> m_raysPlace;
    qint64 m_raysLag = 0; // from when they were measured to when their place was; milliseconds
    Places m_places;
    Path m_path;
    std::array<Axis, axisCount> m_axes;
    std::array<std::optional<bool>, TopicCount> m_switches;
    device::readers::RateMeter m_camera;
};

} // namespace host::workbench::robotview

#endif
