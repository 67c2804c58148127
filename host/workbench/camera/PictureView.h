// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_CAMERA_PICTUREVIEW_H
#define HOST_WORKBENCH_CAMERA_PICTUREVIEW_H

#include "host/workbench/pace/Refresh.h"

#include <QImage>
#include <QPixmap>
#include <QString>
#include <QWidget>

namespace host::workbench::camera {

/// A picture as large as there is room, in its own proportions, and words in its middle where
/// there is something to say.
class PictureView : public QWidget
{
    Q_OBJECT

public:
    explicit PictureView(QWidget* parent = nullptr);

    /// @p picture may be null. @p words are plain text, empty for none.
    void setPicture(const QImage& picture, bool isDimmed, const QString& words);

    /// Where the picture is.
    QRect pictureRect() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintWords(QPainter& painter) const;

    QImage m_picture;
    QPixmap m_scaled; // as it is painted
    qint64 m_key = 0; // of the picture that was scaled
    bool m_isDimmed = false;
    QString m_words;
    pace::Refresh m_refresh{*this, [this] { update(); }};
};

} // namespace host::workbench::camera

#endif
