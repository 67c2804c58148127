#include "olm/qt/log/Log.h"

#include <QTextCursor>

namespace olm {
namespace qt {
namespace log {

namespace {

// About a day of a talkative device, and a few megabytes.
const int maximumLines = 5000;

} // namespace

Log::Log() : m_started(false)
{
    setUndoRedoEnabled(false);
    setMaximumBlockCount(maximumLines);
}

void Log::postLog(const QString& text, int)
{
    QTextCursor cursor(this);
    cursor.movePosition(QTextCursor::End);
    // A new document already holds one empty line, which the first text takes.
    if (m_started)
        cursor.insertBlock();
    cursor.insertText(text);
    m_started = true;
}

void Log::postEmptyLine()
{
    postLog(QString(), 0);
}

void Log::clear()
{
    QTextDocument::clear();
    m_started = false;
}

} // namespace log
} // namespace qt
} // namespace olm
