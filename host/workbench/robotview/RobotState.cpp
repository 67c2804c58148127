// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/robotview/RobotState.h"

#include "host/device/readers/BoolReader.h"
#include "host/device/readers/CameraInfo.h"

#include <QLocale>

#include <cmath>
#include <cstdlib>

namespace host::workbench::robotview {

using device::readers::JointPositions;
using device::readers::JointTable;
namespace topic = rosbridge::protocol::topic;

namespace {

using namespace std::chrono_literals;

constexpr auto freshFor = 2s;
constexpr auto frame = 33ms; // no screen shows more
constexpr int mostNames = 3; // that a sentence lists
/// What robots call their own frame.
const QString bases[] = {QStringLiteral("base_link"), QStringLiteral("base_footprint")};

QString someOf(const QStringList& names)
{
    const QString list = names.mid(0, mostNames).join(QStringLiteral(", "));
    return names.size() > mostNames ? RobotState::tr("%1 and %2 more")
                                          .arg(list, QString::number(names.size() - mostNames))
                                    : list;
}

/// "robot1/" of "robot1/laser", and nothing of "/laser".
QString prefixOf(const QString& frame)
{
    const QString name = TransformTree::bare(frame);
    return name.left(name.lastIndexOf(QLatin1Char('/')) + 1);
}

} // namespace

const RobotState::TopicInfo& RobotState::info(Topic topic)
{
    // Of transforms none may be left out: each message tells of other frames.
    static constexpr std::array topics{
        TopicInfo{topic::map, 0ms},
        TopicInfo{topic::transforms, 0ms},
        TopicInfo{topic::staticTransforms, 0ms},
        TopicInfo{topic::odometry, frame},
        TopicInfo{topic::footprint, frame},
        TopicInfo{topic::scan, frame},
        TopicInfo{topic::jointStates, 0ms},
        TopicInfo{topic::armState, frame},
        TopicInfo{topic::armTorqueEnabled, 0ms},
        TopicInfo{topic::armLineEnabled[0], 0ms},
        TopicInfo{topic::armLineEnabled[1], 0ms},
        TopicInfo{topic::armLineEnabled[2], 0ms},
        TopicInfo{topic::driveDisabled, 0ms},
        TopicInfo{topic::cameraInfo, 0ms},
        TopicInfo{topic::stopped, 0ms},
    };
    static_assert(topics.size() == TopicCount);
    return topics.at(topic);
}

void RobotState::setJoints(const JointTable& joints, const QStringList& others)
{
    if (!(joints == m_joints))
        m_axes = {};
    m_joints = joints;
    m_otherJoints = others;
}

void RobotState::begin()
{
    RobotState fresh;
    fresh.setJoints(m_joints, m_otherJoints);
    fresh.m_isConnected = true;
    *this = fresh;
}

void RobotState::end(TimePoint now)
{
    m_isConnected = false;
    std::optional<TimePoint> last;
    for (const auto& arrival : m_arrivals) {
        if (arrival && (!last || *arrival > *last))
            last = arrival;
    }
    if (last) {
        const auto ago = std::chrono::duration_cast<std::chrono::milliseconds>(now - *last);
        m_lastSeen = QDateTime::currentDateTime().addMSecs(-ago.count());
    }
    m_switches.fill(std::nullopt);
    m_camera = {};
}

QString RobotState::name(Topic topic) const
{
    const QString& theirs = m_names.at(topic);
    return theirs.isEmpty() ? QString(info(topic).topic.name) : theirs;
}

void RobotState::setPublished(Topic topic, bool isPublished, TimePoint now)
{
    m_published.at(topic) = isPublished;
    if (!m_asked)
        m_asked = now;
}

void RobotState::read(Topic topic, const QCborMap& message, TimePoint now)
{
    admit(topic, now, [&](QString* fault) { return take(topic, message, now, fault); });
}

void RobotState::readScan(const olm::core::LaserScanMessage& scan, TimePoint now)
{
    admit(Scan, now, [&](QString* fault) {
        if (auto rays = LaserRays::of(scan, fault))
            m_rays = std::move(rays);
        return true;
    });
}

void RobotState::refuse(Topic topic, const QString& fault)
{
    m_errors.at(topic) = tr("A message on the topic %1 was ignored: %2.").arg(name(topic), fault);
}

/// @p take returns false where the message tells only of what is not shown, and sets the fault
/// where it is wrong.
template <class Take>
void RobotState::admit(Topic topic, TimePoint now, const Take& take)
{
    const bool wasOverdue = !overdue(Transforms, now).isEmpty();
    QString fault;
    const bool isNews = take(&fault);
    if (!fault.isEmpty())
        return refuse(topic, fault);
    m_errors.at(topic).clear();
    if (!isNews)
        return;
    m_arrivals.at(topic) = now;
    if (wasOverdue)
        m_path.interrupt(); // the way between is not known
    const QString lastWorld = m_places.world;
    findPlaces();
    if (m_places.world != lastWorld) {
        m_path.clear();
        m_raysPlace.reset();
    }
    const auto moved = m_frames.moved(m_places.base);
    if (m_places.robot && moved && moved->arrival == now)
        m_path.add(m_places.robot->onFloor().map(QPointF(0, 0)));
    if (topic == Scan)
        m_raysPlace.reset();
    placeRays();
}

bool RobotState::take(Topic topic, const QCborMap& message, TimePoint now, QString* fault)
{
    switch (topic) {
    case Map:
        if (auto map = GridMap::read(message, fault))
            m_map = std::move(map);
        break;
    case Transforms:
    case StaticTransforms:
        *fault = m_frames.readTransforms(message, topic == StaticTransforms, now);
        break;
    case Odometry:
        *fault = m_frames.readOdometry(message, now, &m_odometryFrame);
        break;
    case Footprint:
        if (auto footprint = robotview::Footprint::read(message, fault))
            m_footprint = std::move(footprint);
        break;
    case JointStates:
    case ArmState:
        return takeAxes(topic, message, fault);
    case Camera:
        if (device::readers::CameraInfo::read(message, fault))
            m_camera.arrived(now);
        break;
    default:
        if (const auto isOn = device::readers::readBool(message, fault))
            m_switches.at(topic) = isOn;
    }
    return true;
}

/// Several parts of a robot may tell of their joints in turn.
bool RobotState::takeAxes(Topic topic, const QCborMap& message, QString* fault)
{
    const bool isTarget = topic == ArmState;
    const auto joints = isTarget ? JointPositions::readTargets(message, fault)
                                 : JointPositions::readPresent(message, fault);
    const auto told = joints ? m_joints.axes(*joints, fault) : std::nullopt;
    if (!told)
        return false;
    bool isNews = false;
    for (std::size_t i = 0; i < told->size(); ++i) {
        if (!told->at(i))
            continue;
        Axis& axis = m_axes.at(i);
        (isTarget ? axis.target : axis.present) = told->at(i);
        isNews = true;
    }
    return isNews;
}

void RobotState::findPlaces()
{
    m_places = {};
    m_places.base = findBase();
    QString anchor = m_places.base;
    if (anchor.isEmpty() && m_rays)
        anchor = m_rays->frame;
    const QString map = m_map ? frameOf(m_map->frame) : QString();
    m_places.world =
        m_map && (anchor.isEmpty() || m_frames.lookup(anchor, map)) ? map : m_frames.root(anchor);
    if (!m_places.base.isEmpty())
        m_places.robot = m_frames.lookup(m_places.base, m_places.world);
    if (m_footprint)
        m_places.footprint = m_frames.lookup(frameOf(m_footprint->frame), m_places.world);
    if (!m_map)
        return;
    if (const auto place = m_frames.lookup(map, m_places.world))
        m_places.map = *place * m_map->origin;
}

/// The robot is the one whose odometry and laser are told of: there may be others among the frames.
QString RobotState::findBase() const
{
    const QString laser = m_rays ? m_rays->frame : QString();
    const bool hasOdometry = m_frames.isPlaced(m_odometryFrame);
    if (hasOdometry && (!m_frames.isKnown(laser) || m_frames.lookup(m_odometryFrame, laser)))
        return m_odometryFrame;
    for (const QString& name : bases) {
        QString above = m_frames.ancestor(laser, name);
        if (!above.isEmpty())
            return above;
    }
    if (hasOdometry)
        return m_odometryFrame;

    const QString prefix = prefixOf(laser);
    for (const QString& name : bases) {
        if (m_frames.isPlaced(prefix + name))
            return prefix + name;
    }
    for (const QString& name : bases) {
        const QStringList placed = m_frames.placed(name);
        if (!placed.isEmpty())
            return prefix.isEmpty() && placed.size() == 1 ? placed.first() : QString();
    }
    return {};
}

/// A frame that a message names; not all give it the prefix that the robot's frames have.
QString RobotState::frameOf(const QString& told) const
{
    const QString prefixed = prefixOf(m_places.base) + TransformTree::bare(told);
    return !m_frames.isKnown(told) && m_frames.isKnown(prefixed) ? prefixed : told;
}

/// At the first place that is told, and again at each that was told for a moment nearer to theirs:
/// a robot may tell of its place after its laser's scan, and turns far in between.
void RobotState::placeRays()
{
    if (!m_rays)
        return;
    const auto place = m_frames.lookup(frameOf(m_rays->frame), m_places.world);
    const auto moved = m_frames.moved(m_places.base);
    const qint64 lag =
        moved ? std::abs(qint64(static_cast<qint32>(moved->stamp - m_rays->stamp))) : 0;
    if (!place || (m_raysPlace && lag >= m_raysLag))
        return;
    m_raysPlace = place;
    m_raysLag = lag;
}

QString RobotState::overdue(Topic topic, TimePoint now) const
{
    std::optional<TimePoint> arrival = m_arrivals.at(topic);
    if (topic == Transforms) {
        const auto moved = m_frames.moved(m_places.base);
        arrival = moved ? std::make_optional(moved->arrival) : std::nullopt;
    }
    if (!arrival || now - *arrival <= freshFor)
        return {};
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(now - *arrival).count();
    return seconds < 120 ? tr("%1 s").arg(seconds) : tr("%1 min").arg(seconds / 60);
}

QStringList RobotState::notes(TimePoint now) const
{
    if (!m_isConnected)
        return {m_lastSeen.isValid()
                    ? tr("Not connected: last seen %1.")
                          .arg(QLocale().toString(m_lastSeen.time(), QStringLiteral("HH:mm:ss")))
                    : tr("Not connected.")};
    QStringList notes;
    for (const QString& error : m_errors) {
        if (!error.isEmpty())
            notes.append(error);
    }
    const auto add = [&](const QString& note) {
        if (!note.isEmpty())
            notes.append(note);
    };
    const auto addAge = [&](Topic topic, const QString& sentence) {
        const QString age = overdue(topic, now);
        if (!age.isEmpty())
            notes.append(sentence.arg(age));
    };

    if (!m_map)
        add(missing(tr("No map"), {Map}, now));
    else if (!m_places.map)
        add(tr("The map is not shown: the robot does not publish its position in the map's frame "
               "\"%1\".")
                .arg(m_map->frame));
    if (m_places.base.isEmpty())
        add(withoutPlace(now));
    addAge(Transforms, tr("The position is %1 old."));
    if (!m_rays)
        add(missing(tr("No laser"), {Scan}, now));
    else if (!m_raysPlace)
        add(tr("The laser is not shown: the robot does not publish where the laser's frame \"%1\" "
               "is.")
                .arg(m_rays->frame));
    addAge(Scan, tr("The laser's scan is %1 old."));
    if (!m_arrivals.at(JointStates))
        add(missing(tr("No axes of the arm"), {JointStates}, now));
    addAge(JointStates, tr("The axes' positions are %1 old."));
    addAge(ArmState, tr("The axes' targets are %1 old."));
    if (!m_otherJoints.isEmpty())
        add(tr("Joints without an axis are not shown: %1. Robot > Names… lists the axes.")
                .arg(someOf(m_otherJoints)));
    return notes;
}

QString RobotState::withoutPlace(TimePoint now) const
{
    for (const QString& name : bases) {
        const QStringList robots = m_frames.placed(name);
        if (robots.size() > 1)
            return tr("No position: there are several robots on %1: %2. In Robot > Names…, enter "
                      "the names of one robot's %3 and %4.")
                .arg(this->name(Transforms), someOf(robots), this->name(Odometry),
                     this->name(Scan));
    }
    return missing(tr("No position"), {Transforms, Odometry}, now);
}

/// Why nothing is known, once it should be.
QString RobotState::missing(const QString& what, const std::vector<Topic>& topics,
                            TimePoint now) const
{
    if (!m_asked)
        return {};
    QStringList names;
    bool isAnyPublished = false;
    for (const Topic topic : topics) {
        names.append(name(topic));
        isAnyPublished = isAnyPublished || m_published.at(topic);
    }
    const QString list = names.join(tr(" or "));
    if (!isAnyPublished)
        return tr("%1: the robot does not publish %2.").arg(what, list);
    return now - *m_asked > freshFor ? tr("%1: no valid message on %2 yet.").arg(what, list)
                                     : QString();
}

} // namespace host::workbench::robotview
