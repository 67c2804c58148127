// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Feed.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace olm {
namespace qt {
namespace log {

namespace {

const int period = 40; // ms

// What can be shown is counted in short lines: as much work as one is each further piece of a long
// one. There is room for what a device says at its start, and then for what nobody could read.
const int mostRoom = 1000;
const int roomOfAPeriod = 20;
const int mostWaiting = 20;
const int charactersOfAShortLine = 100;

const int longestLine = 2000;
const int keptOfALongLine = 1900;

// About a day of a talkative device, and a few megabytes.
const int keptLines = 5000;
const int keptCharacters = 500000;
// When lines go, the view lays out all others again: that is for many lines at once.
const int linesThatGoTogether = 500;
const int charactersThatGoTogether = 50000;

int roomFor(const QString& line)
{
    return 1 + static_cast<int>(line.size()) / charactersOfAShortLine;
}

// All that a document would begin a new line at.
QString withLineFeeds(QString text)
{
    if (text.contains('\r'))
        text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    for (const QChar end :
         {QChar('\r'), QChar(QChar::ParagraphSeparator), QChar(0xfdd0), QChar(0xfdd1)})
        text.replace(end, QChar('\n'));
    return text;
}

QString shortened(const QString& text, qsizetype from, qsizetype to)
{
    if (to - from <= longestLine)
        return text.mid(from, to - from);
    return text.mid(from, keptOfALongLine) +
           Feed::tr("… %1 more characters").arg(to - from - keptOfALongLine);
}

} // namespace

Feed::Feed(QTextDocument& document)
    : QObject(&document),
      m_document(document),
      m_update(&document),
      m_room(mostRoom)
{
    m_timer.setInterval(period);
    connect(&m_timer, &QTimer::timeout, this, &Feed::tick);
}

void Feed::add(const QString& text, bool first)
{
    const QString lines = withLineFeeds(text);
    qsizetype from = 0;
    while (from <= lines.size() && m_room > 0 && m_waiting.isEmpty()) {
        const qsizetype found = lines.indexOf('\n', from);
        const qsizetype end = found < 0 ? lines.size() : found;
        insert(shortened(lines, from, end), first);
        first = false;
        from = end + 1;
    }
    if (from <= lines.size())
        wait(lines, from);
    if (!m_timer.isActive()) {
        endUpdate();
        m_timer.start();
    }
}

void Feed::clear()
{
    endUpdate();
    m_waiting.clear();
    m_leftOut = 0;
    m_room = mostRoom;
}

void Feed::endUpdate()
{
    if (m_isUpdating)
        m_update.endEditBlock();
    m_isUpdating = false;
}

void Feed::insert(const QString& line, bool first)
{
    if (!m_isUpdating)
        m_update.beginEditBlock();
    m_isUpdating = true;
    m_update.movePosition(QTextCursor::End);
    if (!first)
        m_update.insertBlock();
    m_update.insertText(line);
    m_room -= roomFor(line);
}

void Feed::wait(const QString& text, qsizetype position)
{
    // From the end, since there may be any number of them.
    QStringList newest;
    qsizetype end = text.size();
    while (end >= position && newest.size() < mostWaiting) {
        const qsizetype begin = end == 0 ? 0 : text.lastIndexOf('\n', end - 1) + 1;
        newest.prepend(shortened(text, std::max(begin, position), end));
        end = std::max(begin, position) - 1;
    }
    if (end >= position)
        m_leftOut += std::count(text.cbegin() + position, text.cbegin() + end, QChar('\n')) + 1;
    m_waiting += newest;
    while (m_waiting.size() > mostWaiting) {
        m_waiting.removeFirst();
        ++m_leftOut;
    }
}

void Feed::showWaiting()
{
    int room = m_room;
    qsizetype first = m_waiting.size();
    while (first > 0 && room > 0)
        room -= roomFor(m_waiting.at(--first));
    m_leftOut += first;
    if (m_leftOut == 1)
        insert(tr("… 1 line left out"), false);
    else if (m_leftOut > 1)
        insert(tr("… %1 lines left out").arg(m_leftOut), false);
    m_leftOut = 0;
    for (; first < m_waiting.size(); ++first)
        insert(m_waiting.at(first), false);
    m_waiting.clear();
}

void Feed::removeOldest()
{
    if (m_document.blockCount() < keptLines + linesThatGoTogether &&
        m_document.characterCount() < keptCharacters + charactersThatGoTogether)
        return;
    QTextBlock first = m_document.firstBlock();
    int lines = m_document.blockCount();
    while (lines > keptLines || m_document.characterCount() - first.position() > keptCharacters) {
        first = first.next();
        --lines;
    }
    QTextCursor cursor(&m_document);
    cursor.setPosition(first.position(), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

void Feed::tick()
{
    const bool isQuiet = !m_isUpdating && m_waiting.isEmpty() && m_room == mostRoom;
    m_room = std::min(mostRoom, m_room + roomOfAPeriod);
    if (m_room > 0 && !m_waiting.isEmpty())
        showWaiting();
    endUpdate();
    removeOldest();
    if (isQuiet)
        m_timer.stop();
}

} // namespace log
} // namespace qt
} // namespace olm
