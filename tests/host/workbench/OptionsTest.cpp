// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "ServerIdentity.h"
#include "TestCase.h"

#include "host/workbench/Options.h"

#include <QtTest>

namespace options_test {

using host::workbench::Options;

/// Options: what the command line may say, and what is answered otherwise.
class OptionsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void nothing_given_means_the_usual();
    void every_option_is_understood();
    void devices_are_taken_in_order_each_with_its_address();
    void names_are_mapped_in_the_notation_of_ros();
    void a_recording_goes_to_the_embedded_robot();
    void an_address_is_understood_in_every_form_data();
    void an_address_is_understood_in_every_form();
    void certificates_are_read_from_their_files();
    void the_scale_is_known_before_all_else_data();
    void the_scale_is_known_before_all_else();
    void a_recording_is_shown_or_compared();
    void a_script_comes_with_its_folder_and_its_report();
    void the_tour_is_a_script_too();
    void help_names_every_option();
    void help_puts_all_meanings_into_one_column();
    void version_is_the_programs();
    void a_mistake_is_refused_by_its_name_data();
    void a_mistake_is_refused_by_its_name();
};

namespace {

Options parse(const QStringList& arguments)
{
    return Options(QStringList("device-workbench") + arguments);
}

} // namespace

void OptionsTest::nothing_given_means_the_usual()
{
    const Options options = parse({});
    QVERIFY2(options.action() == Options::Action::Run, qPrintable(options.text()));
    QCOMPARE(options.devices(), QStringList("Quandrel"));
    QVERIFY(options.hasRobot());
    QVERIFY(options.addresses().isEmpty());
    QCOMPARE(options.laserLog().file(), QString());
    QCOMPARE(options.laserLog().rate(), 1.0);
    QVERIFY(options.pluginFile().isEmpty() && options.scriptFile().isEmpty());
    QVERIFY(options.language().isEmpty() && options.appearance().isEmpty());
    QVERIFY(options.text().isEmpty());
}

void OptionsTest::every_option_is_understood()
{
    const Options options =
        parse({"--plugin", "p.so", "--device", "Two", "--address", "robot:80", "--no-robot",
               "--record", "r.bag", "--language", "de", "--appearance", "dark", "--scale", "1.5"});
    QVERIFY2(options.action() == Options::Action::Run, qPrintable(options.text()));
    QCOMPARE(options.pluginFile(), QString("p.so"));
    QCOMPARE(options.devices(), QStringList("Two"));
    QCOMPARE(options.addresses().size(), 1);
    QCOMPARE(options.addresses().first().toString(), QString("robot:80"));
    QVERIFY(!options.hasRobot());
    QCOMPARE(options.laserLog().file(), QString());
    QCOMPARE(options.recordFile(), QString("r.bag"));
    QCOMPARE(options.language(), QString("de"));
    QCOMPARE(options.appearance(), QString("dark"));
}

void OptionsTest::devices_are_taken_in_order_each_with_its_address()
{
    const Options options = parse({"--device", "Left", "--address", "a", "--device", "Right",
                                   "--address", "b:80", "--device", "Third"});
    QVERIFY2(options.action() == Options::Action::Run, qPrintable(options.text()));
    QCOMPARE(options.devices(), QStringList({"Left", "Right", "Third"}));
    QCOMPARE(options.addresses().size(), 2);
    QCOMPARE(options.addresses().at(0).host, QString("a"));
    QCOMPARE(options.addresses().at(1).host, QString("b"));
}

void OptionsTest::names_are_mapped_in_the_notation_of_ros()
{
    const Options options = parse({"--remap", "/scan:=/base_scan", "--remap=/arm/torque:=/torque"});
    QVERIFY2(options.action() == Options::Action::Run, qPrintable(options.text()));
    const QList<host::device::connection::Remappings::Mapping> expected = {
        {"/scan", "/base_scan"}, {"/arm/torque", "/torque"}};
    QCOMPARE(options.names(), expected);
}

void OptionsTest::a_recording_goes_to_the_embedded_robot()
{
    const Options options = parse({"--laser-log", "scans.log", "--rate", "2.5"});
    QVERIFY2(options.action() == Options::Action::Run, qPrintable(options.text()));
    QVERIFY(options.hasRobot());
    QCOMPARE(options.laserLog().file(), QString("scans.log"));
    QCOMPARE(options.laserLog().rate(), 2.5);
}

void OptionsTest::an_address_is_understood_in_every_form_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("port");
    QTest::newRow("host") << "robot.lan"
                          << "robot.lan" << 9090;
    QTest::newRow("host and port") << "10.0.0.7:1234"
                                   << "10.0.0.7" << 1234;
    QTest::newRow("IPv6 and port") << "[::1]:1234"
                                   << "::1" << 1234;
    QTest::newRow("pasted") << "wss://robot.example/rosbridge"
                            << "robot.example" << 443;
}

void OptionsTest::an_address_is_understood_in_every_form()
{
    QFETCH(QString, text);
    const Options options = parse({"--address", text});
    QVERIFY2(options.action() == Options::Action::Run, qPrintable(options.text()));
    QTEST(options.addresses().first().host, "host");
    QTEST(int(options.addresses().first().port), "port");
}

void OptionsTest::certificates_are_read_from_their_files()
{
    const Options options = parse({"--trust", certificateFile("self-signed.pem"),
                                   "--trust=" + certificateFile("authority.pem")});
    QVERIFY2(options.action() == Options::Action::Run, qPrintable(options.text()));
    QCOMPARE(options.certificates(), QList<QSslCertificate>({certificate("self-signed.pem"),
                                                             certificate("authority.pem")}));
}

void OptionsTest::the_scale_is_known_before_all_else_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<double>("scale");
    QTest::newRow("none") << QStringList() << 1.0;
    QTest::newRow("alone") << QStringList({"--scale", "2"}) << 2.0;
    QTest::newRow("in one word") << QStringList("--scale=1.5") << 1.5;
    QTest::newRow("among others") << QStringList(
                                         {"--language", "de", "--no-robot", "--scale", "3", "a"})
                                  << 3.0;
    QTest::newRow("least") << QStringList({"--scale", "1"}) << 1.0;
    QTest::newRow("greatest") << QStringList({"--scale", "4"}) << 4.0;
    QTest::newRow("refused") << QStringList({"--scale", "5"}) << 1.0;
    QTest::newRow("no number") << QStringList({"--scale", "large"}) << 1.0;
}

void OptionsTest::the_scale_is_known_before_all_else()
{
    QFETCH(const QStringList, arguments);
    QTEST(Options::scale(QStringList("device-workbench") + arguments), "scale");
}

void OptionsTest::a_recording_is_shown_or_compared()
{
    const Options shown = parse({"--replay", "r.bag"});
    QVERIFY2(shown.action() == Options::Action::Run, qPrintable(shown.text()));
    QCOMPARE(shown.replayFile(), QString("r.bag"));
    QVERIFY(!shown.isAssertion());
    const Options compared = parse({"--replay", "r.bag", "--assert"});
    QVERIFY2(compared.action() == Options::Action::Run, qPrintable(compared.text()));
    QVERIFY(compared.isAssertion());
}

void OptionsTest::a_script_comes_with_its_folder_and_its_report()
{
    const Options options =
        parse({"--script", "a.script", "--output", "there", "--junit=report.xml"});
    QVERIFY2(options.action() == Options::Action::Run, qPrintable(options.text()));
    QCOMPARE(options.scriptFile(), QString("a.script"));
    QCOMPARE(options.outputFolder(), QString("there"));
    QCOMPARE(options.reportFile(), QString("report.xml"));
}

void OptionsTest::the_tour_is_a_script_too()
{
    const Options options = parse({"--tour", "pictures"});
    QVERIFY2(options.action() == Options::Action::Run, qPrintable(options.text()));
    QCOMPARE(options.scriptFile(), Options::tourFile());
    QCOMPARE(options.outputFolder(), QString("pictures"));
}

void OptionsTest::help_names_every_option()
{
    const Options options = parse({"--help"});
    QCOMPARE(options.action(), Options::Action::ShowText);
    for (const char* option :
         {"--plugin FILE ", "--device NAME ", "--address ADDRESS ", "--remap OURS:=THEIRS ",
          "--trust FILE ", "--no-robot ", "--laser-log ", "--rate ", "--record FILE ",
          "--language CODE ", "--appearance NAME ", "--scale FACTOR ", "--script FILE ",
          "--output DIR ", "--junit FILE ", "--tour DIR ", "--bug-report FILE ", "-h, --help ",
          "-v, --version "})
        QVERIFY2(options.text().contains(QLatin1String(option)), option);
}

void OptionsTest::help_puts_all_meanings_into_one_column()
{
    const QString help = parse({"--help"}).text();
    const auto column = [&](const char* meaning) {
        const auto place = help.indexOf(QLatin1String(meaning));
        return place < 0 ? -1 : place - help.lastIndexOf('\n', place);
    };
    QVERIFY(column("Show the version") > 0);
    QCOMPARE(column("Show the version"), column("Show this help"));
    QCOMPARE(column("Load the device plugin"), column("Show this help"));
    QCOMPARE(column("Use the robot's topic"), column("Show this help"));
}

void OptionsTest::version_is_the_programs()
{
    QCoreApplication::setApplicationName("device-workbench");
    QCoreApplication::setApplicationVersion("1.2.3");
    const Options options = parse({"--version"});
    QCOMPARE(options.action(), Options::Action::ShowText);
    QCOMPARE(options.text(), QString("device-workbench 1.2.3"));
}

void OptionsTest::a_mistake_is_refused_by_its_name_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");
    QTest::newRow("unknown option") << QStringList("--colour") << "colour";
    QTest::newRow("stray argument") << QStringList("stray") << "stray";
    QTest::newRow("missing value") << QStringList("--plugin") << "--plugin";
    QTest::newRow("empty value") << QStringList({"--device", ""}) << "--device";
    QTest::newRow("value for none") << QStringList("--no-robot=yes") << "--no-robot";
    QTest::newRow("bad address") << QStringList({"--address", "a b"}) << "\"a b\"";
    QTest::newRow("bad port") << QStringList({"--address", "robot:99999"}) << "99999";
    QTest::newRow("recording without a robot")
        << QStringList({"--no-robot", "--laser-log", "a"}) << "--no-robot";
    QTest::newRow("recording without a name") << QStringList("--laser-log=") << "--laser-log";
    QTest::newRow("rate of nothing") << QStringList({"--rate", "2"}) << "--laser-log";
    QTest::newRow("bad rate") << QStringList({"--laser-log", "a", "--rate", "nan"}) << "\"nan\"";
    QTest::newRow("comparing nothing") << QStringList("--assert") << "--replay FILE";
    QTest::newRow("recording a replay")
        << QStringList({"--replay", "a", "--record", "b"}) << "leave out --record";
    QTest::newRow("script in a replay")
        << QStringList({"--replay", "a", "--script", "b"}) << "leave out --record, --script";
    QTest::newRow("unknown language") << QStringList({"--language", "fr"}) << "\"fr\"";
    QTest::newRow("languages to pick") << QStringList({"--language", "fr"}) << "en, de, pseudo";
    QTest::newRow("empty language") << QStringList({"--language", ""}) << "--language";
    QTest::newRow("no file of certificates")
        << QStringList({"--trust", "/no/file"}) << "--trust: /no/file cannot be read";
    QTest::newRow("endless certificates")
        << QStringList({"--trust", "/dev/zero"}) << "--trust: /dev/zero cannot be read";
    QTest::newRow("no certificate")
        << QStringList({"--trust", certificateFile("make_certificates.py")})
        << "no certificate in PEM format";
    QTest::newRow("unknown name") << QStringList({"--remap", "/sacn:=/a"}) << "/sacn";
    QTest::newRow("no mapping") << QStringList({"--remap", "/scan"}) << "--remap";
    QTest::newRow("bad name") << QStringList({"--remap", "/scan:=/a b"}) << "/a b";
    QTest::newRow("unknown appearance") << QStringList({"--appearance", "mauve"}) << "\"mauve\"";
    QTest::newRow("appearances to pick")
        << QStringList({"--appearance", "mauve"}) << "system, light, dark";
    QTest::newRow("scale too small") << QStringList({"--scale", "0.9"}) << "\"0.9\"";
    QTest::newRow("scale too large") << QStringList({"--scale", "4.1"}) << "from 1 to 4";
    QTest::newRow("scale of no number") << QStringList({"--scale", "nan"}) << "\"nan\"";
    QTest::newRow("scale without a value") << QStringList("--scale") << "--scale";
    QTest::newRow("two devices of a name")
        << QStringList({"--device", "Twin", "--device", "Twin"}) << "\"Twin\"";
    QTest::newRow("more addresses than devices")
        << QStringList({"--address", "a", "--address", "b"}) << "--address";
    QTest::newRow("second address bad")
        << QStringList({"--device", "a", "--device", "b", "--address", "a", "--address", "b c"})
        << "\"b c\"";
    QTest::newRow("output of nothing") << QStringList({"--output", "a"}) << "--script";
    QTest::newRow("report on nothing") << QStringList({"--junit", "a"}) << "--script";
    QTest::newRow("tour and script") << QStringList({"--tour", "a", "--script", "b"}) << "--tour";
    QTest::newRow("tour to nowhere") << QStringList({"--tour", ""}) << "--tour";
    QTest::newRow("report of another kind")
        << QStringList({"--bug-report", "a.zip"}) << "does not end in .tar.gz";
    QTest::newRow("empty address") << QStringList({"--address", ""}) << "--address";
}

void OptionsTest::a_mistake_is_refused_by_its_name()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    const Options options = parse(arguments);
    QCOMPARE(options.action(), Options::Action::Fail);
    QVERIFY2(options.text().contains(named), qPrintable(options.text()));
}

TEST_WITHOUT_WINDOWS(OptionsTest)

} // namespace options_test

#include "OptionsTest.moc"
