// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_CAMERA_COMPRESSEDPICTURE_H
#define HOST_WORKBENCH_CAMERA_COMPRESSEDPICTURE_H

#include <QCborMap>
#include <QCoreApplication>
#include <QImage>
#include <QString>

namespace host::workbench::camera {

/// Reads the picture of a sensor_msgs/CompressedImage, JPEG or PNG, of any origin.
class CompressedPicture
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::camera::CompressedPicture)

public:
    /// No picture has more, lest one takes hundreds of megabytes and seconds; 4096 x 4096 fit.
    static constexpr qint64 mostPixels = qint64{4096} * 4096;
    /// Of a progressive JPEG, each of which costs the time of the whole picture.
    static constexpr int mostScans = 100;

    /// A message that has none gives a null picture and, in @p fault, which was empty, why.
    static QImage read(const QCborMap& message, QString* fault);
};

} // namespace host::workbench::camera

#endif
