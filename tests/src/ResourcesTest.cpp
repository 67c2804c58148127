// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "LoadedPlugin.h"
#include "TestCase.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QLocale>
#include <QResource>
#include <QtEndian>
#include <QtTest>

namespace resources_test {

/// The icons that are compiled into the plugin, seen from outside while it comes and goes.
class ResourcesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void the_icons_are_there_exactly_while_the_library_is_loaded();
    void the_tree_holds_the_five_icons_and_nothing_else();
    void the_two_exported_functions_answer_one_and_do_their_work();
    void every_icon_is_its_file_byte_for_byte_data();
    void every_icon_is_its_file_byte_for_byte();
    void every_icon_is_a_picture_of_40_by_40_with_an_8_bit_palette_data();
    void every_icon_is_a_picture_of_40_by_40_with_an_8_bit_palette();
    void the_pictures_differ();
    void no_language_or_country_has_an_icon_of_its_own();

private:
    LoadedPlugin m_plugin;
};

namespace {

const QString folder(":/device_quandrel_gui/icons");
const QStringList names{"wifi_connect1.png", "wifi_connect2.png", "wifi_connect3.png",
                        "wifi_connect3passive.png", "wifi_disconnect.png"};

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

quint32 number(const QByteArray& png, int position)
{
    return qFromBigEndian<quint32>(png.constData() + position);
}

} // namespace

void ResourcesTest::initTestCase()
{
    QVERIFY(!QFile::exists(folder));
    QVERIFY2(m_plugin.load(), qPrintable(m_plugin.error()));
}

void ResourcesTest::the_icons_are_there_exactly_while_the_library_is_loaded()
{
    const QString icon = folder + "/wifi_disconnect.png";
    QVERIFY(QFile::exists(icon));
    QVERIFY(m_plugin.unload());
    QVERIFY(!LoadedPlugin::isInMemory());
    QVERIFY(!QFile::exists(icon));
    QVERIFY(!QDir(":/device_quandrel_gui").exists());
    QVERIFY2(m_plugin.load(), qPrintable(m_plugin.error()));
    QVERIFY(QFile::exists(icon));
}

void ResourcesTest::the_tree_holds_the_five_icons_and_nothing_else()
{
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    QCOMPARE(QDir(":/device_quandrel_gui").entryList(everything), QStringList{"icons"});
    // Unsorted, as the tree has them.
    QCOMPARE(QDir(folder).entryList(everything, QDir::NoSort), names);
    // Paths are case-sensitive.
    QVERIFY(!QFile::exists(":/Device_quandrel_gui/icons/wifi_disconnect.png"));
    QVERIFY(!QFile::exists(folder + "/Wifi_disconnect.png"));
}

void ResourcesTest::the_two_exported_functions_answer_one_and_do_their_work()
{
    using Function = int (*)();
    const auto registerIcons =
        reinterpret_cast<Function>(m_plugin.symbol("_Z34qInitResources_device_quandrel_guiv"));
    const auto unregisterIcons =
        reinterpret_cast<Function>(m_plugin.symbol("_Z37qCleanupResources_device_quandrel_guiv"));
    QVERIFY(registerIcons && unregisterIcons);

    QCOMPARE(unregisterIcons(), 1);
    QVERIFY(!QFile::exists(folder));
    QCOMPARE(registerIcons(), 1);
    QVERIFY(QFile::exists(folder));
}

void ResourcesTest::every_icon_is_its_file_byte_for_byte_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("wifi_connect1.png") << 1066;
    QTest::newRow("wifi_connect2.png") << 1142;
    QTest::newRow("wifi_connect3.png") << 1392;
    QTest::newRow("wifi_connect3passive.png") << 1339;
    QTest::newRow("wifi_disconnect.png") << 1374;
}

void ResourcesTest::every_icon_is_its_file_byte_for_byte()
{
    QFETCH(int, size);
    const QString name = QTest::currentDataTag();
    const QByteArray bytes = content(folder + "/" + name);
    QCOMPARE(bytes.size(), size);
    QCOMPARE(bytes, content(QString(ICONS_FOLDER "/") + name));

    const QResource resource(folder + "/" + name);
    QVERIFY(resource.isValid());
    QCOMPARE(resource.compressionAlgorithm(), QResource::NoCompression);
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(resource.data()),
                        static_cast<int>(resource.size())),
             bytes);
}

void ResourcesTest::every_icon_is_a_picture_of_40_by_40_with_an_8_bit_palette_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << name;
}

void ResourcesTest::every_icon_is_a_picture_of_40_by_40_with_an_8_bit_palette()
{
    QFETCH(QString, name);
    const QByteArray png = content(folder + "/" + name);
    QVERIFY(png.startsWith("\x89PNG\r\n\x1a\n"));
    QCOMPARE(png.mid(12, 4), QByteArray("IHDR"));
    QCOMPARE(number(png, 16), 40U); // width
    QCOMPARE(number(png, 20), 40U); // height
    QCOMPARE(int(png.at(24)), 8);   // bits for each pixel
    QCOMPARE(int(png.at(25)), 3);   // indexed colour

    const QImage image(folder + "/" + name);
    QCOMPARE(image.size(), QSize(40, 40));
    QCOMPARE(image.format(), QImage::Format_Indexed8);
}

void ResourcesTest::the_pictures_differ()
{
    for (int i = 0; i < names.size(); ++i) {
        const QImage image(folder + "/" + names.at(i));
        QVERIFY(!image.isNull());
        for (int j = 0; j < i; ++j) {
            const QImage other(folder + "/" + names.at(j));
            QVERIFY2(image.convertToFormat(QImage::Format_ARGB32) !=
                         other.convertToFormat(QImage::Format_ARGB32),
                     qPrintable(names.at(i) + " and " + names.at(j)));
        }
    }
}

void ResourcesTest::no_language_or_country_has_an_icon_of_its_own()
{
    for (const QString& name : names) {
        const QResource neutral(folder + "/" + name, QLocale::c());
        for (const char* locale : {"en_US", "de_DE", "fr_FR", "ja_JP", "ar_EG"})
            QCOMPARE(QResource(folder + "/" + name, QLocale(locale)).data(), neutral.data());
    }
}

TEST_WITH_WINDOWS(ResourcesTest)

} // namespace resources_test

#include "ResourcesTest.moc"
