// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Benchmarks.h"
#include "Ratios.h"
#include "Scan.h"

#include <cstring>
#include <vector>

// Every side asks for the size that its bytes take and writes them into the same kind of buffer,
// one that is there already.

namespace {

void encode(benchmark::State& state)
{
    const olm::core::LaserScanMessage scan = exampleScan();
    const olm::core::LaserScanMessage* const seen =
        opaque(&scan); // a caller does not know the final class
    std::vector<char> buffer(seen->encodedDataSize());
    measure(state, [&] {
        if (seen->encodedDataSize() <= buffer.size())
            seen->encode(buffer.data());
        benchmark::DoNotOptimize(buffer.data());
        benchmark::ClobberMemory();
    });
}

void copy(benchmark::State& state)
{
    const olm::core::LaserScanMessage scan = exampleScan();
    std::vector<char> bytes(scan.encodedDataSize());
    scan.encode(bytes.data());
    std::vector<char> buffer(bytes.size());
    measure(state, [&] {
        std::memcpy(buffer.data(), bytes.data(), bytes.size());
        benchmark::DoNotOptimize(buffer.data());
        benchmark::ClobberMemory();
    });
}

/// The measurements lie apart from the header, and in the buffer they stand on an odd address.
void copyInTwoParts(benchmark::State& state)
{
    const olm::core::LaserScanMessage scan = exampleScan();
    std::vector<char> bytes(scan.encodedDataSize());
    scan.encode(bytes.data());
    std::vector<char> buffer(bytes.size());
    const std::size_t rangesSize = scan.ranges.size() * sizeof(float);
    const std::size_t headerSize = opaque(bytes.size() - rangesSize);
    measure(state, [&] {
        std::memcpy(buffer.data(), bytes.data(), headerSize);
        std::memcpy(buffer.data() + headerSize, scan.ranges.data(), rangesSize);
        benchmark::DoNotOptimize(buffer.data());
        benchmark::ClobberMemory();
    });
}

} // namespace

void addLaserScanMessage(Ratios& ratios)
{
    benchmark::RegisterBenchmark("scan: encode", encode);
    benchmark::RegisterBenchmark("scan: memcpy", copy);
    benchmark::RegisterBenchmark("scan: memcpy in two parts", copyInTwoParts);
    ratios.compare("scan: encode", "scan: memcpy", 1.15);
    ratios.compare("scan: encode", "scan: memcpy in two parts", 0);
}
