// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ROBOTVIEW_TRANSFORMTREE_H
#define HOST_WORKBENCH_ROBOTVIEW_TRANSFORMTREE_H

#include "host/workbench/robotview/Transform.h"

#include <QCborMap>
#include <QCoreApplication>
#include <QString>

#include <chrono>
#include <map>
#include <optional>
#include <vector>

namespace host::workbench::robotview {

/// The robot's frames and where each is in its parent, as it was told last; nothing is foretold or
/// interpolated. Names count with and without a leading slash.
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

    /// Takes a tf2_msgs/TFMessage. One that is wrong in any part, or that would make a frame its
    /// own ancestor, changes nothing and gives what is wrong; otherwise the empty text.
    QString readTransforms(const QCborMap& message, bool isStatic, TimePoint now);
    /// Takes a nav_msgs/Odometry, which counts only while no transform tells of the same frame.
    /// @p child becomes the frame that it places.
    QString readOdometry(const QCborMap& message, TimePoint now, QString* child);

    /// Whether a parent of the frame was told.
    bool isPlaced(const QString& frame) const;
    /// The frame that all this is told in; a frame without a parent is its own.
    QString root(const QString& frame) const;
    /// Where @p frame is in @p other; nothing where the frames have nothing to do with each other.
    std::optional<Transform> lookup(const QString& frame, const QString& other) const;
    /// Of the next link on the way to the root that may move; nothing where all stands still.
    std::optional<Moment> moved(const QString& frame) const;

private:
    struct Link
    {
        QString child;
        QString parent;
        Transform place;
        Moment moment;
        bool isStatic = false;
        bool isOdometry = false;
    };

    QString add(const std::vector<Link>& links);
    bool isWithin(const QString& frame, const QString& ancestor) const;
    const Link* find(const QString& frame) const;
    Transform placeInRoot(const QString& frame) const;

    std::map<QString, Link> m_links; // by child; without loops
};

} // namespace host::workbench::robotview

#endif
