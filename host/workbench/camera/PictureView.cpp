// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/camera/PictureView.h"

#include <QPainter>

namespace host::workbench::camera {

using namespace std::chrono_literals;

namespace {

constexpr int wordsMargin = 8; // pixels
constexpr qreal dimmed = 0.35;

} // namespace

PictureView::PictureView(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PictureView::setPicture(const QImage& picture, bool isDimmed, const QString& words)
{
    if (picture.cacheKey() == m_picture.cacheKey() && isDimmed == m_isDimmed && words == m_words)
        return;
    m_picture = picture;
    m_isDimmed = isDimmed;
    m_words = words;
    setAccessibleDescription(words);
    m_refresh.request(0ms);
}

QRect PictureView::pictureRect() const
{
    const QSize size = m_picture.size().scaled(this->size(), Qt::KeepAspectRatio);
    return {QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

QSize PictureView::sizeHint() const
{
    return {420, 315};
}

QSize PictureView::minimumSizeHint() const
{
    return {160, 120};
}

void PictureView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    if (!m_picture.isNull()) {
        const QRect place = pictureRect();
        const QSize pixels = (QSizeF(place.size()) * devicePixelRatioF()).toSize();
        if (m_key != m_picture.cacheKey() || m_scaled.size() != pixels) {
            m_key = m_picture.cacheKey();
            m_scaled = QPixmap::fromImage(
                m_picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        }
        painter.setOpacity(m_isDimmed ? dimmed : 1);
        painter.drawPixmap(place, m_scaled);
        painter.setOpacity(1);
    }
    if (!m_words.isEmpty())
        paintWords(painter);
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

/// On a ground of their own, to be read on any picture.
void PictureView::paintWords(QPainter& painter) const
{
    constexpr int flags = Qt::AlignCenter | Qt::TextWordWrap;
    const QRect room =
        rect().adjusted(2 * wordsMargin, 2 * wordsMargin, -2 * wordsMargin, -2 * wordsMargin);
    const QRect place = painter.boundingRect(room, flags, m_words) & room;
    const QMargins margins(wordsMargin, wordsMargin, wordsMargin, wordsMargin);
    painter.fillRect(place.marginsAdded(margins), palette().color(QPalette::Base));
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(place, flags, m_words);
}

} // namespace host::workbench::camera
