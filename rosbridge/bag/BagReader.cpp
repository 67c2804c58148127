// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/bag/BagReader.h"

#include "rosbridge/bag/BagRestorer.h"
#include "rosbridge/bag/RosConversions.h"
#include "rosbridge/protocol/CanonicalName.h"

#include <QFile>
#include <QTemporaryFile>

#include <console_bridge/console.h>
#include <rosbag/bag.h>
#include <rosbag/view.h>

#include <unordered_map>

namespace rosbridge::bag {

namespace {

bool isLatching(const rosbag::ConnectionInfo& connection)
{
    const auto found = connection.header->find("latching");
    return found != connection.header->end() && found->second == "1";
}

} // namespace

struct BagReader::File
{
    /// Nothing, and in @p error why, if rosbag cannot read it.
    static std::unique_ptr<File> open(const QString& name, QString* error);

    rosbag::Bag bag;
    std::unique_ptr<rosbag::View> view;
    rosbag::View::iterator present;
    rosbag::View::iterator end;
    std::unordered_map<std::string, std::size_t> topics; // indices by name as in the bag
};

std::unique_ptr<BagReader::File> BagReader::File::open(const QString& name, QString* error)
{
    try {
        auto file = std::make_unique<File>();
        file->bag.open(QFile::encodeName(name).toStdString(), rosbag::bagmode::Read);
        return file;
    } catch (const std::exception& damage) {
        *error = inWords(damage);
        return nullptr;
    }
}

std::unique_ptr<BagReader> BagReader::open(const QString& name, QString* error)
{
    console_bridge::noOutputHandler(); // what goes wrong is in the exceptions
    const auto fail = [&](const QString& why) {
        if (error)
            *error = QStringLiteral("%1: %2").arg(name, why);
        return std::unique_ptr<BagReader>();
    };
    QFile source(name);
    if (!source.open(QIODevice::ReadOnly))
        return fail(source.errorString());

    QString why;
    std::unique_ptr<File> file = File::open(name, &why);
    QStringList problems;
    if (!file) {
        QTemporaryFile restored;
        if (!restored.open() || !BagRestorer::restore(source, restored, &why))
            return fail(why);
        file = File::open(restored.fileName(), &why); // which stays open when its name is gone
        if (!file)
            return fail(why);
        problems.append(tr("%1 was cut off: only what is whole is read").arg(name));
    }
    try {
        std::unique_ptr<BagReader> reader(new BagReader(std::move(file)));
        reader->m_problems = problems + reader->m_problems;
        return reader->isAtEnd() ? fail(tr("there is no message in it")) : std::move(reader);
    } catch (const std::exception& damage) {
        return fail(tr("the bag is damaged: %1").arg(inWords(damage)));
    }
}

BagReader::BagReader(std::unique_ptr<File> file) : m_file(std::move(file))
{
    readTopics();
    seek(Time(0));
    m_begin = fromRos(m_file->view->getBeginTime());
    m_end = fromRos(m_file->view->getEndTime());
}

BagReader::~BagReader() = default;

void BagReader::readTopics()
{
    rosbag::View all(m_file->bag);
    for (const rosbag::ConnectionInfo* connection : all.getConnections()) {
        const QString name = QString::fromStdString(connection->topic);
        const QString type = protocol::canonicalType(QString::fromStdString(connection->datatype));
        const auto known = m_file->topics.emplace(connection->topic, m_topics.size());
        if (known.second) {
            m_topics.push_back({protocol::canonicalName(name), type,
                                QString::fromStdString(connection->msg_def),
                                isLatching(*connection)});
        } else if (Topic& topic = m_topics[known.first->second]; topic.type == type) {
            topic.isLatched |= isLatching(*connection); // one of several publishers
        } else {
            m_problems.append(tr("%1 has messages of several types; those of %2 are left out")
                                  .arg(topic.name, type));
        }
    }
}

void BagReader::seek(Time time)
{
    m_file->present = {};
    m_file->end = {};
    m_file->view = std::make_unique<rosbag::View>(m_file->bag, toRos(time));
    m_file->present = m_file->view->begin();
    m_file->end = m_file->view->end();
    skipUnread();
}

bool BagReader::isAtEnd() const
{
    return m_file->present == m_file->end;
}

void BagReader::advance()
{
    ++m_file->present;
    skipUnread();
}

/// Messages of a type that their topic does not have.
void BagReader::skipUnread()
{
    while (!isAtEnd()) {
        const QString type = QString::fromStdString(m_file->present->getDataType());
        if (protocol::canonicalType(type) == m_topics[topic()].type)
            return;
        ++m_file->present;
    }
}

std::size_t BagReader::topic() const
{
    return m_file->topics.at(m_file->present->getTopic());
}

BagReader::Time BagReader::time() const
{
    return fromRos(m_file->present->getTime());
}

std::optional<QByteArray> BagReader::bytes(QString* error) const
{
    return MessageList::bytes(*m_file->present, error);
}

MessageList BagReader::messages(const QString& topic) const
{
    for (const auto& [name, index] : m_file->topics) {
        if (m_topics[index].name == topic)
            return {m_file->bag, name};
    }
    return {m_file->bag, std::string()};
}

} // namespace rosbridge::bag
