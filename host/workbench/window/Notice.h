// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_NOTICE_H
#define HOST_WORKBENCH_WINDOW_NOTICE_H

#include "host/workbench/window/Paced.h"

#include <QFrame>
#include <QStringList>

class QLabel;
class QToolButton;

namespace host::workbench::window {

/// A strip at the window's top for what a person should know and may then put away: unlike the
/// status it stays until it is closed. Hidden until it has something to say.
class Notice : public QFrame
{
    Q_OBJECT

public:
    Notice();

    /// Below what it says already, if it was not closed since. The newest are in sight, the others
    /// are counted.
    void add(const QString& words);

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void showWords();

    QStringList m_newest;
    int m_leftOut = 0; // before these
    Paced m_shown;
    QLabel* m_words;
    QToolButton* m_close;
};

} // namespace host::workbench::window

#endif
