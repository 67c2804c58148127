// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "olm/qt/log/Log.h"

#include "Feed.h"

namespace olm {
namespace qt {
namespace log {

namespace {

Feed& feedOf(const Log& log)
{
    return *log.findChild<Feed*>(QString(), Qt::FindDirectChildrenOnly);
}

} // namespace

Log::Log() : m_started(false)
{
    setUndoRedoEnabled(false);
    new Feed(*this);
}

void Log::postLog(const QString& text, int)
{
    feedOf(*this).add(text, !m_started);
    m_started = true;
}

void Log::postEmptyLine()
{
    postLog(QString(), 0);
}

void Log::clear()
{
    feedOf(*this).clear();
    QTextDocument::clear();
    m_started = false;
}

} // namespace log
} // namespace qt
} // namespace olm
