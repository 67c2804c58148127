// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_FOCUSFRAME_H
#define HOST_WORKBENCH_WINDOW_FOCUSFRAME_H

#include <QObject>
#include <QPointer>

class QWidget;

namespace host::workbench::window {

/// For as long as it lives, shows the focus on what does not show it by itself: texts that cannot
/// be edited, and tables, which are empty at times.
class FocusFrame : public QObject
{
    Q_OBJECT

public:
    /// In @p window only, which owns it.
    explicit FocusFrame(QWidget& window);

private:
    void follow(QWidget* focus);

    QWidget& m_window;
    QPointer<QWidget> m_ring; // the child of what has the focus, and goes along with it
};

} // namespace host::workbench::window

#endif
