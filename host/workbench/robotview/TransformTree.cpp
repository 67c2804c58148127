// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/robotview/TransformTree.h"

#include "host/device/readers/TimeStamp.h"

#include <QCborArray>

namespace host::workbench::robotview {

using rosbridge::protocol::Fields;

namespace {

constexpr std::size_t mostFrames = 1000; // a robot has some dozens

QString bare(const QString& name)
{
    return name.startsWith(QLatin1Char('/')) ? name.mid(1) : name;
}

QString frameName(Fields& fields, const char* field)
{
    QString name = bare(fields.text(field));
    if (name.isEmpty())
        fields.fail(field, TransformTree::tr("is empty: no frame is named"));
    return name;
}

} // namespace

QString TransformTree::readTransforms(const QCborMap& message, bool isStatic, TimePoint now)
{
    const QCborValue transforms = message.value(QLatin1String("transforms"));
    if (!transforms.isArray())
        return tr("the field \"transforms\" is not an array");
    std::vector<Link> links;
    const QCborArray array = transforms.toArray();
    for (const QCborValue element : array) {
        QString fault;
        Fields fields(element.toMap(), &fault);
        Fields header = fields.object("header");
        Link link;
        link.parent = frameName(header, "frame_id");
        link.child = frameName(fields, "child_frame_id");
        link.moment = {now, device::readers::milliseconds(header.object("stamp"))};
        link.place = Transform::read(fields.object("transform"), "translation", "rotation");
        link.isStatic = isStatic;
        if (!fault.isEmpty())
            return tr("in element %1, %2").arg(links.size()).arg(fault);
        links.push_back(link);
    }
    return add(links);
}

QString TransformTree::readOdometry(const QCborMap& message, TimePoint now, QString* child)
{
    QString fault;
    Fields fields(message, &fault);
    Fields header = fields.object("header");
    Link link;
    link.parent = frameName(header, "frame_id");
    link.child = frameName(fields, "child_frame_id");
    link.moment = {now, device::readers::milliseconds(header.object("stamp"))};
    link.place = Transform::read(fields.object("pose").object("pose"), "position", "orientation");
    link.isOdometry = true;
    if (!fault.isEmpty())
        return fault;
    const Link* const known = find(link.child);
    if (!known || known->isOdometry)
        fault = add({link});
    if (fault.isEmpty())
        *child = link.child;
    return fault;
}

/// All or none of them.
QString TransformTree::add(const std::vector<Link>& links)
{
    std::map<QString, Link> before = m_links;
    QString fault;
    for (const Link& link : links) {
        if (isWithin(link.parent, link.child))
            fault = tr("the frame \"%1\" is its own ancestor").arg(link.child);
        m_links[link.child] = link;
        if (m_links.size() > mostFrames)
            fault = tr("it results in more than %1 frames").arg(mostFrames);
        if (!fault.isEmpty()) {
            m_links.swap(before);
            break;
        }
    }
    return fault;
}

bool TransformTree::isPlaced(const QString& frame) const
{
    return find(bare(frame)) != nullptr;
}

QString TransformTree::root(const QString& frame) const
{
    QString name = bare(frame);
    while (const Link* link = find(name))
        name = link->parent;
    return name;
}

std::optional<Transform> TransformTree::lookup(const QString& frame, const QString& other) const
{
    if (root(frame) != root(other))
        return std::nullopt;
    return placeInRoot(other).inverse() * placeInRoot(frame);
}

std::optional<TransformTree::Moment> TransformTree::moved(const QString& frame) const
{
    for (const Link* link = find(bare(frame)); link; link = find(link->parent)) {
        if (!link->isStatic)
            return link->moment;
    }
    return std::nullopt;
}

const TransformTree::Link* TransformTree::find(const QString& frame) const
{
    const auto link = m_links.find(frame);
    return link == m_links.end() ? nullptr : &link->second;
}

bool TransformTree::isWithin(const QString& frame, const QString& ancestor) const
{
    QString name = frame;
    while (name != ancestor) {
        const Link* const link = find(name);
        if (!link)
            return false;
        name = link->parent;
    }
    return true;
}

Transform TransformTree::placeInRoot(const QString& frame) const
{
    Transform place;
    for (const Link* link = find(bare(frame)); link; link = find(link->parent))
        place = link->place * place;
    return place;
}

} // namespace host::workbench::robotview
