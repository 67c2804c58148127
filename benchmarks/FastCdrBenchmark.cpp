// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Benchmarks.h"
#include "Ratios.h"
#include "Scan.h"

#include <fastcdr/Cdr.h>
#include <fastcdr/FastBuffer.h>

#include <vector>

namespace {

/// The fields in the types that a generated message has.
struct CdrScan
{
    std::uint32_t sequenceNumber;
    std::uint32_t timeStamp;
    std::string frameId;
    float geometry[7];
    std::vector<float> ranges;
    std::vector<float> intensities;
};

CdrScan cdrScan()
{
    const olm::core::LaserScanMessage scan = exampleScan();
    return {scan.sequenceNumber,
            scan.timeStamp,
            scan.frameId,
            {scan.minimumAngle, scan.maximumAngle, scan.angleIncrement, scan.timeIncrement,
             scan.scanTime, scan.minimumRange, scan.maximumRange},
            std::vector<float>(scan.ranges.data(), scan.ranges.data() + scan.ranges.size()),
            {}};
}

void serialize(benchmark::State& state)
{
    const CdrScan scan = cdrScan();
    const CdrScan* const seen = opaque(&scan);
    std::vector<char> buffer(4096); // its own streams check the room as they go
    measure(state, [&] {
        eprosima::fastcdr::FastBuffer fastBuffer(buffer.data(), buffer.size());
        eprosima::fastcdr::Cdr cdr(fastBuffer);
        cdr << seen->sequenceNumber << seen->timeStamp << seen->frameId;
        for (const float number : seen->geometry)
            cdr << number;
        cdr << seen->ranges << seen->intensities;
        benchmark::DoNotOptimize(buffer.data());
        benchmark::ClobberMemory();
    });
}

} // namespace

void addFastCdr(Ratios& ratios)
{
    benchmark::RegisterBenchmark("scan: Fast-CDR", serialize);
    ratios.compare("scan: encode", "scan: Fast-CDR", 1);
}
