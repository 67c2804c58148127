// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Benchmarks.h"
#include "Ratios.h"
#include "Scan.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace {

void writeByRapidJson(benchmark::State& state)
{
    const std::vector<float> ranges = noisyRanges();
    measure(state, [&ranges] {
        rapidjson::StringBuffer text;
        rapidjson::Writer<rapidjson::StringBuffer> writer(text);
        writer.StartObject();
        writer.Key("header");
        writer.StartObject();
        writer.Key("seq");
        writer.Int64(123456);
        writer.Key("stamp");
        writer.StartObject();
        writer.Key("secs");
        writer.Int64(1234);
        writer.Key("nsecs");
        writer.Int64(567000000);
        writer.EndObject();
        writer.Key("frame_id");
        writer.String("laser");
        writer.EndObject();
        writer.Key("range_min");
        writer.Double(0.02F);
        writer.Key("range_max");
        writer.Double(5.6F);
        writer.Key("ranges");
        writer.StartArray();
        for (const float range : ranges)
            writer.Double(range);
        writer.EndArray();
        writer.EndObject();
        benchmark::DoNotOptimize(text.GetString());
    });
}

} // namespace

void addRapidJson(Ratios& ratios)
{
    benchmark::RegisterBenchmark("json: a scan, RapidJSON", writeByRapidJson);
    ratios.compare("json: a scan", "json: a scan, RapidJSON", 1.5);
}
