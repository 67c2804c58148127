// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_TESTS_ROSBRIDGE_TESTBAG_H
#define QUANDREL_TESTS_ROSBRIDGE_TESTBAG_H

#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <boost/make_shared.hpp>
#include <rosbag/bag.h>
#include <rosgraph_msgs/Clock.h>
#include <std_msgs/String.h>

/// A bag that rosbag itself writes.
class TestBag
{
public:
    /// When a bag of these tests begins, in seconds since 1970.
    static constexpr double beginning = 1600000000.0;

    explicit TestBag(rosbag::CompressionType compression = rosbag::compression::Uncompressed)
    {
        m_bag.open(path().toStdString(), rosbag::bagmode::Write);
        m_bag.setCompression(compression);
        m_bag.setChunkThreshold(2000);
    }

    QString path() const { return m_folder.filePath(QStringLiteral("test.bag")); }

    /// So many @p seconds after the beginning.
    template <class Message>
    void write(const char* topic, double seconds, const Message& message)
    {
        m_bag.write(topic, ros::Time(beginning + seconds), message);
    }

    void write(const char* topic, double seconds, const char* text)
    {
        write(topic, seconds, string(text));
    }

    /// As the node @p caller published it, as a state that holds.
    void writeLatched(const char* topic, double seconds, const char* text,
                      const char* caller = "/a")
    {
        write(topic, seconds, text, ros::message_traits::Definition<std_msgs::String>::value(),
              {{"callerid", caller}, {"latching", "1"}});
    }

    /// As a recorder without the definitions of messages does.
    void writeUndefined(const char* topic, double seconds)
    {
        write(topic, seconds, "", "secret/Type what", {});
    }

    /// Writes the index.
    void close() { m_bag.close(); }

    /// The file as it is on the disk now, as kill -9 would leave it.
    QByteArray onDisk() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Another file in the same place.
    QString save(const QByteArray& bytes) const
    {
        QFile file(m_folder.filePath(QStringLiteral("other.bag")));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("%s", qPrintable(file.errorString()));
        return file.fileName();
    }

private:
    void write(const char* topic, double seconds, const char* text, const std::string& definition,
               const ros::M_string& more)
    {
        const std_msgs::String message = string(text);
        auto header = boost::make_shared<ros::M_string>(more);
        (*header)["type"] = ros::message_traits::datatype(message);
        (*header)["md5sum"] = ros::message_traits::md5sum(message);
        (*header)["message_definition"] = definition;
        m_bag.write(topic, ros::Time(beginning + seconds), message, header);
    }

    static std_msgs::String string(const char* text)
    {
        std_msgs::String message;
        message.data = text;
        return message;
    }

    QTemporaryDir m_folder;
    rosbag::Bag m_bag;
};

#endif
