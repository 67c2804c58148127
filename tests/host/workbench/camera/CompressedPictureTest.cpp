// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Pictures.h"
#include "TestCase.h"

#include "host/workbench/camera/CompressedPicture.h"

#include <QtEndian>
#include <QtTest>

namespace compressed_picture_test {

using host::workbench::camera::CompressedPicture;
using namespace pictures;

namespace {

QString faultOf(const QCborMap& message)
{
    QString fault;
    const QImage picture = CompressedPicture::read(message, &fault);
    return picture.isNull() ? fault : QString("a picture");
}

/// A PNG that says it has that many pixels, and has none.
QByteArray hugePng(quint32 width, quint32 height)
{
    QByteArray png = encoded(plain(), "PNG");
    constexpr int sizeAt = 16; // after the signature, the first part's length and its name
    qToBigEndian(width, png.data() + sizeAt);
    qToBigEndian(height, png.data() + sizeAt + 4);
    constexpr int partAt = 12;
    constexpr int partLength = 17;
    quint32 check = 0xffffffff; // CRC-32, as PNG has it
    for (int i = partAt; i < partAt + partLength; ++i) {
        check ^= static_cast<quint8>(png.at(i));
        for (int bit = 0; bit < 8; ++bit)
            check = (check >> 1) ^ ((check & 1) ? 0xedb88320 : 0);
    }
    qToBigEndian(~check, png.data() + partAt + partLength);
    return png;
}

} // namespace

/// What a message with a picture may be, and what it must not be.
class CompressedPictureTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_picture_is_read_whatever_its_format_is_called_data();
    void a_picture_is_read_whatever_its_format_is_called();
    void what_has_no_picture_is_refused_with_the_reason_data();
    void what_has_no_picture_is_refused_with_the_reason();
    void a_picture_that_is_too_large_is_refused_before_it_is_decoded();
    void a_jpeg_of_very_many_scans_is_refused();
};

void CompressedPictureTest::a_picture_is_read_whatever_its_format_is_called_data()
{
    QTest::addColumn<QCborValue>("data");
    QTest::addColumn<QString>("format");
    const QByteArray jpeg = encoded(plain(), "JPEG");
    const QByteArray png = encoded(plain(), "PNG");
    QTest::newRow("JPEG in CBOR") << QCborValue(jpeg) << "jpeg";
    QTest::newRow("PNG in CBOR") << QCborValue(png) << "png";
    QTest::newRow("JPEG in JSON") << QCborValue(QString::fromLatin1(jpeg.toBase64()))
                                  << "rgb8; jpeg compressed bgr8";
    QTest::newRow("JPEG, called PNG") << QCborValue(jpeg) << "png";
    QTest::newRow("without a name") << QCborValue(png) << "";
}

void CompressedPictureTest::a_picture_is_read_whatever_its_format_is_called()
{
    QFETCH(const QCborValue, data);
    QFETCH(const QString, format);
    QString fault;
    const QImage picture = CompressedPicture::read(pictureMessage(data, format), &fault);
    QCOMPARE(fault, QString());
    QCOMPARE(picture.size(), QSize(64, 48));
    const QColor colour = picture.pixelColor(10, 10);
    QVERIFY(colour.red() > 250 && colour.green() < 5 && colour.blue() < 5);
}

void CompressedPictureTest::what_has_no_picture_is_refused_with_the_reason_data()
{
    QTest::addColumn<QCborMap>("message");
    QTest::addColumn<QString>("fault");
    QTest::newRow("no data") << QCborMap{{"format", "jpeg"}} << "the field \"data\" is missing";
    QTest::newRow("a number") << pictureMessage(QCborValue(7))
                              << "the field \"data\" is a number, not bytes";
    QTest::newRow("no base64") << pictureMessage(QCborValue("§§§"))
                               << "the field \"data\" is text, but not base64";
    QTest::newRow("nothing")
        << pictureMessage(QCborValue(QByteArray()), "")
        << "the field \"data\" is neither JPEG nor PNG; the robot calls it \"\"";
    QTest::newRow("depths")
        << pictureMessage(QCborValue(QByteArray(12, '\0') + encoded(plain(), "PNG")),
                          "16UC1; compressedDepth png")
        << "the field \"data\" is neither JPEG nor PNG; the robot calls it \"16UC1; "
           "compressedDepth png\"";
    QTest::newRow("a long name")
        << pictureMessage(QCborValue(QByteArray("GIF89a")), QString(1000, 'x'))
        << QString("the field \"data\" is neither JPEG nor PNG; the robot calls it \"%1\"")
               .arg(QString(60, 'x'));
}

void CompressedPictureTest::what_has_no_picture_is_refused_with_the_reason()
{
    QFETCH(const QCborMap, message);
    QFETCH(const QString, fault);
    QCOMPARE(faultOf(message), fault);
}

void CompressedPictureTest::a_picture_that_is_too_large_is_refused_before_it_is_decoded()
{
    QCOMPARE(faultOf(pictureMessage(QCborValue(hugePng(8192, 8192)))),
             QString("the field \"data\" has 8192 × 8192 pixels; at most 16777216 are accepted"));
    QCOMPARE(faultOf(pictureMessage(QCborValue(hugePng(4097, 4096)))),
             QString("the field \"data\" has 4097 × 4096 pixels; at most 16777216 are accepted"));
}

void CompressedPictureTest::a_jpeg_of_very_many_scans_is_refused()
{
    QByteArray jpeg = encoded(plain(), "JPEG");
    for (int i = 0; i < 100; ++i)
        jpeg += "\xff\xda";
    QCOMPARE(faultOf(pictureMessage(QCborValue(jpeg))),
             QString("the field \"data\" has more than 100 scans"));
}

TEST_WITHOUT_WINDOWS(CompressedPictureTest)

} // namespace compressed_picture_test

#include "CompressedPictureTest.moc"
