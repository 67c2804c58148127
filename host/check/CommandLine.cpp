// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/CommandLine.h"

#include "host/check/tests/AllTests.h"
#include "host/check/tests/PersonTests.h"
#include "host/input/ActionFile.h"
#include "robot/InfoOptions.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>

#include <algorithm>
#include <limits>

namespace host::check {

namespace {

using tests::allTests;
using tests::highestLevel;
using tests::Test;

constexpr qint64 mostSeconds = 86400;
const QString runOne = QStringLiteral("--run-one"); // the first option of such a call

bool matches(const QStringList& patterns, const char* name)
{
    return std::any_of(patterns.begin(), patterns.end(), [&](const QString& pattern) {
        return QRegularExpression(QRegularExpression::wildcardToRegularExpression(pattern))
            .match(QLatin1String(name))
            .hasMatch();
    });
}

QCommandLineOption hidden(const QString& name)
{
    QCommandLineOption option(name, QString(), name);
    option.setFlags(QCommandLineOption::HiddenFromHelp);
    return option;
}

} // namespace

bool CommandLine::isForOneTest(const QStringList& arguments)
{
    return arguments.value(1) == runOne;
}

CommandLine::CommandLine(const QStringList& arguments)
{
    read(arguments);
}

void CommandLine::read(const QStringList& arguments)
{
    const QCommandLineOption device(
        "device",
        "Ask the plugin for the widgets of device NAME (default: what it says of itself).", "NAME");
    const QCommandLineOption widget("widget",
                                    "Check the plugin's widget NAME (default: \"toolbar\" and "
                                    "\"dialog\", of which one is enough). Can be repeated.",
                                    "NAME");
    const QCommandLineOption spare("spare",
                                   "Give the variable NAME only values as sound devices have "
                                   "them. Can be repeated.",
                                   "NAME");
    const QCommandLineOption level("level",
                                   QStringLiteral("How much is asked of the plugin, 1 to %1; each "
                                                  "level has the ones below it (default: %2).")
                                       .arg(highestLevel)
                                       .arg(usualLevel),
                                   "NUMBER");
    const QCommandLineOption seed(
        "seed", "Seed of all that is drawn at random, 0 to 4294967295 (default: random).",
        "NUMBER");
    const QCommandLineOption timeout(
        "timeout",
        QStringLiteral("How long a test may take, in seconds (default: %1).").arg(usualTimeout),
        "SECONDS");
    const QCommandLineOption effort(
        "effort",
        QStringLiteral("How much of what tests repeat often is done, in percent, 1 to %1 "
                       "(default: all).")
            .arg(wholeEffort),
        "PERCENT");
    const QCommandLineOption recording(
        "recording", "Play FILE, a recording of the plugin at work, in a test of level 10.",
        "FILE");
    const QCommandLineOption json("json", "Write the results to FILE, as JSON.", "FILE");
    const QCommandLineOption junit("junit", "Write the results to FILE, as JUnit's XML.", "FILE");
    const QCommandLineOption only(
        "only", "Run only the tests whose names match PATTERN, as in 'load*'. Can be repeated.",
        "PATTERN");
    const QCommandLineOption skip(
        "skip", "Leave out the tests whose names match PATTERN. Can be repeated.", "PATTERN");
    const QCommandLineOption reproduce(
        "reproduce", "Do again what is in FILE, which a run has written where it failed.", "FILE");
    const QCommandLineOption list("list", "List the tests with their levels, and exit.");
    const QCommandLineOption test = hidden(runOne.mid(2));
    const QCommandLineOption result = hidden("result");
    const robot::InfoOptions info;

    QCommandLineParser parser;
    parser.setApplicationDescription("Holds a device plugin against what hosts rely on.");
    parser.addOptions({device, widget, spare, level, seed, timeout, effort, recording, json, junit,
                       only, skip, reproduce, list, test, result});
    info.addTo(parser);
    parser.addPositionalArgument("FILE", "The plugin: a shared library.");
    if (!parser.parse(arguments))
        return finish(Action::Fail, parser.errorText());
    const QString text = info.text(parser);
    if (!text.isEmpty())
        return finish(Action::ShowText, text);
    for (const QCommandLineOption& option :
         {device, widget, spare, recording, json, junit, only, skip, reproduce}) {
        if (parser.values(option).contains(QString()))
            finish(Action::Fail,
                   QStringLiteral("--%1: the value is empty").arg(option.names().first()));
    }

    m_device = parser.value(device);
    m_areWidgetsNamed = parser.isSet(widget);
    if (m_areWidgetsNamed)
        m_widgets = parser.values(widget);
    m_sparedVariables = parser.values(spare);
    m_level = static_cast<int>(number(parser, "level", usualLevel, 1, highestLevel));
    m_seed = static_cast<quint32>(number(parser, "seed", QRandomGenerator::global()->generate(), 0,
                                         std::numeric_limits<quint32>::max()));
    m_timeout = static_cast<int>(number(parser, "timeout", usualTimeout, 1, mostSeconds));
    m_effort = static_cast<int>(number(parser, "effort", wholeEffort, 1, wholeEffort));
    m_recording = parser.value(recording);
    m_jsonFile = parser.value(json);
    m_junitFile = parser.value(junit);
    m_only = parser.values(only);
    m_skip = parser.values(skip);
    m_reproducedFile = parser.value(reproduce);
    m_test = parser.value(test);
    m_resultFile = parser.value(result);
    if (parser.isSet(list)) {
        if (!parser.isSet(level))
            m_level = highestLevel;
        return finish(Action::ShowText, this->list());
    }
    readFile(parser.positionalArguments());
    if (parser.isSet(recording))
        readRecording();
    if (parser.isSet(reproduce) && m_test.isEmpty())
        readReproduced();
}

void CommandLine::finish(Action action, const QString& text)
{
    if (m_action != Action::Check)
        return; // the first error is the one to tell
    m_action = action;
    m_text = text;
}

void CommandLine::readFile(const QStringList& arguments)
{
    const QFileInfo file(arguments.value(0));
    m_file = file.absoluteFilePath();
    if (arguments.value(0).isEmpty())
        finish(Action::Fail, QStringLiteral("FILE is missing: name the plugin"));
    else if (arguments.size() > 1)
        finish(Action::Fail, QStringLiteral("unexpected argument \"%1\"").arg(arguments.at(1)));
    else if (!file.isFile() || !file.isReadable())
        finish(Action::Fail, QStringLiteral("%1: there is no such file, or it cannot be read")
                                 .arg(arguments.first()));
}

void CommandLine::readRecording()
{
    const QFileInfo file(m_recording);
    if (!file.isFile() || !file.isReadable())
        finish(Action::Fail,
               QStringLiteral("--recording: %1: there is no such file, or it cannot be read")
                   .arg(m_recording));
    m_recording = file.absoluteFilePath(); // tests run in another folder
}

void CommandLine::readReproduced()
{
    const QFileInfo file(m_reproducedFile);
    const auto content = input::ActionFile::read(m_reproducedFile);
    if (!content)
        return finish(
            Action::Fail,
            QStringLiteral("--reproduce: %1 is not a list of actions that a run has written")
                .arg(m_reproducedFile));
    m_reproducedFile = file.absoluteFilePath();
    m_widgets = QStringList{content->widget};
    m_only = QStringList{tests::monkey};
    m_level = highestLevel;
}

qint64 CommandLine::number(const QCommandLineParser& parser, const QString& option, qint64 usual,
                           qint64 least, qint64 most)
{
    if (!parser.isSet(option))
        return usual;
    bool isNumber = false;
    const qint64 number = parser.value(option).toLongLong(&isNumber);
    if (isNumber && number >= least && number <= most)
        return number;
    finish(Action::Fail,
           QStringLiteral("--%1: \"%2\" is not a number from %3 to %4")
               .arg(option, parser.value(option), QString::number(least), QString::number(most)));
    return usual;
}

bool CommandLine::isWanted(const Test& test) const
{
    return test.level <= m_level && (m_only.isEmpty() || matches(m_only, test.name));
}

bool CommandLine::isSkipped(const Test& test) const
{
    return matches(m_skip, test.name);
}

QString CommandLine::list() const
{
    QStringList lines;
    for (const Test& test : allTests()) {
        if (isWanted(test) && !isSkipped(test))
            lines << QStringLiteral("%1  %2  %3")
                         .arg(test.level, 2)
                         .arg(QLatin1String(test.name), -22)
                         .arg(QLatin1String(test.demand));
    }
    return lines.join('\n');
}

} // namespace host::check
