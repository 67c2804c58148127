#include "TestCase.h"

#include <QDir>
#include <QFile>
#include <QHostAddress>
#include <QImage>
#include <QProcess>
#include <QSet>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QtTest>

#include <csignal>

namespace program_test {

namespace {

constexpr int patience = 45000;

struct Result
{
    int status = -1; // -1 where it crashed or did not end
    QString out;
    QString err;
};

/// The environment of a person with a display, and settings that are nobody's.
QProcessEnvironment environmentIn(const QTemporaryDir& home)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("XDG_DATA_HOME", home.path());
    return environment;
}

Result run(const QStringList& arguments, const QProcessEnvironment& environment,
           const QString& folder = QString())
{
    QProcess program;
    program.setProcessEnvironment(environment);
    program.setWorkingDirectory(folder);
    program.start(WORKBENCH_FILE, arguments);
    Result result;
    if (program.waitForFinished(patience) && program.exitStatus() == QProcess::NormalExit)
        result.status = program.exitCode();
    result.out = QString::fromLocal8Bit(program.readAllStandardOutput());
    result.err = QString::fromLocal8Bit(program.readAllStandardError());
    return result;
}

Result run(const QStringList& arguments)
{
    const QTemporaryDir home;
    return run(arguments, environmentIn(home));
}

void removeDisplay(QProcessEnvironment& environment)
{
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(name);
}

auto colorsIn(const QImage& image)
{
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            colors.insert(image.pixel(x, y));
    }
    return colors.size();
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
                              "17-help.png",
                              "18-names.png",
                              "19-variables.png",
                              "20-traffic.png",
                              "21-faults-menu.png",
                              "22-faults.png",
                              "23-two-devices.png",
                              "24-plugin-missing.png"};

} // namespace

/// The program device-workbench, started as a person starts it.
class ProgramTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void help_and_version_need_no_display();
    void a_mistake_on_the_command_line_is_named_with_status_1();
    void a_recording_that_cannot_be_replayed_is_named_with_status_1();
    void lines_of_a_recording_that_cannot_be_read_are_named();
    void the_language_is_the_one_asked_for_or_the_systems();
    void without_a_display_the_program_says_so();
    void the_tour_shows_every_state_and_names_its_pictures();
    void the_tour_needs_no_display_and_leaves_stored_settings_alone();
    void the_tour_ends_where_no_robot_is_and_says_why();
    void the_tour_ends_at_a_broken_plugin_and_says_why_data();
    void the_tour_ends_at_a_broken_plugin_and_says_why();
    void the_tour_ends_where_it_cannot_write();
    void a_signal_ends_the_program_cleanly_data();
    void a_signal_ends_the_program_cleanly();
    void a_signal_ends_the_tour_which_then_has_failed();
};

void ProgramTest::help_and_version_need_no_display()
{
    const QTemporaryDir home;
    QProcessEnvironment environment = environmentIn(home);
    removeDisplay(environment);

    const Result help = run({"--help"}, environment);
    QCOMPARE(help.status, 0);
    QVERIFY2(help.out.contains("--tour <DIR>"), qPrintable(help.out));
    const Result version = run({"--version"}, environment);
    QCOMPARE(version.status, 0);
    QCOMPARE(version.out, QString("device-workbench " WORKBENCH_VERSION "\n"));
}

void ProgramTest::a_mistake_on_the_command_line_is_named_with_status_1()
{
    for (const char* argument :
         {"--colour", "stray", "--address=robot:99999", "--tour=", "--language=fr"}) {
        const Result result = run({argument});
        QCOMPARE(result.status, 1);
        QCOMPARE(result.out, QString());
        const QString named = QString(argument).section('=', -1, -1, QString::SectionSkipEmpty);
        QVERIFY2(result.err.contains(QString(named).remove("--")), qPrintable(result.err));
    }
}

void ProgramTest::a_recording_that_cannot_be_replayed_is_named_with_status_1()
{
    QTemporaryFile noScans;
    QVERIFY(noScans.open());
    noScans.write("no scan at all\n");
    noScans.close();
    for (const QString& file : {noScans.fileName(), QString("/no/such.log")}) {
        const Result result = run({"--laser-log", file});
        QCOMPARE(result.status, 1);
        QVERIFY2(result.err.contains(file), qPrintable(result.err));
    }
}

void ProgramTest::lines_of_a_recording_that_cannot_be_read_are_named()
{
    QTemporaryFile recording;
    QVERIFY(recording.open());
    recording.write("1 2 3\n" + QByteArray("1000 ").repeated(707) + "\nnothing\n");
    recording.close();
    const QTemporaryDir folder;
    // It ends at the missing plugin: the recording was good enough.
    const Result result = run(
        {"--laser-log", recording.fileName(), "--plugin", "/no/such.so", "--tour", folder.path()});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.err.contains("/no/such.so"), qPrintable(result.err));
    for (const char* line : {":1: ", ":3: "})
        QVERIFY2(result.err.contains(recording.fileName() + line), qPrintable(result.err));
}

void ProgramTest::the_language_is_the_one_asked_for_or_the_systems()
{
    const QTemporaryDir home;
    QProcessEnvironment german = environmentIn(home);
    german.insert("LC_ALL", "de_DE.UTF-8");
    const Result system = run({"--colour"}, german);
    QVERIFY2(system.err.contains("Die Optionen zeigt --help."), qPrintable(system.err));

    const QStringList arguments = {"--no-robot", "--plugin", "/no/such.so", "--tour", home.path()};
    const Result askedFor = run(arguments + QStringList({"--language", "de"}));
    QVERIFY2(askedFor.err.contains("Das Plugin wurde nicht gefunden"), qPrintable(askedFor.err));
    const Result other = run(arguments + QStringList({"--language", "en"}), german);
    QVERIFY2(other.err.contains("The plugin was not found"), qPrintable(other.err));
}

void ProgramTest::without_a_display_the_program_says_so()
{
    const QTemporaryDir home;
    QProcessEnvironment environment = environmentIn(home);
    removeDisplay(environment);
    const Result result = run({"--no-robot"}, environment);
    QCOMPARE(result.status, 1);
    QVERIFY2(result.err.contains("There is no display"), qPrintable(result.err));
}

void ProgramTest::the_tour_shows_every_state_and_names_its_pictures()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("made/by the tour");
    const Result result = run({"--tour", path});
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
        QVERIFY2(colorsIn(image) > 20, qPrintable(line)); // text and icons, not a plain area
        for (const QImage& other : images)
            QVERIFY2(image != other, qPrintable(line));
        images << image;
    }
    // The dialog is above the window, where the menu was before: more than the cell changes.
    const auto menu = pictures.indexOf("11-manipulator-menu.png");
    const auto dialog = pictures.indexOf("12-manipulator-speed.png");
    QVERIFY(differences(images.at(menu), images.at(dialog)) > 10000);
}

void ProgramTest::the_tour_needs_no_display_and_leaves_stored_settings_alone()
{
    const QTemporaryDir home;
    const QTemporaryDir folder;
    QProcessEnvironment environment = environmentIn(home);
    removeDisplay(environment);
    const Result result = run({"--tour", "here"}, environment, folder.path());
    QVERIFY2(result.status == 0, qPrintable(result.err));
    QCOMPARE(QDir(folder.filePath("here")).entryList(QDir::Files), pictures);
    QCOMPARE(QDir(home.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList());
}

void ProgramTest::the_tour_ends_where_no_robot_is_and_says_why()
{
    QTcpSocket closedPort; // bound and not listening, so that nobody else opens it
    QVERIFY(closedPort.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress));
    const QString address = QString("127.0.0.1:%1").arg(closedPort.localPort());
    const QTemporaryDir folder;
    const Result result = run({"--no-robot", "--address", address, "--tour", folder.path()});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.err.contains("The tour ended at \"being connected\": " + address),
             qPrintable(result.err));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), pictures.mid(0, 2));
}

void ProgramTest::the_tour_ends_at_a_broken_plugin_and_says_why_data()
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
    QTest::newRow("no tool bar") << "NullWidgets.so"
                                 << "The plugin has no tool bar";
    QTest::newRow("throwing widget") << "ThrowingWidget.so"
                                     << "no such picture";
}

void ProgramTest::the_tour_ends_at_a_broken_plugin_and_says_why()
{
    QFETCH(QString, file);
    QFETCH(QString, why);
    const QTemporaryDir folder;
    const QString path = QDir(TEST_PLUGIN_FOLDER).filePath(file);
    const Result result = run({"--no-robot", "--plugin", path, "--tour", folder.path()});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.out, QString());
    QVERIFY2(result.err.contains(why), qPrintable(result.err));
    QVERIFY2(result.err.contains(path), qPrintable(result.err));
}

void ProgramTest::the_tour_ends_where_it_cannot_write()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    const Result result = run({"--no-robot", "--tour", file.fileName()});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.err.contains(file.fileName()), qPrintable(result.err));
}

void ProgramTest::a_signal_ends_the_program_cleanly_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
}

void ProgramTest::a_signal_ends_the_program_cleanly()
{
    QFETCH(int, number);
    const QTemporaryDir home;
    QProcess program;
    program.setProcessEnvironment(environmentIn(home));
    program.start(WORKBENCH_FILE, QStringList());
    QVERIFY(program.waitForStarted(patience));

    // The kernel knows when the program has taken the signal over.
    const auto isCaught = [&] {
        QFile status(QString("/proc/%1/status").arg(program.processId()));
        if (!status.open(QIODevice::ReadOnly))
            return false;
        const QString caught = QString::fromLatin1(status.readAll()).section("SigCgt:", 1);
        return bool(
            (caught.section('\n', 0, 0).trimmed().toULongLong(nullptr, 16) >> (number - 1)) & 1);
    };
    QTRY_VERIFY_WITH_TIMEOUT(isCaught(), patience);
    QCOMPARE(kill(static_cast<pid_t>(program.processId()), number), 0);
    QVERIFY(program.waitForFinished(patience));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
}

void ProgramTest::a_signal_ends_the_tour_which_then_has_failed()
{
    QTcpServer silent; // accepts and says nothing
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    const QTemporaryDir home;
    const QTemporaryDir folder;
    QProcess program;
    program.setProcessEnvironment(environmentIn(home));
    program.start(WORKBENCH_FILE, {"--no-robot", "--tour", folder.path(), "--address",
                                   QString("127.0.0.1:%1").arg(silent.serverPort())});
    QByteArray printed;
    const auto isConnecting = [&] {
        printed += program.readAllStandardOutput();
        return printed.contains("02-connecting-1.png");
    };
    QTRY_VERIFY_WITH_TIMEOUT(isConnecting(), patience);
    QCOMPARE(kill(static_cast<pid_t>(program.processId()), SIGTERM), 0);
    QVERIFY(program.waitForFinished(patience));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 1);
    const QByteArray error = program.readAllStandardError();
    QVERIFY2(error.contains("interrupted"), error.constData());
}

TEST_WITHOUT_WINDOWS(ProgramTest)

} // namespace program_test

#include "ProgramTest.moc"
