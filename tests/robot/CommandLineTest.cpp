// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "robot/CommandLine.h"

#include <QtTest>

namespace command_line_test {

using robot::CommandLine;
using rosbridge::protocol::Address;

/// CommandLine: what quandrel-robot is asked to do.
class CommandLineTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void without_arguments_the_defaults_count();
    void every_option_is_read();
    void the_options_for_a_bag_are_read();
    void the_port_counts_more_than_the_address();
    void help_and_version_are_text();
    void what_is_wrong_is_named_data();
    void what_is_wrong_is_named();
    void the_first_of_several_errors_is_told();

private:
    static CommandLine parse(const QString& arguments)
    {
        return CommandLine((QStringLiteral("quandrel-robot ") + arguments)
                               .split(QLatin1Char(' '), Qt::SkipEmptyParts));
    }
};

void CommandLineTest::without_arguments_the_defaults_count()
{
    const CommandLine commandLine = parse(QString());
    QVERIFY(commandLine.action() == CommandLine::Action::Run);
    QVERIFY(commandLine.address() == (Address{QStringLiteral("127.0.0.1"), 9090}));
    QVERIFY(commandLine.allowedOrigins().isEmpty());
    QCOMPARE(commandLine.laserLog().file(), QString());
    QCOMPARE(commandLine.laserLog().rate(), 1.0);
    QCOMPARE(commandLine.text(), QString());
}

void CommandLineTest::every_option_is_read()
{
    const CommandLine commandLine =
        parse(QStringLiteral("--address [::1]:91 --seed 7 --allow-origin http://localhost:8000 "
                             "--allow-origin https://a.example --laser-log scans.log --rate 0.5"));
    QCOMPARE(commandLine.text(), QString());
    QVERIFY(commandLine.action() == CommandLine::Action::Run);
    QVERIFY(commandLine.address() == (Address{QStringLiteral("::1"), 91}));
    QCOMPARE(commandLine.seed(), 7U);
    QCOMPARE(commandLine.allowedOrigins(), (QStringList{QStringLiteral("http://localhost:8000"),
                                                        QStringLiteral("https://a.example")}));
    QCOMPARE(commandLine.laserLog().file(), QStringLiteral("scans.log"));
    QCOMPARE(commandLine.laserLog().rate(), 0.5);
}

void CommandLineTest::the_options_for_a_bag_are_read()
{
    const CommandLine plain = parse(QStringLiteral("--play a.bag"));
    QCOMPARE(plain.text(), QString());
    QCOMPARE(plain.play().file(), QStringLiteral("a.bag"));
    QCOMPARE(plain.play().options().rate, 1.0);
    QVERIFY(!plain.play().options().isLooping);
    QCOMPARE(plain.play().options().start, std::chrono::nanoseconds(0));

    const CommandLine full =
        parse(QStringLiteral("--start 2.5 --loop --rate 20 --play a.bag --port 0"));
    QCOMPARE(full.text(), QString());
    QCOMPARE(full.play().options().rate, 20.0);
    QVERIFY(full.play().options().isLooping);
    QCOMPARE(full.play().options().start,
             std::chrono::nanoseconds(std::chrono::milliseconds(2500)));
}

void CommandLineTest::the_port_counts_more_than_the_address()
{
    QCOMPARE(parse(QStringLiteral("--address robot:91 --port 0")).address().port, quint16(0));
    QCOMPARE(parse(QStringLiteral("--port 92 --address robot:91")).address().port, quint16(92));
    QCOMPARE(parse(QStringLiteral("--port 92")).address().host, QStringLiteral("127.0.0.1"));
}

void CommandLineTest::help_and_version_are_text()
{
    QCoreApplication::setApplicationVersion(QStringLiteral("1.2.3"));
    for (const char* arguments : {"--help", "-h", "--version", "-v"}) {
        const CommandLine commandLine = parse(QLatin1String(arguments));
        QVERIFY(commandLine.action() == CommandLine::Action::ShowText);
        QVERIFY(commandLine.text().contains(QLatin1String(arguments).contains(QLatin1Char('h'))
                                                ? QStringLiteral("--allow-origin")
                                                : QStringLiteral("1.2.3")));
        QVERIFY(!commandLine.text().contains(QLatin1Char('<'))); // PORT, not <PORT>
    }
}

void CommandLineTest::what_is_wrong_is_named_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("named");
    const auto add = [](const char* arguments, const char* named) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << QString::fromLatin1(named);
    };
    add("--port 65536", "65536");
    add("--port -1", "-1");
    add("--port nine", "nine");
    add("--seed 4294967296", "4294967296");
    add("--seed -1", "-1");
    add("--seed 1.5", "1.5");
    add("--address a:b:c", "a:b:c");
    add("--address robot:0", "robot:0");
    add("--address wss://robot:1", "neither wss:// nor a path");
    add("--address ws://robot:1/path", "neither wss:// nor a path");
    add("--allow-origin localhost", "localhost");
    add("--allow-origin http://localhost/", "http://localhost/");
    add("--allow-origin http://user@localhost", "user@");
    add("--allow-origin http://localhost?x", "?x");
    add("--allow-origin HTTP://localhost", "HTTP:");
    add("--allow-origin *", "*");
    add("--allow-origin null", "null");
    add("--laser-log", "laser-log");
    add("--laser-log=", "laser-log");
    add("--rate 1", "--laser-log");
    add("--laser-log a --rate 0.009", "0.009");
    add("--laser-log a --rate 100.1", "100.1");
    add("--laser-log a --rate nan", "nan");
    add("--laser-log a --rate -1", "-1");
    add("--laser-log a --rate fast", "fast");
    add("--play", "play");
    add("--play=", "play");
    add("--loop", "--play");
    add("--start 1", "--play");
    add("--play a --start -1", "-1");
    add("--play a --start nan", "nan");
    add("--play a --start soon", "soon");
    add("--play a --rate 0", "\"0\"");
    add("--play a --laser-log b", "--laser-log");
    add("--play a --seed 1", "--seed");
    add("--fly", "fly");
    add("surplus", "surplus");
    add("--port", "port");
}

void CommandLineTest::what_is_wrong_is_named()
{
    QFETCH(QString, arguments);
    QFETCH(QString, named);
    const CommandLine commandLine = parse(arguments);
    QVERIFY(commandLine.action() == CommandLine::Action::Fail);
    QVERIFY2(commandLine.text().contains(named), qPrintable(commandLine.text()));
}

void CommandLineTest::the_first_of_several_errors_is_told()
{
    const CommandLine commandLine = parse(QStringLiteral("--seed x --port y"));
    QVERIFY(commandLine.action() == CommandLine::Action::Fail);
    QVERIFY(commandLine.text().contains(QLatin1String("\"y\"")));
    QVERIFY(!commandLine.text().contains(QLatin1String("\"x\"")));
}

TEST_WITHOUT_WINDOWS(CommandLineTest)

} // namespace command_line_test

#include "CommandLineTest.moc"
