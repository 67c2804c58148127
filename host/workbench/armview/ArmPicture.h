// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ARMVIEW_ARMPICTURE_H
#define HOST_WORKBENCH_ARMVIEW_ARMPICTURE_H

#include <QPolygonF>
#include <QWidget>

namespace host::workbench::armview {

/// The arm from the side: where it is, solid, and where it is to go, as an outline.
class ArmPicture : public QWidget
{
    Q_OBJECT

public:
    explicit ArmPicture(QWidget* parent = nullptr);

    /// Shapes as armShape() gives them; empty where nothing is known. What is old is grey.
    void setShapes(const QPolygonF& present, const QPolygonF& target, bool isOld);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QTransform toPixels() const;

    QPolygonF m_present;
    QPolygonF m_target;
    bool m_isOld = false;
};

} // namespace host::workbench::armview

#endif
