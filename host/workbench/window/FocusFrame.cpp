// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/window/FocusFrame.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QPainter>

namespace host::workbench::window {

namespace {

constexpr int thickness = 2;

/// Lies over its parent and lets everything through.
class Ring : public QWidget
{
public:
    explicit Ring(QWidget& framed) : QWidget(&framed)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        framed.installEventFilter(this);
        setGeometry(framed.rect());
        show();
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Resize)
            setGeometry(static_cast<QWidget*>(watched)->rect());
        return false;
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setPen(
            QPen(palette().highlight(), thickness, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(
            rect().adjusted(thickness / 2, thickness / 2, -thickness / 2, -thickness / 2));
    }
};

} // namespace

FocusFrame::FocusFrame(QWidget& window) : QObject(&window), m_window(window)
{
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget*, QWidget* focus) { follow(focus); });
}

void FocusFrame::follow(QWidget* focus)
{
    delete m_ring;
    if (qobject_cast<QAbstractScrollArea*>(focus) && m_window.isAncestorOf(focus))
        m_ring = new Ring(*focus);
}

} // namespace host::workbench::window
