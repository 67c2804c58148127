// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef OLM_QT_LOG_FEED_H
#define OLM_QT_LOG_FEED_H

#include <QObject>
#include <QStringList>
#include <QTextCursor>
#include <QTimer>

class QTextDocument;

namespace olm {
namespace qt {
namespace log {

/// Puts lines into a log so that no flood of them keeps the window from answering. What layouts
/// and views hear of, they hear at most 25 times a second. Lines are in the document at once,
/// readable for whoever asks, as long as there are no more of them than a window can show; of more,
/// the newest are shown and the others counted.
class Feed : public QObject
{
    Q_OBJECT

public:
    /// A child of @p document, which is to have nothing else that writes to it.
    explicit Feed(QTextDocument& document);

    /// Appends the lines of @p text, long ones cut. @p first: the first of them takes the empty
    /// line that a new document has.
    void add(const QString& text, bool first);
    /// Forgets what was not shown. To be called before the document is cleared.
    void clear();

private:
    void insert(const QString& line, bool first);
    void endUpdate();
    /// Takes the lines of @p text from @p position on; the oldest go when there are too many.
    void wait(const QString& text, qsizetype position);
    void showWaiting();
    void removeOldest();
    void tick();

    QTextDocument& m_document;
    QTextCursor m_update; ///< in an edit block while the layout is not to know of its lines
    bool m_isUpdating = false;
    int m_room;
    QStringList m_waiting;
    qint64 m_leftOut = 0; ///< lines before the waiting ones
    QTimer m_timer{this};
};

} // namespace log
} // namespace qt
} // namespace olm

#endif
