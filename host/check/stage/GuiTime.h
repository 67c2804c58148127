// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_GUITIME_H
#define HOST_CHECK_STAGE_GUITIME_H

#include <QEvent>
#include <QString>

#include <functional>

class QObject;

namespace host::check::stage {

/// How long a plugin keeps the GUI thread to itself: the longest call from its host, or event,
/// while this lives. Time in which the machine was busy with other programs does not count. One at
/// a time.
class GuiTime
{
public:
    GuiTime();
    GuiTime(const GuiTime&) = delete;
    GuiTime& operator=(const GuiTime&) = delete;
    ~GuiTime();

    /// What a call is, in words: asked for only where it is the longest.
    using Words = std::function<QString()>;

    void measure(const Words& words, const std::function<void()>& call);

    /// The longest one; of events within events the one that took the time. Empty where there was
    /// none.
    const QString& words() const { return m_words; }
    qint64 milliseconds() const;

    /// For the application: does @p deliver, and counts it where one lives.
    static bool measureEvent(const QObject& receiver, QEvent::Type type,
                             const std::function<bool()>& deliver);
    /// As in the documentation of Qt: "Paint".
    static QString nameOf(QEvent::Type type);

private:
    /// In which this thread could have run, or waited for something of its own; in ns.
    qint64 now() const;
    void note(qint64 nanoseconds, const Words& words);

    int m_statistics;     // of the thread: a descriptor, -1 where the system has none
    qint64 m_longest = 0; // ns
    qint64 m_named = 0;   // of what the words are about
    QString m_words;
};

} // namespace host::check::stage

#endif
