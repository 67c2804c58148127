// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Benchmarks.h"
#include "Ratios.h"
#include "Scan.h"

#include "rosbridge/protocol/Codec.h"

#include <QCborMap>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

/// All fields of the message but the ranges.
QCborMap withoutRanges()
{
    return {{QStringLiteral("header"),
             QCborMap{{QStringLiteral("seq"), 123456},
                      {QStringLiteral("stamp"), QCborMap{{QStringLiteral("secs"), 1234},
                                                         {QStringLiteral("nsecs"), 567000000}}},
                      {QStringLiteral("frame_id"), QStringLiteral("laser")}}},
            {QStringLiteral("range_min"), 0.02F},
            {QStringLiteral("range_max"), 5.6F}};
}

void write(benchmark::State& state)
{
    const std::vector<float> ranges = noisyRanges();
    QCborMap message = withoutRanges();
    message.insert(QStringLiteral("ranges"),
                   rosbridge::protocol::typedArray(QVector<float>(ranges.begin(), ranges.end())));
    measure(state,
            [&message] { benchmark::DoNotOptimize(rosbridge::protocol::encodeText(message)); });
}

void writeByQt(benchmark::State& state)
{
    QJsonArray ranges;
    for (const float range : noisyRanges())
        ranges.append(static_cast<double>(range));
    QJsonObject message = withoutRanges().toJsonObject();
    message.insert(QStringLiteral("ranges"), ranges);
    const QJsonDocument document(message);
    measure(state,
            [&document] { benchmark::DoNotOptimize(document.toJson(QJsonDocument::Compact)); });
}

} // namespace

void addJson(Ratios& ratios)
{
    benchmark::RegisterBenchmark("json: a scan", write);
    benchmark::RegisterBenchmark("json: a scan, Qt", writeByQt);
    ratios.compare("json: a scan", "json: a scan, Qt", 0);
}
