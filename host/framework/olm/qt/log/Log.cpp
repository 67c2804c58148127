#include "olm/qt/log/Log.h"

#include <QTextCursor>

namespace olm {
namespace qt {
namespace log {

namespace {

// About a day of a talkative device, and a few megabytes.
const int keptLines = 5000;
// When lines go, the view lays out all others again: that is for many lines at once.
const int linesThatGoTogether = 500;

void removeFirstLines(QTextDocument& document, int count)
{
    QTextCursor cursor(&document);
    cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor, count);
    cursor.removeSelectedText();
}

} // namespace

Log::Log() : m_started(false)
{
    setUndoRedoEnabled(false);
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
    if (blockCount() >= keptLines + linesThatGoTogether)
        removeFirstLines(*this, blockCount() - keptLines);
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
