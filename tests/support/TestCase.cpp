// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include <QMutex>
#include <QMutexLocker>
#include <QStringList>
#include <QtTest>

#include <utility>

namespace {

QMutex s_mutex; // warnings may come from any thread
QList<QRegularExpression> s_expected;
QStringList s_unexpected;
QtMessageHandler s_previous = nullptr;

bool isExpected(const QString& text)
{
    // The screenless platform says so of everything a window system does for a window.
    if (text.startsWith("This plugin does not support "))
        return true;
    for (const QRegularExpression& pattern : std::as_const(s_expected)) {
        if (pattern.match(text).hasMatch())
            return true;
    }
    return false;
}

void record(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        const QMutexLocker locker(&s_mutex);
        if (!isExpected(text))
            s_unexpected.append(text);
    }
    s_previous(type, context, text);
}

} // namespace

void TestCase::expectWarning(const QString& pattern)
{
    const QMutexLocker locker(&s_mutex);
    s_expected.append(QRegularExpression(pattern));
}

void TestCase::init()
{
    const QMutexLocker locker(&s_mutex);
    s_expected.clear();
    s_unexpected.clear();
    s_previous = qInstallMessageHandler(record);
}

void TestCase::cleanup()
{
    qInstallMessageHandler(s_previous);
    const QMutexLocker locker(&s_mutex);
    if (!s_unexpected.isEmpty())
        QFAIL(qPrintable("unexpected warning: " + s_unexpected.join(" | ")));
}
