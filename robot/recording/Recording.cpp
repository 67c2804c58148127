// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/recording/Recording.h"

#include "robot/recording/CarmenLog.h"
#include "robot/recording/ScanTable.h"

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <utility>

namespace robot::recording {

namespace {

struct Format
{
    bool (*isLine)(std::string_view firstToken);
    std::optional<simulation::LaserScan> (*scan)(const Tokens& tokens, QString* reason);
};

constexpr Format formats[] = {
    {CarmenLog::isLine, CarmenLog::scan},
    {ScanTable::isLine, ScanTable::scan},
};

const Format* recognize(std::string_view firstToken)
{
    for (const Format& format : formats) {
        if (format.isLine(firstToken))
            return &format;
    }
    return nullptr;
}

qint64 memoryOf(const simulation::LaserScan& scan)
{
    const size_t bytes = sizeof(scan) + scan.ranges.capacity() * sizeof(float);
    return static_cast<qint64>(bytes);
}

// What was read fills the buffer and its line goes on.
bool isPart(std::string_view line, const Recording::Limits& limits)
{
    return static_cast<qint64>(line.size()) > limits.lineLength && line.back() != '\n';
}

void setError(QString* error, const QString& text)
{
    if (error)
        *error = text;
}

} // namespace

std::optional<Recording> Recording::read(const QString& file, QString* error)
{
    return read(file, Limits(), error);
}

std::optional<Recording> Recording::read(const QString& file, const Limits& limits, QString* error)
{
    QFile device(file);
    std::optional<Recording> recording;
    if (device.open(QIODevice::ReadOnly))
        recording = read(device, file, limits, error);
    if (device.error() != QFileDevice::NoError) {
        setError(error, tr("The recording %1 cannot be read: %2.").arg(file, device.errorString()));
        return std::nullopt;
    }
    return recording;
}

std::optional<Recording> Recording::read(QIODevice& device, const QString& name,
                                         const Limits& limits, QString* error)
{
    Recording recording;
    const Format* format = nullptr;
    qint64 bytes = 0;
    qint64 memory = 0;
    const auto report = [&](qint64 lineNumber, const QString& reason) {
        if (recording.badLines++ < maximumProblems)
            recording.problems.append(
                QStringLiteral("%1:%2: %3").arg(name, QString::number(lineNumber), reason));
    };

    QByteArray buffer(static_cast<int>(limits.lineLength) + 2, '\0');
    const auto readLine = [&] {
        const qint64 size = std::max<qint64>(0, device.readLine(buffer.data(), buffer.size()));
        bytes += size;
        return std::string_view(buffer.constData(), static_cast<size_t>(size));
    };
    for (qint64 lineNumber = 1;; ++lineNumber) {
        const std::string_view line = readLine();
        if (line.empty())
            break;
        const bool isTooLong = isPart(line, limits);
        for (std::string_view part = line; isPart(part, limits) && bytes <= limits.fileSize;)
            part = readLine();
        if (bytes > limits.fileSize) {
            setError(error, tr("The recording %1 is larger than %2 bytes. Split it.")
                                .arg(name, QString::number(limits.fileSize)));
            return std::nullopt;
        }
        if (isTooLong) {
            report(lineNumber, tr("the line is longer than %1 bytes").arg(limits.lineLength));
            continue;
        }

        const Tokens tokens = splitLine(line);
        if (tokens.empty() || tokens.front().front() == '#')
            continue;
        if (!format)
            format = recognize(tokens.front());
        if (!format || !format->isLine(tokens.front())) {
            report(lineNumber, tr("the line begins with %1, which is neither a CARMEN message nor "
                                  "a time in microseconds")
                                   .arg(quoted(tokens.front())));
            continue;
        }
        QString reason;
        std::optional<simulation::LaserScan> scan = format->scan(tokens, &reason);
        if (!reason.isEmpty())
            report(lineNumber, reason);
        if (!scan)
            continue;
        memory += memoryOf(*scan);
        if (memory > limits.memory) {
            setError(
                error,
                tr("The scans of the recording %1 need more than %2 bytes of memory. Split it.")
                    .arg(name, QString::number(limits.memory)));
            return std::nullopt;
        }
        recording.scans.push_back(*std::move(scan));
    }

    if (recording.scans.empty()) {
        const QString why = recording.problems.isEmpty()
                                ? tr("It must be a CARMEN log with FLASER or ROBOTLASER1 lines, or "
                                     "a table with 683 ranges per line.")
                                : tr("Its first invalid line: %1.").arg(recording.problems.first());
        setError(error, tr("The recording %1 contains no laser scan. %2").arg(name, why));
        return std::nullopt;
    }
    return recording;
}

} // namespace robot::recording
