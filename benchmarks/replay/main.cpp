// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "benchmarks/Row.h"
#include "benchmarks/Seconds.h"
#include "benchmarks/fleet/Fleet.h"
#include "host/device/replay/Replay.h"
#include "host/workbench/replay/ReplayView.h"
#include "rosbridge/bag/BagReader.h"
#include "rosbridge/bag/BagWriter.h"
#include "rosbridge/serialization/MessageDefinition.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <utility>
#include <vector>

namespace {

using namespace std::chrono_literals;

using host::device::replay::Conversation;
using host::device::replay::Replay;
using rosbridge::bag::BagReader;
using rosbridge::bag::BagWriter;
using rosbridge::serialization::MessageDefinition;

constexpr auto hour = 1h;
constexpr int rounds = 5;
constexpr int jumps = 200;
constexpr quint32 seed = 1;

double milliseconds(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// Everything that is followed, with all docks in sight. False, with a warning, if it fails.
bool record(const QString& file, int seconds)
{
    Fleet fleet(1, Fleet::Docks::All);
    QString error;
    if (!fleet.connectAll() || !fleet.firstDevice().recorder().start(file, &error)) {
        qWarning("%s", qPrintable(error));
        return false;
    }
    QEventLoop loop;
    QTimer::singleShot(std::chrono::seconds(seconds), &loop, &QEventLoop::quit);
    loop.exec();
    fleet.firstDevice().recorder().stop();
    return true;
}

/// What a bag has, again and again until it is an hour.
bool lengthen(const QString& from, const QString& to)
{
    QString error;
    const auto reader = BagReader::open(from, &error);
    const auto writer = BagWriter::create(to, qint64{1} << 40, &error);
    if (!reader || !writer) {
        qWarning("%s", qPrintable(error));
        return false;
    }
    std::vector<int> topics;
    for (const BagReader::Topic& topic : reader->topics()) {
        const auto definition = MessageDefinition::parse(topic.type, topic.definition, &error);
        topics.push_back(writer->add({topic.name.toUtf8(), topic.type.toUtf8(),
                                      topic.definition.toUtf8(), definition->checksum()}));
    }
    const BagReader::Time length = reader->end() - reader->begin() + 10ms;
    for (BagReader::Time shift(0); shift < hour; shift += length) {
        reader->seek(reader->begin());
        if (shift > BagReader::Time(0))
            reader->advance(); // what the device was at the beginning
        for (; !reader->isAtEnd(); reader->advance()) {
            const auto bytes = reader->bytes(&error);
            if (!bytes || !writer->write(topics[reader->topic()], reader->time() + shift, *bytes)) {
                qWarning("%s", qPrintable(error + writer->error()));
                return false;
            }
        }
    }
    error = writer->finish();
    if (!error.isEmpty())
        qWarning("%s", qPrintable(error));
    return error.isEmpty();
}

/// Null, with a warning, where it cannot be opened.
std::unique_ptr<Conversation> open(const QString& file)
{
    QString error;
    auto conversation = Conversation::open(file, &error);
    if (!conversation)
        qWarning("%s", qPrintable(error));
    return conversation;
}

void measureOpening(const QString& file)
{
    std::vector<double> ours;
    std::vector<double> bare;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        const auto conversation = open(file);
        ours.push_back(milliseconds(timer));
        timer.start();
        const auto reader = BagReader::open(file, nullptr);
        bare.push_back(milliseconds(timer));
    }
    print(Row{"replay: open an hour", figure(median(ours), 0, "ms"), "its index read by rosbag",
              figure(median(bare), 0, "ms"), median(ours) / median(bare), "2000 ms"});
}

/// Until the window shows it.
double timeOf(const std::function<void()>& change)
{
    QElapsedTimer timer;
    timer.start();
    change();
    QCoreApplication::processEvents();
    return milliseconds(timer);
}

/// The plugin in its window, as a person sees it.
void measureJumps(std::unique_ptr<Conversation> conversation, const QString& file)
{
    host::workbench::plugin::PluginEnvironment environment;
    const host::loading::PluginLoader plugin(QStringLiteral(DEVICE_PLUGIN_FILE));
    Replay replay(std::move(conversation), environment);
    host::workbench::window::Window window(plugin, environment);
    window.add(new host::workbench::replay::ReplayView(plugin, replay, file));
    window.show();
    QCoreApplication::processEvents();

    QRandomGenerator random(seed);
    std::vector<double> times;
    for (int jump = 0; jump < jumps; ++jump) {
        const Replay::Time to(static_cast<Replay::Time::rep>(
            random.generateDouble() * static_cast<double>(replay.duration().count())));
        times.push_back(timeOf([&] { replay.jump(to); }));
    }
    std::vector<double> seconds;
    for (int round = 0; round < rounds; ++round) {
        const Replay::Time end = replay.position() + 1s;
        seconds.push_back(timeOf([&] {
            while (replay.position() < end)
                replay.step();
        }));
    }
    const std::string peer = "a second of it, played";
    const double longest = *std::max_element(times.begin(), times.end());
    const double second = median(seconds);
    print(Row{"replay: jump in an hour, median of 200", figure(median(times), 1, "ms"), peer,
              figure(second, 1, "ms"), median(times) / second, "100 ms"});
    print(Row{"replay: jump in an hour, longest of 200", figure(longest, 1, "ms"), peer,
              figure(second, 1, "ms"), longest / second, "100 ms"});
}

} // namespace

int main(int argc, char* argv[])
{
    keepTableClean();
    const QApplication application(argc, argv);
    const std::optional<int> seconds = secondsOf(application);
    if (!seconds)
        return 2;
    const QTemporaryDir folder;
    const QString recorded = folder.filePath("seconds.bag");
    const QString file = folder.filePath("hour.bag");
    if (!record(recorded, *seconds) || !lengthen(recorded, file))
        return 1;
    measureOpening(file);
    auto conversation = open(file);
    if (!conversation)
        return 1;
    measureJumps(std::move(conversation), file);
    print(Row{"replay: size of that hour",
              figure(static_cast<double>(QFileInfo(file).size()) / 1e6, 0, "MB"), "", "", 0, ""});
    return 0;
}
