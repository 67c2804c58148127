// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_LINK_TESTS_READING_H
#define ROBOT_LINK_TESTS_READING_H

#include "rosbridge/websocket/FrameReader.h"

#include <QBuffer>
#include <QList>

#include <optional>

/// What a reader made of some bytes, in the order they came.
struct Reading
{
    QList<rosbridge::websocket::FrameReader::Item> items;
    std::optional<rosbridge::websocket::FrameReader::Fault> fault;
};

/// Reads @p bytes as they may come, @p step at a time, and messages of up to @p limit bytes.
inline Reading read(rosbridge::websocket::Role reader, const QByteArray& bytes, int step,
                    qint64 limit)
{
    rosbridge::websocket::FrameReader frames(reader, limit);
    Reading reading;
    QByteArray waiting;
    for (int at = 0; at < static_cast<int>(bytes.size()); at += step) {
        waiting += bytes.mid(at, step);
        QBuffer device(&waiting);
        device.open(QIODevice::ReadOnly);
        while (const auto item = frames.read(device))
            reading.items.append(*item);
        const qint64 taken = device.pos();
        device.close();
        waiting.remove(0, static_cast<int>(taken));
    }
    reading.fault = frames.fault();
    return reading;
}

#endif
