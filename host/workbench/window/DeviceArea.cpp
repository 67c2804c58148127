// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/window/DeviceArea.h"

#include <QEvent>
#include <QScrollBar>
#include <QSplitter>

namespace host::workbench::window {

DeviceArea::DeviceArea() : m_splitter(new QSplitter)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    m_splitter->setChildrenCollapsible(false);
    setWidget(m_splitter);
}

void DeviceArea::add(QWidget* view)
{
    m_splitter->addWidget(view);
    updateGeometry();
}

QByteArray DeviceArea::saveState() const
{
    return m_splitter->saveState();
}

void DeviceArea::restoreState(const QByteArray& state)
{
    m_splitter->restoreState(state);
}

QSize DeviceArea::minimumSizeHint() const
{
    QSize size = m_splitter->minimumSizeHint();
    if (m_splitter->count() > 1) {
        size.setHeight(size.height() + horizontalScrollBar()->sizeHint().height());
        size.setWidth(0);
        for (int i = 0; i < m_splitter->count(); ++i)
            size.setWidth(qMax(size.width(), m_splitter->widget(i)->minimumSizeHint().width()));
    }
    return size;
}

QSize DeviceArea::sizeHint() const
{
    return m_splitter->sizeHint();
}

bool DeviceArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_splitter && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

} // namespace host::workbench::window
