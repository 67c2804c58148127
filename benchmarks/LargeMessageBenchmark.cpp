// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Benchmarks.h"
#include "Ratios.h"
#include "tests/host/workbench/robotview/RobotMessages.h"
#include "tests/host/workbench/robotview/Tell.h"

#include "host/device/readers/JointTable.h"
#include "host/workbench/robotview/WorldView.h"
#include "rosbridge/protocol/Codec.h"

#include <QCborArray>
#include <QImage>

// Messages far beyond those of any robot, beside the decoding of their text, which comes first.

using namespace host::workbench::robotview;

namespace {

const int frameCount = 990;
const int rangeCount = 1000 * 1000;
const int jointCount = 100 * 1000;
const QSize size(600, 500);

/// The robot and its laser at the end of a long chain that moves.
QCborMap chain()
{
    QCborArray transforms;
    QString parent = QStringLiteral("odom");
    for (int i = 1; i <= frameCount; ++i) {
        const QString child =
            i < frameCount ? QStringLiteral("frame_%1").arg(i) : QStringLiteral("base_link");
        transforms.append(message::transform(parent, child, 0.001, 0, 0.0001));
        parent = child;
    }
    return {{QStringLiteral("transforms"), transforms}};
}

QCborMap sweep()
{
    QVector<float> ranges(rangeCount);
    for (int i = 0; i < rangeCount; ++i)
        ranges[i] = 2.0F + static_cast<float>(i % 1000) * 0.001F;
    QCborMap sweep = message::scan("base_link", -3, 6.0 / rangeCount, {});
    sweep[QLatin1String("ranges")] = rosbridge::protocol::typedArray(ranges);
    return sweep;
}

QCborMap joints()
{
    QCborArray names;
    QCborArray positions;
    for (int i = 0; i < jointCount; ++i) {
        names.append(QStringLiteral("joint_%1").arg(i));
        positions.append(0.001 * i);
    }
    return {{QStringLiteral("name"), names}, {QStringLiteral("position"), positions}};
}

RobotState connected()
{
    RobotState robot;
    robot.begin();
    return robot;
}

/// The robot sends 100 of them a second.
void readChain(benchmark::State& state)
{
    RobotState robot = connected();
    const QCborMap message = chain();
    measure(state, [&] { robot.read(RobotState::Transforms, message, RobotState::Clock::now()); });
    if (!robot.robotPlace())
        state.SkipWithError("the robot has no place");
}

void paintChain(benchmark::State& state)
{
    RobotState robot = connected();
    robot.read(RobotState::Transforms, chain(), RobotState::Clock::now());
    tell(robot, RobotState::Scan, message::scan("base_link", 0, 0.1, {1, 2, 3}),
         RobotState::Clock::now());
    WorldView view(robot);
    view.resize(size);
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    measure(state, [&] { view.render(&picture); });
}

void readSweep(benchmark::State& state)
{
    RobotState robot = connected();
    robot.read(RobotState::Odometry, message::odometry("odom", "base_link", 0, 0, 0),
               RobotState::Clock::now());
    const QCborMap message = sweep();
    measure(state, [&] { tell(robot, RobotState::Scan, message, RobotState::Clock::now()); });
}

void paintSweep(benchmark::State& state)
{
    RobotState robot = connected();
    robot.read(RobotState::Odometry, message::odometry("odom", "base_link", 0, 0, 0),
               RobotState::Clock::now());
    tell(robot, RobotState::Scan, sweep(), RobotState::Clock::now());
    WorldView view(robot);
    view.resize(size);
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    measure(state, [&] { view.render(&picture); });
}

/// For the dock "Robot".
void showJoints(benchmark::State& state)
{
    RobotState robot = connected();
    const QCborMap message = joints();
    measure(state, [&] { robot.read(RobotState::JointStates, message, RobotState::Clock::now()); });
}

/// For the device.
void readJoints(benchmark::State& state)
{
    using namespace host::device::readers;
    const JointTable table;
    const QCborMap message = joints();
    measure(state, [&] {
        QString fault;
        if (const auto positions = JointPositions::readPresent(message, &fault))
            benchmark::DoNotOptimize(table.axes(*positions, &fault));
    });
}

/// @p make makes the message.
void decode(benchmark::State& state, QCborMap (*make)())
{
    const QCborMap message{{QStringLiteral("op"), QStringLiteral("publish")},
                           {QStringLiteral("msg"), make()}};
    const QByteArray bytes = rosbridge::protocol::encodeText(message);
    measure(state,
            [&] { benchmark::DoNotOptimize(rosbridge::protocol::decodeText(bytes, nullptr)); });
}

} // namespace

void addLargeMessages(Ratios& ratios)
{
    benchmark::RegisterBenchmark("large: 990 frames, read", readChain);
    benchmark::RegisterBenchmark("large: 990 frames, repaint", paintChain);
    benchmark::RegisterBenchmark("large: 990 frames, decoded", decode, chain);
    benchmark::RegisterBenchmark("large: 1,000,000 ranges, read", readSweep);
    benchmark::RegisterBenchmark("large: 1,000,000 ranges, repaint", paintSweep);
    benchmark::RegisterBenchmark("large: 1,000,000 ranges, decoded", decode, sweep);
    benchmark::RegisterBenchmark("large: 100,000 joints, read by the device", readJoints);
    benchmark::RegisterBenchmark("large: 100,000 joints, read by the dock", showJoints);
    benchmark::RegisterBenchmark("large: 100,000 joints, decoded", decode, joints);
    ratios.compare("large: 990 frames, read", "large: 990 frames, decoded", 0);
    ratios.compare("large: 990 frames, repaint", "large: 990 frames, decoded", 0);
    ratios.compare("large: 1,000,000 ranges, read", "large: 1,000,000 ranges, decoded", 0);
    ratios.compare("large: 1,000,000 ranges, repaint", "large: 1,000,000 ranges, decoded", 0);
    ratios.compare("large: 100,000 joints, read by the device", "large: 100,000 joints, decoded",
                   0);
    ratios.compare("large: 100,000 joints, read by the dock", "large: 100,000 joints, decoded", 0);
}
