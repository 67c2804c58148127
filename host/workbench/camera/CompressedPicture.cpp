// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/camera/CompressedPicture.h"

#include "rosbridge/protocol/Fields.h"

#include <QBuffer>
#include <QImageReader>

namespace host::workbench::camera {

namespace {

/// What the data is, whatever the message says of it: robots write the format in many ways. Empty
/// where it is neither JPEG nor PNG.
QByteArray formatOf(const QByteArray& data)
{
    if (data.startsWith("\xff\xd8\xff"))
        return "jpeg";
    if (data.startsWith("\x89PNG\r\n\x1a\n"))
        return "png";
    return {};
}

} // namespace

QImage CompressedPicture::read(const QCborMap& message, QString* fault)
{
    rosbridge::protocol::Fields fields(message, fault);
    QByteArray data = fields.bytes("data");
    if (!fields.isGood())
        return {};
    const QByteArray format = formatOf(data);
    if (format.isEmpty()) {
        constexpr int longest = 60;
        fields.fail("data",
                    tr("is neither JPEG nor PNG; the robot calls it \"%1\"")
                        .arg(message.value(QLatin1String("format")).toString().left(longest)));
        return {};
    }
    if (format == "jpeg" && data.count("\xff\xda") > mostScans) {
        fields.fail("data", tr("has more than %1 scans").arg(mostScans));
        return {};
    }
    QBuffer buffer(&data);
    QImageReader reader(&buffer, format);
    reader.setDecideFormatFromContent(false);
    const QSize size = reader.size(); // of the header alone
    if (qint64{size.width()} * size.height() > mostPixels) {
        fields.fail("data", tr("has %1 × %2 pixels; at most %3 are accepted")
                                .arg(size.width())
                                .arg(size.height())
                                .arg(mostPixels));
        return {};
    }
    QImage picture;
    if (!reader.read(&picture)) {
        fields.fail("data", tr("cannot be decoded: %1").arg(reader.errorString()));
        return {};
    }
    return picture;
}

} // namespace host::workbench::camera
