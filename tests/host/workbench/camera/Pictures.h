// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TESTS_HOST_WORKBENCH_CAMERA_PICTURES_H
#define TESTS_HOST_WORKBENCH_CAMERA_PICTURES_H

#include <QBuffer>
#include <QCborMap>
#include <QImage>

/// Pictures as a robot's camera sends them.
namespace pictures {

/// One of a single colour, so that it stays the same as a JPEG.
inline QImage plain(int width = 64, int height = 48, Qt::GlobalColor colour = Qt::red)
{
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

inline QByteArray encoded(const QImage& picture, const char* format)
{
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, format);
    return data;
}

inline QCborMap pictureMessage(const QCborValue& data,
                               const QString& format = "rgb8; jpeg compressed bgr8")
{
    return {{"header", QCborMap{{"frame_id", "camera"}}}, {"format", format}, {"data", data}};
}

inline QCborMap pictureMessage(const QImage& picture)
{
    return pictureMessage(QCborValue(encoded(picture, "JPEG")));
}

} // namespace pictures

#endif
