// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/robotview/MapPicture.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace host::workbench::robotview {

namespace {

QColor mix(const QColor& a, const QColor& b, double part)
{
    const auto channel = [part](int from, int to) { return from + qRound((to - from) * part); };
    return {channel(a.red(), b.red()), channel(a.green(), b.green()), channel(a.blue(), b.blue())};
}

QVector<QRgb> mapColours(const QPalette& palette)
{
    QVector<QRgb> colours;
    for (int i = 0; i <= 100; ++i)
        colours.append(
            mix(palette.color(QPalette::Base), palette.color(QPalette::Text), i / 100.0).rgb());
    colours.append(MapPicture::unknownColour(palette).rgb());
    return colours;
}

} // namespace

QColor MapPicture::unknownColour(const QPalette& palette)
{
    return mix(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.25);
}

void MapPicture::paint(QPainter& painter, const QImage& cells, const QTransform& toPixels,
                       const QPalette& palette)
{
    // Without a turn the map is mirrored at least, since its rows go up and pixels down. Qt 6.4
    // reads beyond a picture that it has to mirror, if just its edge is in sight: it gets one that
    // is mirrored already.
    const bool isTurned = toPixels.type() > QTransform::TxScale;
    Qt::Orientations flips;
    flips.setFlag(Qt::Horizontal, !isTurned && toPixels.m11() < 0);
    flips.setFlag(Qt::Vertical, !isTurned && toPixels.m22() < 0);
    if (m_cellsKey != cells.cacheKey() || m_paletteKey != palette.cacheKey() || m_flips != flips) {
        m_levels.clear();
        m_cellsKey = cells.cacheKey();
        m_paletteKey = palette.cacheKey();
        m_flips = flips;
    }

    // At least as many cells as pixels, and less than twice as many: one cell of several would be
    // left out otherwise, and walls are thin.
    const double pixels = // a cell's
        std::hypot(toPixels.m11(), toPixels.m12()) * painter.device()->devicePixelRatioF();
    std::size_t halvings = 0;
    for (double size = pixels;
         size <= 0.5 && (cells.width() >> halvings) > 1 && (cells.height() >> halvings) > 1;
         size *= 2)
        ++halvings;
    const QImage& picture = level(halvings, cells, palette);

    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, pixels < 1);
    const QRectF all(cells.rect());
    if (isTurned) {
        painter.setTransform(toPixels, true);
        painter.drawImage(all, picture, picture.rect());
    } else {
        painter.drawImage(toPixels.mapRect(all), picture, picture.rect());
    }
    painter.restore();
}

const QImage& MapPicture::level(std::size_t halvings, const QImage& cells, const QPalette& palette)
{
    if (m_levels.empty()) {
        QImage coloured = cells;
        coloured.setColorTable(mapColours(palette));
        m_levels.push_back(
            coloured.convertToFormat(QImage::Format_RGB32)
                .mirrored(m_flips.testFlag(Qt::Horizontal), m_flips.testFlag(Qt::Vertical)));
    }
    while (m_levels.size() <= halvings) {
        const QImage& last = m_levels.back();
        m_levels.push_back(last.scaled(std::max(1, last.width() / 2),
                                       std::max(1, last.height() / 2), Qt::IgnoreAspectRatio,
                                       Qt::SmoothTransformation));
    }
    return m_levels[halvings];
}

} // namespace host::workbench::robotview
