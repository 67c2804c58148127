// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/ProgramRun.h"

#include <QDir>
#include <QHostAddress>
#include <QImage>
#include <QSet>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryFile>
#include <QtTest>

#include <csignal>

namespace tour_test {

using namespace program_run;

namespace {

Result run(const QStringList& arguments)
{
    return program_run::run(TOUR_FILE, arguments);
}

Result run(const QStringList& arguments, const QProcessEnvironment& environment,
           const QString& folder = QString())
{
    return program_run::run(TOUR_FILE, arguments, environment, folder);
}

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
                              "08-laser-recorded.png",
                              "09-manipulator.png",
                              "10-manipulator-editing.png",
                              "11-manipulator-menu.png",
                              "12-manipulator-speed.png",
                              "13-manipulator-full.png",
                              "14-disconnected.png",
                              "15-refused.png",
                              "16-robot.png",
                              "17-driving.png",
                              "18-camera.png",
                              "19-arm.png",
                              "20-plots.png",
                              "21-help.png",
                              "22-names.png",
                              "23-variables.png",
                              "24-traffic.png",
                              "25-events.png",
                              "26-faults-menu.png",
                              "27-faults.png",
                              "28-two-devices.png",
                              "29-plugin-missing.png"};

} // namespace

/// The program workbench-tour.
class TourTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void help_says_what_the_folder_is_for();
    void a_mistake_on_the_command_line_is_named_with_status_2();
    void it_shows_every_state_and_names_its_pictures();
    void it_needs_no_display_and_leaves_stored_settings_alone();
    void it_ends_where_no_robot_is_and_says_why();
    void it_ends_at_a_broken_plugin_and_says_why_data();
    void it_ends_at_a_broken_plugin_and_says_why();
    void it_ends_where_it_cannot_write();
    void lines_of_a_recording_that_cannot_be_read_are_named();
    void the_language_is_the_one_asked_for();
    void a_signal_ends_it_as_a_failure();
};

void TourTest::help_says_what_the_folder_is_for()
{
    const Result help = run({"--help"});
    QCOMPARE(help.status, 0);
    QVERIFY2(help.out.startsWith("Usage: "), qPrintable(help.out));
    QVERIFY2(help.out.contains("workbench-tour [options] DIR\n"), qPrintable(help.out));
    QVERIFY2(help.out.contains("Folder for the pictures"), qPrintable(help.out));
}

void TourTest::a_mistake_on_the_command_line_is_named_with_status_2()
{
    const QTemporaryDir folder;
    const QList<QPair<QStringList, QString>> mistakes = {
        {{}, "DIR is missing"},
        {{""}, "DIR is missing"},
        {{folder.path(), "another"}, "unexpected argument \"another\""},
        {{folder.path(), "--tour=here"}, "Unknown option 'tour'."},
    };
    for (const auto& [arguments, what] : mistakes) {
        const Result result = run(arguments);
        QCOMPARE(result.err, "workbench-tour: " + what + "\nTry 'workbench-tour --help'.\n");
        QCOMPARE(result.status, 2);
        QCOMPARE(result.out, QString());
    }
    QVERIFY(QDir(folder.path()).isEmpty());
}

void TourTest::it_shows_every_state_and_names_its_pictures()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("made/by the tour");
    const Result result = run({path});
    QVERIFY2(result.status == 0, qPrintable(result.err));

    QStringList lines;
    for (const QString& name : pictures)
        lines << path + '/' + name;
    QCOMPARE(result.out, lines.join('\n') + '\n');
    QCOMPARE(QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             pictures);

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
    const auto menu = pictures.indexOf("11-manipulator-menu.png");
    const auto dialog = pictures.indexOf("12-manipulator-speed.png");
    QVERIFY(differences(images.at(menu), images.at(dialog)) > 10000);
}

void TourTest::it_needs_no_display_and_leaves_stored_settings_alone()
{
    const QTemporaryDir home;
    const QTemporaryDir folder;
    QProcessEnvironment environment = environmentIn(home);
    removeDisplay(environment);
    const Result result = run({"here"}, environment, folder.path());
    QVERIFY2(result.status == 0, qPrintable(result.err));
    QCOMPARE(result.err, QString()); // no complaints about what only a display can do
    QCOMPARE(QDir(folder.filePath("here")).entryList(QDir::Files), pictures);
    QCOMPARE(QDir(home.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList());
}

void TourTest::it_ends_where_no_robot_is_and_says_why()
{
    QTcpSocket closedPort; // bound and not listening, so that nobody else opens it
    QVERIFY(closedPort.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress));
    const QString address = QString("127.0.0.1:%1").arg(closedPort.localPort());
    const QTemporaryDir folder;
    const Result result = run({"--no-robot", "--address", address, folder.path()});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.err.contains("The tour ended at \"being connected\": " + address),
             qPrintable(result.err));
    const QStringList taken = QDir(folder.path()).entryList(QDir::Files);
    QCOMPARE(taken, pictures.mid(0, taken.size()));
    QVERIFY(taken.size() >= 2 && taken.size() <= pictures.indexOf("05-connected.png"));
}

void TourTest::it_ends_at_a_broken_plugin_and_says_why_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("why");
    QTest::newRow("missing") << "no_such_file.so"
                             << "There is no such file.";
    QTest::newRow("no library") << "text.so"
                                << "not a shared library";
    QTest::newRow("undefined symbol") << "UndefinedSymbol.so"
                                      << "functionOfALaterHost";
    QTest::newRow("no factory") << "NoFactory.so"
                                << "pluginGuiInterface";
    QTest::newRow("no widgets") << "NullWidgets.so"
                                << "The plugin has no widgets";
    QTest::newRow("throwing widget") << "ThrowingWidget.so"
                                     << "no such picture";
}

void TourTest::it_ends_at_a_broken_plugin_and_says_why()
{
    QFETCH(QString, file);
    QFETCH(QString, why);
    const QTemporaryDir folder;
    const QString path = QDir(TEST_PLUGIN_FOLDER).filePath(file);
    const Result result = run({"--no-robot", "--plugin", path, folder.path()});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.out, QString());
    QVERIFY2(result.err.contains(why), qPrintable(result.err));
    QVERIFY2(result.err.contains(path), qPrintable(result.err));
}

void TourTest::it_ends_where_it_cannot_write()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    const Result result = run({"--no-robot", file.fileName()});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.err.contains(file.fileName()), qPrintable(result.err));
}

void TourTest::a_signal_ends_it_as_a_failure()
{
    QTcpServer silent; // accepts and says nothing
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    const QTemporaryDir home;
    const QTemporaryDir folder;
    QProcess program;
    program.setProcessEnvironment(environmentIn(home));
    program.start(TOUR_FILE, {"--no-robot", folder.path(), "--address",
                              QString("127.0.0.1:%1").arg(silent.serverPort())});
    QByteArray printed;
    const auto isConnecting = [&] {
        printed += program.readAllStandardOutput();
        return printed.contains("02-connecting-1.png");
    };
    QTRY_VERIFY_WITH_TIMEOUT(isConnecting(), runPatience);
    QCOMPARE(kill(static_cast<pid_t>(program.processId()), SIGTERM), 0);
    QVERIFY(program.waitForFinished(runPatience));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 1);
    const QByteArray error = program.readAllStandardError();
    QVERIFY2(error.contains("interrupted"), error.constData());
}

void TourTest::lines_of_a_recording_that_cannot_be_read_are_named()
{
    QTemporaryFile recording;
    QVERIFY(recording.open());
    recording.write("1 2 3\n" + QByteArray("1000 ").repeated(707) + "\nnothing\n");
    recording.close();
    const QTemporaryDir folder;
    // It ends at the missing plugin: the recording was good enough.
    const Result result =
        run({"--laser-log", recording.fileName(), "--plugin", "/no/such.so", folder.path()});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.err.contains("/no/such.so"), qPrintable(result.err));
    for (const char* line : {":1: ", ":3: "})
        QVERIFY2(result.err.contains(recording.fileName() + line), qPrintable(result.err));
}

void TourTest::the_language_is_the_one_asked_for()
{
    const QTemporaryDir home;
    QProcessEnvironment german = environmentIn(home);
    german.insert("LC_ALL", "de_DE.UTF-8");
    const QStringList arguments = {"--no-robot", "--plugin", "/no/such.so", home.path()};
    const Result askedFor = run(arguments + QStringList({"--language", "de"}));
    QVERIFY2(askedFor.err.contains("Das Plugin wurde nicht gefunden"), qPrintable(askedFor.err));
    const Result other = run(arguments + QStringList({"--language", "en"}), german);
    QVERIFY2(other.err.contains("The plugin was not found"), qPrintable(other.err));
}

TEST_WITHOUT_WINDOWS(TourTest)

} // namespace tour_test

#include "TourTest.moc"
