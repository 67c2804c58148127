// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/bag/BagWriter.h"

#include "rosbridge/bag/RosConversions.h"

#include <console_bridge/console.h>
#include <rosbag/bag.h>

#include <QLocale>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <limits>
#include <utility>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace rosbridge::bag {

/// As rosbag takes a message that it need not understand.
struct BagMessage
{
    const BagWriter::Topic& topic;
    const QByteArray& bytes;
};

} // namespace rosbridge::bag

namespace ros {

using rosbridge::bag::BagMessage;

namespace message_traits {

template <>
struct MD5Sum<BagMessage>
{
    static const char* value(const BagMessage& message)
    {
        return message.topic.checksum.constData();
    }
};

template <>
struct DataType<BagMessage>
{
    static const char* value(const BagMessage& message) { return message.topic.type.constData(); }
};

template <>
struct Definition<BagMessage>
{
    static const char* value(const BagMessage& message)
    {
        return message.topic.definition.constData();
    }
};

} // namespace message_traits

namespace serialization {

template <>
struct Serializer<BagMessage>
{
    template <typename Stream>
    static void write(Stream& stream, const BagMessage& message)
    {
        const auto size = serializedLength(message);
        std::memcpy(stream.advance(size), message.bytes.constData(), size);
    }

    static std::uint32_t serializedLength(const BagMessage& message)
    {
        return static_cast<std::uint32_t>(message.bytes.size());
    }
};

} // namespace serialization

} // namespace ros

namespace rosbridge::bag {

namespace {

constexpr qint64 mebibyte = qint64{1024} * 1024;
constexpr qint64 reserveStep = 4 * mebibyte;
constexpr qint64 mostUnflushed = mebibyte; // what makes a chunk large enough
constexpr qint64 mostUncleared = 8 * mebibyte;
constexpr qint64 headSize = 8192; // the file's header is within it
constexpr std::uint32_t endless = std::numeric_limits<std::uint32_t>::max();

// Bytes that the format takes at most, beside names, definitions and messages.
constexpr qint64 messageHead = 48;
constexpr qint64 messageIndex = 12;
constexpr qint64 connectionHead = 192;
constexpr qint64 connectionIndex = 64; // of a chunk
constexpr qint64 chunkHead = 64;
constexpr qint64 chunkInfo = 128;
constexpr qint64 chunkInfoOfTopic = 8;

QString activeName(const QString& name)
{
    return name + QStringLiteral(".active");
}

/// Of what the bag says of a topic.
qint64 connectionSize(const BagWriter::Topic& topic)
{
    return connectionHead + 2 * topic.name.size() + topic.type.size() + topic.definition.size();
}

} // namespace

/// What rosbag believes to be the file, in memory: it can neither tell that it is time to put what
/// it has on the disk nor survive a disk that is full.
struct BagWriter::Memory
{
    Memory() : descriptor(memfd_create("bag", MFD_CLOEXEC)) {}

    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;

    ~Memory() { ::close(descriptor); }

    /// Of the file that rosbag has written.
    qint64 size() const
    {
        struct stat status = {};
        return fstat(descriptor, &status) == 0 ? qint64{status.st_size} : 0;
    }

    void endChunk()
    {
        m_isClearing = m_uncleared > mostUncleared;
        bag.setChunkThreshold(m_isClearing ? 0 : endless);
    }

    /// rosbag keeps a copy of what it writes, and forgets it only where a message makes a chunk
    /// large enough. True if the message of @p size that was just written did.
    bool clear(qint64 size)
    {
        const bool isCleared = std::exchange(m_isClearing, false);
        m_uncleared = isCleared ? 0 : m_uncleared + size;
        if (isCleared)
            bag.setChunkThreshold(endless);
        return isCleared;
    }

    /// Gives the memory back up to @p end, but for the file's header.
    void forget(qint64 end) const
    {
        if (end > headSize)
            fallocate(descriptor, FALLOC_FL_PUNCH_HOLE | FALLOC_FL_KEEP_SIZE, headSize,
                      end - headSize);
    }

    int descriptor;
    rosbag::Bag bag;

private:
    qint64 m_uncleared = 0;    // bytes of that copy
    bool m_isClearing = false; // with the next message
};

std::unique_ptr<BagWriter> BagWriter::create(const QString& name, qint64 mostBytes, QString* error)
{
    console_bridge::noOutputHandler(); // what goes wrong is in the exceptions
    std::unique_ptr<BagWriter> writer(new BagWriter(name, mostBytes));
    return writer->open(error) ? std::move(writer) : nullptr;
}

BagWriter::BagWriter(const QString& name, qint64 mostBytes)
    : m_name(name),
      m_file(activeName(name)),
      m_mostBytes(mostBytes),
      m_size(headSize)
{
}

BagWriter::~BagWriter()
{
    finish();
}

bool BagWriter::open(QString* error)
{
    if (m_file.exists())
        *error = tr("%1 is there: it was cut off while it was recorded. Rename it to keep it, or "
                    "remove it.")
                     .arg(m_file.fileName());
    else if (!m_file.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
        *error = QStringLiteral("%1: %2").arg(m_file.fileName(), m_file.errorString());
    else if (!reserve(m_size)) {
        *error = m_error;
        m_file.remove();
    } else {
        m_memory = std::make_unique<Memory>();
        try {
            const auto path = "/proc/self/fd/" + std::to_string(m_memory->descriptor);
            m_memory->bag.open(path, rosbag::bagmode::Write);
            m_memory->bag.setChunkThreshold(endless); // chunks end where they are flushed
            return true;
        } catch (const std::exception& failure) {
            *error = inWords(failure);
            m_memory.reset();
            m_file.remove();
        }
    }
    return false;
}

int BagWriter::add(const Topic& topic)
{
    m_topics.push_back(topic);
    m_size += connectionSize(topic) + connectionIndex; // in the chunk that its first message is in
    m_indexSize += connectionSize(topic);
    return static_cast<int>(m_topics.size()) - 1;
}

bool BagWriter::write(int topic, Time time, const QByteArray& bytes)
{
    if (!m_error.isEmpty())
        return false;
    const auto topicCount = static_cast<qint64>(m_topics.size());
    qint64 size = messageHead + messageIndex + bytes.size();
    qint64 indexSize = m_indexSize;
    if (!m_isChunkOpen) {
        size += chunkHead + topicCount * connectionIndex;
        indexSize += chunkInfo;
    }
    if (!reserve(m_size + size + indexSize + (m_chunks + 1) * topicCount * chunkInfoOfTopic))
        return false;
    const Topic& its = m_topics[static_cast<std::size_t>(topic)];
    try {
        m_memory->bag.write(its.name.toStdString(), toRos(time), BagMessage{its, bytes});
    } catch (const std::exception& failure) {
        return fail(inWords(failure));
    }
    m_chunks += m_isChunkOpen ? 0 : 1;
    m_size += size;
    m_indexSize = indexSize;
    m_unflushed += size;
    m_isChunkOpen = !m_memory->clear(size);
    return m_unflushed < mostUnflushed || flush();
}

bool BagWriter::flush()
{
    if (!m_memory || m_unflushed == 0)
        return m_error.isEmpty();
    try {
        m_memory->endChunk();
    } catch (const std::exception& failure) {
        m_isWhole = false;
        return fail(inWords(failure));
    }
    m_isChunkOpen = false;
    m_unflushed = 0;
    const qint64 end = m_memory->size();
    if (!copy(m_copied, end))
        return false;
    m_copied = end;
    m_memory->forget(m_copied);
    return true;
}

QString BagWriter::finish()
{
    if (!m_memory)
        return {};
    flush();
    bool isGood = m_isWhole;
    try {
        m_memory->bag.close();
    } catch (const std::exception& failure) {
        isGood = fail(inWords(failure));
        // Deleted, each would try again and end the program.
        static auto* const unclosed = new std::vector<Memory*>;
        unclosed->push_back(m_memory.release());
    }
    if (isGood) {
        m_size = m_memory->size();
        isGood = copy(m_copied, m_size) && copy(0, std::min(headSize, m_size));
    }
    m_memory.reset();
    m_file.resize(isGood ? m_size : m_copied);
    m_file.close();
    if (isGood && std::rename(QFile::encodeName(m_file.fileName()).constData(),
                              QFile::encodeName(m_name).constData()) == 0)
        return {};
    const QString why = isGood ? qt_error_string(errno) : m_error;
    return tr("%1 keeps its name, for it could not be finished: %2. What was recorded is in it.")
        .arg(m_file.fileName(), why);
}

/// Of the file: at least @p bytes on the disk, from its beginning.
bool BagWriter::reserve(qint64 bytes)
{
    if (bytes > m_mostBytes)
        return fail(tr("%1 has reached the largest size of a recording, %2")
                        .arg(m_name, QLocale().formattedDataSize(m_mostBytes)));
    if (bytes <= m_reserved)
        return true;
    int failure = 0;
    for (const qint64 more : {reserveStep, qint64{0}}) { // the last room is used up, too
        failure = posix_fallocate(m_file.handle(), 0, bytes + more);
        if (failure == 0) {
            m_reserved = bytes + more;
            return true;
        }
    }
    return fail(QStringLiteral("%1: %2").arg(m_name, qt_error_string(failure)));
}

/// Copies a part of the file from the memory to the disk.
bool BagWriter::copy(qint64 begin, qint64 end)
{
    m_isWhole = m_isWhole && m_file.seek(begin);
    QByteArray buffer(static_cast<int>(mebibyte), Qt::Uninitialized);
    for (qint64 at = begin; at < end && m_isWhole;) {
        const qint64 size = pread(m_memory->descriptor, buffer.data(),
                                  static_cast<std::size_t>(std::min(mebibyte, end - at)), at);
        m_isWhole = size > 0 && m_file.write(buffer.constData(), size) == size;
        at += size;
    }
    return m_isWhole || fail(QStringLiteral("%1: %2").arg(m_name, m_file.errorString()));
}

/// The first reason stands.
bool BagWriter::fail(const QString& error)
{
    if (m_error.isEmpty())
        m_error = error;
    return false;
}

} // namespace rosbridge::bag
