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
    void the_scale_is_known_before_all_else_data();
    void the_scale_is_known_before_all_else();
    void help_names_every_option();
    void version_is_the_programs();
    void a_mistake_is_refused_by_its_name_data();
    void a_mistake_is_refused_by_its_name();
};

namespace {

std::optional<Options> parse(const QStringList& arguments, QString* error)
{
    return Options::parse(QStringList("device-workbench") + arguments, error);
}

} // namespace

void OptionsTest::nothing_given_means_the_usual()
{
    QString error;
    const auto options = parse({}, &error);
    QVERIFY2(options, qPrintable(error));
    QCOMPARE(options->devices, QStringList("Quandrel"));
    QVERIFY(options->robot);
    QVERIFY(options->addresses.isEmpty());
    QCOMPARE(options->laserLog.file(), QString());
    QCOMPARE(options->laserLog.rate(), 1.0);
    QVERIFY(options->pluginFile.isEmpty() && options->tourFolder.isEmpty());
    QVERIFY(options->language.isEmpty() && options->appearance.isEmpty());
    QVERIFY(options->message.isEmpty());
}

void OptionsTest::every_option_is_understood()
{
    QString error;
    const auto options =
        parse({"--plugin", "p.so", "--device", "Two", "--address", "robot:80", "--no-robot",
               "--language", "de", "--appearance", "dark", "--scale", "1.5", "--tour", "pictures"},
              &error);
    QVERIFY2(options, qPrintable(error));
    QCOMPARE(options->pluginFile, QString("p.so"));
    QCOMPARE(options->devices, QStringList("Two"));
    QCOMPARE(options->addresses.size(), 1);
    QCOMPARE(options->addresses.first().toString(), QString("robot:80"));
    QVERIFY(!options->robot);
    QCOMPARE(options->laserLog.file(), QString());
    QCOMPARE(options->language, QString("de"));
    QCOMPARE(options->appearance, QString("dark"));
    QCOMPARE(options->tourFolder, QString("pictures"));
}

void OptionsTest::devices_are_taken_in_order_each_with_its_address()
{
    QString error;
    const auto options = parse({"--device", "Left", "--address", "a", "--device", "Right",
                                "--address", "b:80", "--device", "Third"},
                               &error);
    QVERIFY2(options, qPrintable(error));
    QCOMPARE(options->devices, QStringList({"Left", "Right", "Third"}));
    QCOMPARE(options->addresses.size(), 2);
    QCOMPARE(options->addresses.at(0).host, QString("a"));
    QCOMPARE(options->addresses.at(1).host, QString("b"));
}

void OptionsTest::names_are_mapped_in_the_notation_of_ros()
{
    QString error;
    const auto options =
        parse({"--remap", "/scan:=/base_scan", "--remap=/arm/torque:=/torque"}, &error);
    QVERIFY2(options, qPrintable(error));
    const QList<host::device::connection::Remappings::Mapping> expected = {
        {"/scan", "/base_scan"}, {"/arm/torque", "/torque"}};
    QCOMPARE(options->names, expected);
}

void OptionsTest::a_recording_goes_to_the_embedded_robot()
{
    QString error;
    const auto options = parse({"--laser-log", "scans.log", "--rate", "2.5"}, &error);
    QVERIFY2(options, qPrintable(error));
    QVERIFY(options->robot);
    QCOMPARE(options->laserLog.file(), QString("scans.log"));
    QCOMPARE(options->laserLog.rate(), 2.5);
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
}

void OptionsTest::an_address_is_understood_in_every_form()
{
    QFETCH(QString, text);
    QString error;
    const auto options = parse({"--address", text}, &error);
    QVERIFY2(options, qPrintable(error));
    QTEST(options->addresses.first().host, "host");
    QTEST(int(options->addresses.first().port), "port");
}

void OptionsTest::the_scale_is_known_before_all_else_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<double>("scale");
    QTest::newRow("none") << QStringList() << 1.0;
    QTest::newRow("alone") << QStringList({"--scale", "2"}) << 2.0;
    QTest::newRow("in one word") << QStringList("--scale=1.5") << 1.5;
    QTest::newRow("among others") << QStringList({"--language", "de", "--no-robot", "--scale", "3",
                                                  "--tour", "a"})
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

void OptionsTest::help_names_every_option()
{
    QString error;
    const auto options = parse({"--help"}, &error);
    QVERIFY2(options, qPrintable(error));
    for (const char* option :
         {"--plugin <FILE>", "--device <NAME>", "--address <ADDRESS>", "--remap <OURS:=THEIRS>",
          "--no-robot", "--laser-log <file>", "--rate <factor>", "--language <CODE>",
          "--appearance <NAME>", "--scale <FACTOR>", "--tour <DIR>", "--help", "--version"})
        QVERIFY2(options->message.contains(QLatin1String(option)), option);
}

void OptionsTest::version_is_the_programs()
{
    QCoreApplication::setApplicationName("device-workbench");
    QCoreApplication::setApplicationVersion("1.2.3");
    QString error;
    const auto options = parse({"--version"}, &error);
    QVERIFY2(options, qPrintable(error));
    QCOMPARE(options->message, QString("device-workbench 1.2.3\n"));
}

void OptionsTest::a_mistake_is_refused_by_its_name_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");
    QTest::newRow("unknown option") << QStringList("--colour") << "colour";
    QTest::newRow("stray argument") << QStringList("stray") << "stray";
    QTest::newRow("missing value") << QStringList("--tour") << "--tour";
    QTest::newRow("empty value") << QStringList({"--device", ""}) << "--device";
    QTest::newRow("value for none") << QStringList("--no-robot=yes") << "--no-robot";
    QTest::newRow("bad address") << QStringList({"--address", "a b"}) << "\"a b\"";
    QTest::newRow("bad port") << QStringList({"--address", "robot:99999"}) << "99999";
    QTest::newRow("recording without a robot")
        << QStringList({"--no-robot", "--laser-log", "a"}) << "--no-robot";
    QTest::newRow("recording without a name") << QStringList("--laser-log=") << "--laser-log";
    QTest::newRow("rate of nothing") << QStringList({"--rate", "2"}) << "--laser-log";
    QTest::newRow("bad rate") << QStringList({"--laser-log", "a", "--rate", "nan"}) << "\"nan\"";
    QTest::newRow("unknown language") << QStringList({"--language", "fr"}) << "\"fr\"";
    QTest::newRow("languages to pick") << QStringList({"--language", "fr"}) << "en, de, pseudo";
    QTest::newRow("empty language") << QStringList({"--language", ""}) << "--language";
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
    QTest::newRow("empty address") << QStringList({"--address", ""}) << "--address";
}

void OptionsTest::a_mistake_is_refused_by_its_name()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    QString error;
    QVERIFY(!parse(arguments, &error));
    QVERIFY2(error.contains(named), qPrintable(error));
    QVERIFY2(error.contains("--help"), qPrintable(error));
}

TEST_WITHOUT_WINDOWS(OptionsTest)

} // namespace options_test

#include "OptionsTest.moc"
