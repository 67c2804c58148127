// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ROBOTVIEW_TRANSFORMTREE_H
#define HOST_WORKBENCH_ROBOTVIEW_TRANSFORMTREE_H

#include "host/workbench/robotview/Transform.h"

#include <QCborMap>
#include <QCoreApplication>
#include <QHash>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>
#include <vector>

namespace host::workbench::robotview {

/// The robot's frames and where each is in its parent, as it was told last; nothing is foretold or
/// interpolated. Names count with and without a leading slash. Frames of several robots have
/// prefixes, as in "robot1/base_link".
class TransformTree
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::robotview::TransformTree)

public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// When something was told that may change at any time.
    struct Moment
    {
        TimePoint arrival;
        std::uint32_t stamp = 0; ///< the robot's clock, milliseconds modulo 2^32
    };

    /// The name without the slash that it may begin with.
    static QString bare(const QString& name);

    /// Takes a tf2_msgs/TFMessage. One that is wrong in any part, or that would make a frame its
    /// own ancestor, changes nothing and gives what is wrong; otherwise the empty text.
    QString readTransforms(const QCborMap& message, bool isStatic, TimePoint now);
    /// Takes a nav_msgs/Odometry, which counts only while no transform tells of the same frame.
    /// @p child becomes the frame that it places.
    QString readOdometry(const QCborMap& message, TimePoint now, QString* child);

    /// Whether the frame, or a frame in it, was told.
    bool isKnown(const QString& frame) const { return find(frame) != none; }

    /// Whether a parent of the frame was told.
    bool isPlaced(const QString& frame) const;
    /// The frames called @p name, with any prefix or none, that a parent was told of; in order.
    QStringList placed(const QString& name) const;
    /// The frame that all this is told in; a frame without a parent is its own.
    QString root(const QString& frame) const;
    /// The first frame called @p name, with any prefix or none, on the way from @p frame to the
    /// root, itself among them, that a parent was told of; empty where there is none.
    QString ancestor(const QString& frame, const QString& name) const;
    /// Where @p frame is in @p other; nothing where the frames have nothing to do with each other.
    std::optional<Transform> lookup(const QString& frame, const QString& other) const;
    /// Of the next link on the way to the root that may move; nothing where all stands still.
    std::optional<Moment> moved(const QString& frame) const;

private:
    /// What a message tells of one frame.
    struct Link
    {
        QString child;
        QString parent;
        Transform place;
        Moment moment;
        bool isStatic = false;
        bool isOdometry = false;
    };

    /// A frame, known by its number: chains are long, and gone along with every message.
    struct Frame
    {
        QString name;
        int parent = none; // of those that a parent was told of, which are without loops
        Transform place;
        Moment moment;
        bool isStatic = false;
        bool isOdometry = false;
    };

    /// The end of a chain, and how its beginning lies there.
    struct Rooted
    {
        int root = none;
        Transform place;
    };

    static constexpr int none = -1;

    QString add(const std::vector<Link>& links);
    QString add(const Link& link);
    int number(const QString& name);
    int find(const QString& frame) const;
    const Frame& at(int frame) const { return m_frames[static_cast<std::size_t>(frame)]; }
    Rooted rooted(int frame) const;

    std::vector<Frame> m_frames;
    QHash<QString, int> m_numbers; // of the frames, by their names
};

} // namespace host::workbench::robotview

#endif
