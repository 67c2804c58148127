// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_BAG_BAGWRITER_H
#define ROSBRIDGE_BAG_BAGWRITER_H

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QString>

#include <chrono>
#include <memory>
#include <vector>

namespace rosbridge::bag {

/// Writes a ROS bag message by message. Until it is finished its file is NAME.active, which what
/// has been flushed is safe in, whatever becomes of this program. Room for the index is kept at all
/// times: on a full disk, too, the bag is finished as usual, with all that was written before.
class BagWriter
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::bag::BagWriter)

public:
    /// When a message was recorded, since 1970.
    using Time = std::chrono::nanoseconds;

    struct Topic
    {
        QByteArray name;
        QByteArray type;       ///< as ROS 1 writes it
        QByteArray definition; ///< its full text, see MessageDefinition
        QByteArray checksum;   ///< of that, see there
    };

    /// Makes the file, of at most @p mostBytes. Nothing, and in @p error its name and the reason,
    /// if it cannot be made, or is there from an earlier recording.
    static std::unique_ptr<BagWriter> create(const QString& name, qint64 mostBytes, QString* error);
    /// Finishes the bag.
    ~BagWriter();

    /// Returns the topic's number for write(). Names differ.
    int add(const Topic& topic);
    /// @p bytes are a message of that type, serialized. False, and nothing is written, where there
    /// is no room for it: error() says why, and it is time to finish.
    bool write(int topic, Time time, const QByteArray& bytes);
    /// Puts what was written into the file. False where that failed, which error() says.
    bool flush();
    /// Ends the bag with its index and gives the file its name, in place of one that had it. The
    /// problem, or nothing; the file then keeps its name and all that was flushed. Nothing can be
    /// written any more.
    QString finish();

    /// Of the file in bytes, about.
    qint64 size() const { return m_size; }
    /// What ended the recording; empty: nothing has.
    QString error() const { return m_error; }

private:
    struct Memory; // what of it needs rosbag's headers

    BagWriter(const QString& name, qint64 mostBytes);

    bool open(QString* error);
    bool reserve(qint64 bytes);
    bool copy(qint64 begin, qint64 end);
    bool fail(const QString& error);

    QString m_name;
    QFile m_file;
    qint64 m_mostBytes;
    std::unique_ptr<Memory> m_memory; // null once the bag is finished
    std::vector<Topic> m_topics;
    // What was written takes that many bytes in the file at most, and its index at the end.
    qint64 m_size = 0;
    qint64 m_indexSize = 0;
    qint64 m_chunks = 0;
    bool m_isChunkOpen = false;
    qint64 m_unflushed = 0;
    qint64 m_copied = 0;   // from the memory to the file
    qint64 m_reserved = 0; // for the file
    bool m_isWhole = true; // no write to the file has failed
    QString m_error;
};

} // namespace rosbridge::bag

#endif
