// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_DEVICEAREA_H
#define HOST_WORKBENCH_WINDOW_DEVICEAREA_H

#include <QScrollArea>

class QSplitter;

namespace host::workbench::window {

/// Devices side by side, to be scrolled to where there are more than have room. One of them always
/// has: the window gets no smaller than that.
class DeviceArea : public QScrollArea
{
    Q_OBJECT

public:
    DeviceArea();

    /// Takes ownership.
    void add(QWidget* view);

    /// How the room is divided, for the next start.
    QByteArray saveState() const;
    void restoreState(const QByteArray& state);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QSplitter* m_splitter;
};

} // namespace host::workbench::window

#endif
