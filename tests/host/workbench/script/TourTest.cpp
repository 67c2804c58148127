// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/ProgramRun.h"

#include <QDir>
#include <QImage>
#include <QSet>
#include <QtTest>

namespace tour_test {

using namespace program_run;

namespace {

/// Text and icons, and not a plain area.
bool hasContent(const QImage& image)
{
    constexpr int enough = 20;
    QSet<QRgb> colors;
    for (int y = 0; y < image.height() && colors.size() <= enough; ++y) {
        for (int x = 0; x < image.width(); ++x)
            colors.insert(image.pixel(x, y));
    }
    return colors.size() > enough;
}

/// How many pixels of two images of the same size differ.
int differences(const QImage& a, const QImage& b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            count += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
    }
    return count;
}

const QStringList pictures = {"01-not-connected.png",
                              "02-connecting-1.png",
                              "03-connecting-2.png",
                              "04-connecting-3.png",
                              "05-connected.png",
                              "06-base.png",
                              "07-laser.png",
                              "08-manipulator.png",
                              "09-manipulator-editing.png",
                              "10-manipulator-menu.png",
                              "11-manipulator-speed.png",
                              "12-manipulator-full.png",
                              "13-disconnected.png",
                              "14-refused.png",
                              "15-robot.png",
                              "16-driving.png",
                              "17-camera.png",
                              "18-arm.png",
                              "19-plots.png",
                              "20-help.png",
                              "21-names.png",
                              "22-variables.png",
                              "23-traffic.png",
                              "24-events.png",
                              "25-faults-menu.png",
                              "26-faults.png",
                              "27-laser-recorded.png",
                              "28-two-devices.png",
                              "29-plugin-missing.png"};

} // namespace

/// The automated tour: the script that comes with the program.
class TourTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_shows_every_state_without_a_display_and_leaves_stored_settings_alone();
    void it_ends_at_a_broken_plugin_and_says_why();
};

void TourTest::it_shows_every_state_without_a_display_and_leaves_stored_settings_alone()
{
    const QTemporaryDir home;
    const QTemporaryDir folder;
    const QString path = folder.filePath("made/by the tour");
    QProcessEnvironment environment = environmentIn(home);
    removeDisplay(environment);
    const Result result = run(WORKBENCH_FILE, {"--tour", path}, environment);
    QVERIFY2(result.status == 0, qPrintable(result.err));
    QCOMPARE(result.err, QString()); // no complaints about what only a display can do
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    QCOMPARE(QDir(home.path()).entryList(everything), QStringList());

    QStringList lines;
    for (const QString& name : pictures)
        lines << path + '/' + name;
    QCOMPARE(result.out, lines.join('\n') + '\n');
    QCOMPARE(QDir(path).entryList(everything), pictures);

    QList<QImage> images;
    for (const QString& line : lines) {
        const QImage image(line, "PNG");
        QVERIFY2(!image.isNull(), qPrintable(line));
        QVERIFY2(hasContent(image), qPrintable(line));
        for (const QImage& other : images)
            QVERIFY2(image != other, qPrintable(line));
        images << image;
    }
    // The dialog is above the window, where the menu was before: more than the cell changes.
    const auto menu = pictures.indexOf("10-manipulator-menu.png");
    const auto dialog = pictures.indexOf("11-manipulator-speed.png");
    QVERIFY(differences(images.at(menu), images.at(dialog)) > 10000);
}

void TourTest::it_ends_at_a_broken_plugin_and_says_why()
{
    const QTemporaryDir folder;
    const QString path = TEST_PLUGIN_FOLDER "/ThrowingWidget.so";
    const Result result =
        run(WORKBENCH_FILE, {"--no-robot", "--plugin", path, "--tour", folder.path()});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.out, QString());
    QVERIFY2(result.err.contains("no such picture"), qPrintable(result.err));
    QVERIFY2(result.err.contains(path), qPrintable(result.err));
}

TEST_WITHOUT_WINDOWS(TourTest)

} // namespace tour_test

#include "TourTest.moc"
