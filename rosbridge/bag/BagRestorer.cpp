// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/bag/BagRestorer.h"

#include <QFileDevice>
#include <QtEndian>

#include <algorithm>
#include <limits>

namespace rosbridge::bag {

namespace {

// The format: https://wiki.ros.org/Bags/Format/2.0
const QByteArray magic("#ROSBAG V2.0\n");
constexpr int fileHeaderSize = 4096; // of that record without its two lengths
constexpr qint64 longestHeader = qint64{64} * 1024;
constexpr qint64 largestChunk = qint64{1} << 30;

namespace op {
constexpr char message = 0x02;
constexpr char fileHeader = 0x03;
constexpr char index = 0x04;
constexpr char chunk = 0x05;
constexpr char chunkInfo = 0x06;
constexpr char connection = 0x07;
} // namespace op

template <typename Number>
QByteArray little(Number number)
{
    QByteArray bytes(static_cast<int>(sizeof(Number)), Qt::Uninitialized);
    qToLittleEndian<Number>(number, bytes.data());
    return bytes;
}

/// 0 where there are not enough bytes.
quint32 number(const QByteArray& bytes)
{
    return bytes.size() >= 4 ? qFromLittleEndian<quint32>(bytes.constData()) : 0;
}

/// The seconds in the upper half, the nanoseconds in the lower.
QByteArray asTime(quint64 time)
{
    return little(static_cast<quint32>(time >> 32)) + little(static_cast<quint32>(time));
}

QByteArray ofKind(char kind)
{
    return QByteArray(1, kind);
}

} // namespace

bool BagRestorer::restore(QFileDevice& from, QFileDevice& to, QString* error)
{
    return BagRestorer(from, to).restore(error);
}

bool BagRestorer::restore(QString* error)
{
    if (bytes(0, magic.size()) != magic) {
        *error = tr("it does not begin as a bag of format 2.0 does");
        return false;
    }
    write(magic);
    writeFileHeader(0);
    qint64 at = magic.size();
    while (const auto found = record(at)) {
        at = found->end;
        if (found->header.value("op") != ofKind(op::chunk))
            continue;
        if (found->header.value("compression") != "none") {
            *error = tr("it has no index and is compressed; make one with \"rosbag reindex\"");
            return false;
        }
        restoreChunk(*found);
        if (found->hasNoData())
            break; // the size of a chunk is known when it ends: this is the one that was cut
    }
    if (m_chunks.isEmpty()) {
        *error = tr("there is no whole message in it");
        return false;
    }
    writeIndex();
    if (m_isWritten && m_to.flush())
        return true;
    *error = tr("it was cut off, and there is no room for a copy with an index: %1")
                 .arg(m_to.errorString());
    return false;
}

/// Nothing where its header is not whole, or the file ends there.
std::optional<BagRestorer::Record> BagRestorer::record(qint64 at)
{
    const quint32 headerSize = number(bytes(at, at + 4));
    const qint64 headerEnd = at + 4 + headerSize;
    if (headerSize == 0 || headerSize > longestHeader || headerEnd + 4 > m_from.size())
        return std::nullopt;
    Record record;
    record.at = at;
    record.dataAt = headerEnd + 4;
    record.end = record.dataAt + number(bytes(headerEnd, record.dataAt));
    const QByteArray header = bytes(at + 4, headerEnd);
    for (int field = 0; field + 4 <= header.size();) {
        const qint64 size = number(header.mid(field, 4));
        const QByteArray text =
            header.mid(field + 4, static_cast<int>(std::min(size, longestHeader)));
        const int equals = static_cast<int>(text.indexOf('='));
        if (text.size() != size || equals < 0)
            return std::nullopt;
        record.header.insert(text.left(equals), text.mid(equals + 1));
        field += 4 + static_cast<int>(size);
    }
    return record;
}

/// Fewer where the file ends before.
QByteArray BagRestorer::bytes(qint64 at, qint64 end)
{
    return m_from.seek(at) ? m_from.read(end - at) : QByteArray();
}

/// Up to its last whole message.
void BagRestorer::restoreChunk(const Record& record)
{
    const qint64 end = record.hasNoData() ? m_from.size() : std::min(record.end, m_from.size());
    Chunk chunk;
    chunk.at = static_cast<quint64>(m_to.pos());
    qint64 at = record.dataAt;
    while (const auto found = this->record(at)) {
        const QByteArray kind = found->header.value("op");
        const bool isMessage = kind == ofKind(op::message);
        if (found->end > end || found->end - record.dataAt > largestChunk ||
            (!isMessage && kind != ofKind(op::connection)))
            break;
        if (isMessage)
            readMessage(chunk, *found, record.dataAt);
        else
            m_connections.insert(number(found->header.value("conn")), bytes(found->at, found->end));
        at = found->end;
    }
    if (!chunk.indices.empty())
        writeChunk(chunk, record.dataAt, at);
}

void BagRestorer::readMessage(Chunk& chunk, const Record& message, qint64 chunkBegin) const
{
    const quint32 connection = number(message.header.value("conn"));
    const QByteArray time = message.header.value("time");
    if (time.size() == 8 && m_connections.contains(connection))
        chunk.indices[connection].emplace(quint64{number(time)} << 32 | number(time.mid(4)),
                                          static_cast<quint32>(message.at - chunkBegin));
}

void BagRestorer::writeChunk(const Chunk& chunk, qint64 at, qint64 end)
{
    const QByteArray data = bytes(at, end);
    writeRecord({{"op", ofKind(op::chunk)},
                 {"compression", "none"},
                 {"size", little(static_cast<quint32>(data.size()))}},
                data);
    for (const auto& [connection, index] : chunk.indices) {
        QByteArray entries;
        for (const auto& [time, offset] : index)
            entries += asTime(time) + little(offset);
        writeRecord({{"op", ofKind(op::index)},
                     {"ver", little(quint32{1})},
                     {"conn", little(connection)},
                     {"count", little(static_cast<quint32>(index.size()))}},
                    entries);
    }
    m_chunks.append(chunk);
}

void BagRestorer::writeIndex()
{
    const auto indexAt = static_cast<quint64>(m_to.pos());
    for (const QByteArray& connection : std::as_const(m_connections))
        write(connection);
    for (const Chunk& chunk : std::as_const(m_chunks)) {
        QByteArray counts;
        quint64 first = std::numeric_limits<quint64>::max();
        quint64 last = 0;
        for (const auto& [connection, index] : chunk.indices) {
            first = std::min(first, index.begin()->first);
            last = std::max(last, index.rbegin()->first);
            counts += little(connection) + little(static_cast<quint32>(index.size()));
        }
        writeRecord({{"op", ofKind(op::chunkInfo)},
                     {"ver", little(quint32{1})},
                     {"chunk_pos", little(chunk.at)},
                     {"start_time", asTime(first)},
                     {"end_time", asTime(last)},
                     {"count", little(static_cast<quint32>(chunk.indices.size()))}},
                    counts);
    }
    m_to.seek(magic.size());
    writeFileHeader(indexAt);
}

void BagRestorer::writeFileHeader(quint64 indexAt)
{
    const Header header{{"op", ofKind(op::fileHeader)},
                        {"index_pos", little(indexAt)},
                        {"conn_count", little(static_cast<quint32>(m_connections.size()))},
                        {"chunk_count", little(static_cast<quint32>(m_chunks.size()))}};
    int size = 0;
    for (auto field = header.cbegin(); field != header.cend(); ++field)
        size += 4 + static_cast<int>(field.key().size() + 1 + field.value().size());
    writeRecord(header, QByteArray(fileHeaderSize - size, ' '));
}

void BagRestorer::writeRecord(const Header& header, const QByteArray& data)
{
    QByteArray fields;
    for (auto field = header.cbegin(); field != header.cend(); ++field) {
        const QByteArray text = field.key() + '=' + field.value();
        fields += little(static_cast<quint32>(text.size())) + text;
    }
    const QByteArray record = little(static_cast<quint32>(fields.size())) + fields +
                              little(static_cast<quint32>(data.size())) + data;
    write(record);
}

void BagRestorer::write(const QByteArray& bytes)
{
    m_isWritten = m_isWritten && m_to.write(bytes) == bytes.size();
}

} // namespace rosbridge::bag
