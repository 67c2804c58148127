// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_MEANWHILE_H
#define QUANDREL_MEANWHILE_H

#include <QApplication>
#include <QElapsedTimer>
#include <QMenu>
#include <QTimer>
#include <QtTest>

#include <functional>

/// What a test does while a menu or dialog runs an event loop of its own: the step is tried
/// again and again until it returns true. After the deadline it gives up and closes what is
/// open, so that the test fails instead of hanging.
class Meanwhile
{
public:
    explicit Meanwhile(std::function<bool()> step) : m_step(std::move(step))
    {
        m_started.start();
        QObject::connect(&m_timer, &QTimer::timeout, [this] { tick(); });
        m_timer.start(1);
    }

    bool isDone() const { return m_done; }

private:
    void tick()
    {
        if (m_step()) {
            m_done = true;
            m_timer.stop();
        } else if (m_started.hasExpired(20000)) {
            m_timer.stop();
            if (QWidget* const popup = QApplication::activePopupWidget())
                popup->close();
            if (QWidget* const modal = QApplication::activeModalWidget())
                modal->close();
        }
    }

    const std::function<bool()> m_step;
    QElapsedTimer m_started;
    QTimer m_timer;
    bool m_done = false;
};

/// The menu that is open, or null.
inline QMenu* openMenu()
{
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

/// The dialog that is open, or null.
template <class Dialog>
Dialog* openDialog()
{
    auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    return dialog && dialog->isVisible() ? dialog : nullptr;
}

/// The texts of the entries, a "-" for each separator.
inline QStringList entriesOf(const QMenu& menu)
{
    QStringList entries;
    for (const QAction* action : menu.actions())
        entries.append(action->isSeparator() ? QString("-") : action->text());
    return entries;
}

/// Clicks the entry; false where there is none.
inline bool choose(QMenu& menu, const QString& entry)
{
    for (QAction* action : menu.actions()) {
        if (action->text() == entry) {
            QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier,
                              menu.actionGeometry(action).center());
            return true;
        }
    }
    return false;
}

#endif
