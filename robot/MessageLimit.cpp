// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/MessageLimit.h"

#include <QElapsedTimer>
#include <QString>

#include <mutex>

namespace robot {

namespace {

constexpr int longest = 2000; // characters of one message

/// What is kept free for the lines about what is left out.
constexpr qint64 reserve = 1000;

std::mutex s_mutex; // messages may come from any thread
QtMessageHandler s_previous = nullptr;
std::chrono::milliseconds s_quiet;
QElapsedTimer s_newest; // since the newest message, invalid before the first
qint64 s_bytes = 0;     // written in this flood
qint64 s_leftOut = 0;

void write(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    s_previous(type, context, message);
    s_bytes += qFormatLogMessage(type, context, message).toLocal8Bit().size() + 1;
}

void tellCount()
{
    if (s_leftOut > 0)
        write(QtWarningMsg, {}, QStringLiteral("%1 messages were left out.").arg(s_leftOut));
    s_leftOut = 0;
}

void handle(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    if (s_newest.isValid() && s_newest.hasExpired(s_quiet.count())) {
        tellCount();
        s_bytes = 0;
    }
    s_newest.start();
    if (s_leftOut == 0 && s_bytes <= MessageLimit::mostBytes - reserve - qint64{4} * longest) {
        const QString cut =
            message.size() <= longest ? message : message.left(longest) + QStringLiteral(" …");
        write(type, context, cut);
    } else if (type == QtFatalMsg) {
        s_previous(type, context, message); // which ends the program
    } else if (s_leftOut++ == 0) {
        write(QtWarningMsg, {},
              QStringLiteral("Too many messages: from here on they are counted only."));
    }
}

} // namespace

MessageLimit::MessageLimit(std::chrono::milliseconds quiet)
{
    s_quiet = quiet;
    s_newest.invalidate();
    s_bytes = 0;
    s_leftOut = 0;
    s_previous = qInstallMessageHandler(handle);
}

MessageLimit::~MessageLimit()
{
    qInstallMessageHandler(s_previous);
    tellCount();
}

} // namespace robot
