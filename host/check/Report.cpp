// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/Report.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <QXmlStreamWriter>

#include <algorithm>

namespace host::check {

namespace {

QStringList namesOf(const Results& results, Status status)
{
    QStringList names;
    for (const Result& result : results.tests) {
        if (result.status == status)
            names << result.name();
    }
    return names;
}

/// XML has no place for most control characters, not even escaped.
QString printable(QString text)
{
    std::replace_if(
        text.begin(), text.end(),
        [](QChar c) { return c < QLatin1Char(' ') && c != QLatin1Char('\n'); }, QLatin1Char('?'));
    return text;
}

QString seconds(double time)
{
    return QString::number(time, 'f', 3);
}

} // namespace

QString summary(const Results& results)
{
    QStringList lines;
    const auto tell = [&](const auto& isTold) {
        for (const Result& result : results.tests) {
            if (isTold(result))
                lines << QStringLiteral("%1: %2: %3")
                             .arg(result.name(), inWords(result.status), result.message);
        }
    };
    tell([](const Result& result) {
        return result.status != Status::Passed && result.status != Status::Skipped;
    });
    tell([](const Result& result) { return result.status == Status::Skipped; });
    tell([](const Result& result) {
        return result.status == Status::Passed && !result.message.isEmpty();
    });
    QStringList counts;
    for (const Status status :
         {Status::Passed, Status::Failed, Status::Crashed, Status::TimedOut, Status::Skipped}) {
        const int count = results.count(status);
        if (count == 0 && status != Status::Passed)
            continue;
        QString words = QStringLiteral("%1 %2").arg(QString::number(count), inWords(status));
        if (status == Status::Skipped)
            words += QStringLiteral(" (%1)").arg(namesOf(results, status).join(", "));
        counts << words;
    }
    lines << QStringLiteral("%1: %2: %3; level %4, seed %5")
                 .arg(inWords(results.verdict()), QFileInfo(results.plugin).fileName(),
                      counts.join(", "), QString::number(results.level),
                      QString::number(results.seed));
    return lines.join('\n');
}

QByteArray toJson(const Results& results)
{
    QJsonArray tests;
    for (const Result& result : results.tests) {
        tests.append(QJsonObject{{"name", result.test},
                                 {"level", result.level},
                                 {"widget", result.widget},
                                 {"status", inWords(result.status)},
                                 {"message", result.message},
                                 {"seconds", result.seconds}});
    }
    return QJsonDocument(QJsonObject{{"plugin", results.plugin},
                                     {"seed", static_cast<qint64>(results.seed)},
                                     {"level", results.level},
                                     {"verdict", inWords(results.verdict())},
                                     {"tests", tests}})
        .toJson();
}

QByteArray toJunit(const Results& results)
{
    const int errors = results.count(Status::Crashed) + results.count(Status::TimedOut);
    double total = 0;
    for (const Result& result : results.tests)
        total += result.seconds;

    QByteArray xml;
    QXmlStreamWriter writer(&xml);
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    writer.writeStartElement("testsuite");
    writer.writeAttribute("name", printable(QFileInfo(results.plugin).fileName()));
    writer.writeAttribute("tests", QString::number(results.tests.size()));
    writer.writeAttribute("failures", QString::number(results.count(Status::Failed)));
    writer.writeAttribute("errors", QString::number(errors));
    writer.writeAttribute("skipped", QString::number(results.count(Status::Skipped)));
    writer.writeAttribute("time", seconds(total));
    writer.writeStartElement("properties");
    writer.writeEmptyElement("property");
    writer.writeAttribute("name", "seed");
    writer.writeAttribute("value", QString::number(results.seed));
    writer.writeEndElement();
    for (const Result& result : results.tests) {
        writer.writeStartElement("testcase");
        writer.writeAttribute("classname", QStringLiteral("level%1").arg(result.level));
        writer.writeAttribute("name", printable(result.name()));
        writer.writeAttribute("time", seconds(result.seconds));
        if (result.status != Status::Passed) {
            const bool isError =
                result.status == Status::Crashed || result.status == Status::TimedOut;
            writer.writeEmptyElement(result.status == Status::Skipped ? "skipped"
                                     : isError                        ? "error"
                                                                      : "failure");
            writer.writeAttribute("message", printable(result.message));
        }
        writer.writeEndElement();
    }
    writer.writeEndDocument();
    return xml;
}

} // namespace host::check
