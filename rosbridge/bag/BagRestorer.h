// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_BAG_BAGRESTORER_H
#define ROSBRIDGE_BAG_BAGRESTORER_H

#include <QByteArray>
#include <QCoreApplication>
#include <QMap>
#include <QString>
#include <QVector>

#include <map>
#include <optional>

QT_BEGIN_NAMESPACE
class QFileDevice;
QT_END_NAMESPACE

namespace rosbridge::bag {

/// Makes a bag of format 2.0 readable that was cut off before its index was written: copies what is
/// whole, up to the last message, and gives it an index.
class BagRestorer
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::bag::BagRestorer)

public:
    /// Reads @p from from its beginning and writes @p to, both open files. False if that is no such
    /// bag, holds no whole message, is compressed, or cannot be written, and @p error says which.
    static bool restore(QFileDevice& from, QFileDevice& to, QString* error);

private:
    using Header = QMap<QByteArray, QByteArray>;

    struct Record
    {
        Header header;
        qint64 at = 0;     // where it begins
        qint64 dataAt = 0; // where its data does
        qint64 end = 0;    // where the next one begins

        bool hasNoData() const { return end == dataAt; }
    };

    /// Where the messages of one connection begin in a chunk, by their times: the seconds in the
    /// upper half, the nanoseconds in the lower.
    using Index = std::multimap<quint64, quint32>;

    struct Chunk
    {
        quint64 at = 0;                   // in the new file
        std::map<quint32, Index> indices; // by connection
    };

    BagRestorer(QFileDevice& from, QFileDevice& to) : m_from(from), m_to(to) {}

    bool restore(QString* error);
    std::optional<Record> record(qint64 at);
    QByteArray bytes(qint64 at, qint64 end);
    void restoreChunk(const Record& chunk);
    void readMessage(Chunk& chunk, const Record& message, qint64 chunkBegin) const;
    void writeChunk(const Chunk& chunk, qint64 at, qint64 end);
    void writeIndex();
    void writeFileHeader(quint64 indexAt);
    void writeRecord(const Header& header, const QByteArray& data);
    void write(const QByteArray& bytes);

    QFileDevice& m_from;
    QFileDevice& m_to;
    QMap<quint32, QByteArray> m_connections; // whole records
    QVector<Chunk> m_chunks;
    bool m_isWritten = true;
};

} // namespace rosbridge::bag

#endif
