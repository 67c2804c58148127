// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Benchmarks.h"
#include "Ratios.h"
#include "Scan.h"

#include <ros/serialization.h>
#include <sensor_msgs/LaserScan.h>

#include <vector>

namespace {

sensor_msgs::LaserScan rosScan()
{
    const olm::core::LaserScanMessage scan = exampleScan();
    sensor_msgs::LaserScan message;
    message.header.seq = scan.sequenceNumber;
    message.header.stamp.sec = scan.timeStamp;
    message.header.frame_id = scan.frameId;
    message.angle_min = scan.minimumAngle;
    message.angle_max = scan.maximumAngle;
    message.angle_increment = scan.angleIncrement;
    message.time_increment = scan.timeIncrement;
    message.scan_time = scan.scanTime;
    message.range_min = scan.minimumRange;
    message.range_max = scan.maximumRange;
    message.ranges.assign(scan.ranges.data(), scan.ranges.data() + scan.ranges.size());
    return message;
}

void serialize(benchmark::State& state)
{
    namespace serialization = ros::serialization;
    const sensor_msgs::LaserScan message = rosScan();
    std::vector<std::uint8_t> buffer(serialization::serializationLength(message));
    const sensor_msgs::LaserScan* const seen = opaque(&message);
    measure(state, [&] {
        const std::uint32_t size = serialization::serializationLength(*seen);
        if (size <= buffer.size()) {
            serialization::OStream stream(buffer.data(), size);
            serialization::serialize(stream, *seen);
        }
        benchmark::DoNotOptimize(buffer.data());
        benchmark::ClobberMemory();
    });
}

} // namespace

void addRos1(Ratios& ratios)
{
    benchmark::RegisterBenchmark("scan: ROS 1 serializer", serialize);
    ratios.compare("scan: encode", "scan: ROS 1 serializer", 1);
}
