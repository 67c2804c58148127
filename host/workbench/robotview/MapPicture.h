// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ROBOTVIEW_MAPPICTURE_H
#define HOST_WORKBENCH_ROBOTVIEW_MAPPICTURE_H

#include <QImage>
#include <QPalette>
#include <QTransform>

#include <vector>

class QPainter;

namespace host::workbench::robotview {

/// A map in colours, in halves of its size, each made when it is first needed: whoever zooms pays
/// for the pixels in sight and not for the cells of the map.
class MapPicture
{
public:
    /// Paints @p cells, which are values from 0, free, to 100, occupied, and 101 for unknown;
    /// @p toPixels leads from them to the painter's pixels.
    void paint(QPainter& painter, const QImage& cells, const QTransform& toPixels,
               const QPalette& palette);

    /// Of what is unknown, and of all around the map.
    static QColor unknownColour(const QPalette& palette);

private:
    const QImage& level(std::size_t halvings, const QImage& cells, const QPalette& palette);

    std::vector<QImage> m_levels; // mirrored, and each half as wide and high as the one before
    qint64 m_cellsKey = 0;
    qint64 m_paletteKey = 0;
    Qt::Orientations m_flips; // along which the levels are mirrored
};

} // namespace host::workbench::robotview

#endif
