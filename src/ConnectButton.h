// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef CONNECTBUTTON_H
#define CONNECTBUTTON_H

#include <QMap>
#include <QPixmap>
#include <QPointer>
#include <QToolButton>

class Quandrel;

/// Shows the connection state as icon and tool tip, and asks its owner to connect or disconnect
/// when it is clicked. It shows only states that the owner gives it and remembers none.
class ConnectButton : public QToolButton
{
    Q_OBJECT

public:
    /// A child of @p owner; usable, though idle, after the owner is gone.
    explicit ConnectButton(Quandrel* owner);

    /// -1 not connected; 0, 1, 2 the frames of connecting; 3 connected; 4 connected, passive.
    /// Any other state has no icon.
    void setConnectionState(int state);
    /// Sets the tool tip again, in the current language.
    void translate(int state);
    /// The tool tip of states -1 to 3; every other state leaves it as it is.
    void updateToolTip(int state);

public Q_SLOTS:
    void on_clicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QPointer<Quandrel> m_owner;
    QMap<int, QPixmap> m_icons;
};

#endif
