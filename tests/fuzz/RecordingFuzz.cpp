// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// Any bytes are a recording or an error, and any recording can be replayed.
#include "Require.h"

#include "robot/recording/Recording.h"
#include "robot/recording/Replay.h"

#include <QBuffer>

using namespace robot::recording;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);

    // Small limits, so that they are met too.
    Recording::Limits limits;
    limits.fileSize = qint64{64} * 1024;
    limits.memory = qint64{64} * 1024;
    limits.lineLength = qint64{8} * 1024;
    QString error;
    std::optional<Recording> recording =
        Recording::read(buffer, QStringLiteral("input"), limits, &error);
    require(recording.has_value() == error.isEmpty());
    if (!recording)
        return 0;

    const size_t count = recording->scans.size();
    require(count > 0);
    for (const robot::simulation::LaserScan& scan : recording->scans) {
        require(!scan.ranges.empty());
        for (const float range : scan.ranges)
            require(range >= 0.0F && range <= 10000.0F);
    }

    std::optional<Replay> replay = Replay::create(std::move(recording->scans), {}, &error);
    require(replay.has_value());
    robot::simulation::Time now{0};
    for (size_t given = 0; given < count; now += std::chrono::hours(2)) {
        while (replay->next(now))
            ++given;
    }
    return 0;
}
