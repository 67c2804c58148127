// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/robotview/TransformTree.h"

#include "host/device/readers/TimeStamp.h"

#include <QCborArray>

namespace host::workbench::robotview {

using rosbridge::protocol::Fields;

namespace {

constexpr std::size_t mostFrames = 1000; // a robot has some dozens

bool isCalled(const QString& frame, const QString& name)
{
    return frame.endsWith(name) && (frame.size() == name.size() ||
                                    frame.at(frame.size() - name.size() - 1) == QLatin1Char('/'));
}

QString frameName(Fields& fields, const char* field)
{
    QString name = TransformTree::bare(fields.text(field));
    if (name.isEmpty())
        fields.fail(field, TransformTree::tr("is empty: no frame is named"));
    return name;
}

} // namespace

QString TransformTree::bare(const QString& name)
{
    return name.startsWith(QLatin1Char('/')) ? name.mid(1) : name;
}

QString TransformTree::readTransforms(const QCborMap& message, bool isStatic, TimePoint now)
{
    const QCborValue transforms = message.value(QLatin1String("transforms"));
    if (!transforms.isArray())
        return tr("the field \"transforms\" is not an array");
    const QCborArray array = transforms.toArray();
    if (array.size() > qsizetype(mostFrames))
        return tr("the field \"transforms\" has %1 frames; at most %2 are accepted")
            .arg(array.size())
            .arg(mostFrames);
    std::vector<Link> links;
    links.reserve(static_cast<std::size_t>(array.size()));
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
    const int known = find(link.child);
    if (known == none || at(known).parent == none || at(known).isOdometry)
        fault = add({link});
    if (fault.isEmpty())
        *child = link.child;
    return fault;
}

/// All or none of them.
QString TransformTree::add(const std::vector<Link>& links)
{
    const TransformTree before = *this;
    for (const Link& link : links) {
        QString fault = add(link);
        if (!fault.isEmpty()) {
            *this = before;
            return fault;
        }
    }
    return {};
}

QString TransformTree::add(const Link& link)
{
    const int child = number(link.child);
    const int parent = number(link.parent);
    if (m_frames.size() > mostFrames)
        return tr("it results in more than %1 frames").arg(mostFrames);
    Frame& frame = m_frames[static_cast<std::size_t>(child)];
    if (frame.parent != parent) { // or there was no loop before, and is none now
        for (int above = parent; above != none; above = at(above).parent) {
            if (above == child)
                return tr("the frame \"%1\" is its own ancestor").arg(link.child);
        }
    }
    frame = {link.child, parent, link.place, link.moment, link.isStatic, link.isOdometry};
    return {};
}

/// Of a frame that may be new.
int TransformTree::number(const QString& name)
{
    const auto known = m_numbers.constFind(name);
    if (known != m_numbers.cend())
        return *known;
    const int number = static_cast<int>(m_frames.size());
    m_numbers.insert(name, number);
    m_frames.push_back({name, none, {}, {}});
    return number;
}

bool TransformTree::isPlaced(const QString& frame) const
{
    const int found = find(frame);
    return found != none && at(found).parent != none;
}

QStringList TransformTree::placed(const QString& name) const
{
    QStringList found;
    for (const Frame& frame : m_frames) {
        if (frame.parent != none && isCalled(frame.name, name))
            found.append(frame.name);
    }
    found.sort();
    return found;
}

QString TransformTree::root(const QString& frame) const
{
    const int found = find(frame);
    return found == none ? bare(frame) : at(rooted(found).root).name;
}

QString TransformTree::ancestor(const QString& frame, const QString& name) const
{
    for (int above = find(frame); above != none; above = at(above).parent) {
        if (at(above).parent != none && isCalled(at(above).name, name))
            return at(above).name;
    }
    return {};
}

std::optional<Transform> TransformTree::lookup(const QString& frame, const QString& other) const
{
    const int from = find(frame);
    const int to = find(other);
    if (from == none || to == none)
        return bare(frame) == bare(other) ? std::make_optional(Transform()) : std::nullopt;
    const Rooted rootedFrom = rooted(from);
    const Rooted rootedTo = rooted(to);
    if (rootedFrom.root != rootedTo.root)
        return std::nullopt;
    return rootedTo.place.inverse() * rootedFrom.place;
}

std::optional<TransformTree::Moment> TransformTree::moved(const QString& frame) const
{
    for (int link = find(frame); link != none && at(link).parent != none; link = at(link).parent) {
        if (!at(link).isStatic)
            return at(link).moment;
    }
    return std::nullopt;
}

int TransformTree::find(const QString& frame) const
{
    return m_numbers.value(bare(frame), none);
}

TransformTree::Rooted TransformTree::rooted(int frame) const
{
    Rooted rooted{frame, {}};
    while (at(rooted.root).parent != none) {
        rooted.place = at(rooted.root).place * rooted.place;
        rooted.root = at(rooted.root).parent;
    }
    return rooted;
}

} // namespace host::workbench::robotview
