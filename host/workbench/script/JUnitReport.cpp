// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/script/JUnitReport.h"

#include <QXmlStreamWriter>

#include <algorithm>

namespace host::workbench::script {

namespace {

QString seconds(std::chrono::milliseconds time)
{
    return QString::number(std::chrono::duration<double>(time).count(), 'f', 3);
}

} // namespace

QByteArray junitReport(const QString& suite, const std::vector<Player::Step>& steps)
{
    const auto count = [&](auto isCounted) {
        return QString::number(std::count_if(steps.begin(), steps.end(), isCounted));
    };
    std::chrono::milliseconds duration{};
    for (const Player::Step& step : steps)
        duration += step.duration;
    QByteArray xml;
    QXmlStreamWriter writer(&xml);
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    writer.writeStartElement("testsuite");
    writer.writeAttribute("name", suite);
    writer.writeAttribute("tests", count([](const Player::Step&) { return true; }));
    writer.writeAttribute("failures",
                          count([](const Player::Step& step) { return !step.problem.isEmpty(); }));
    writer.writeAttribute("errors", "0");
    writer.writeAttribute("skipped",
                          count([](const Player::Step& step) { return step.isSkipped; }));
    writer.writeAttribute("time", seconds(duration));
    for (const Player::Step& step : steps) {
        writer.writeStartElement("testcase");
        writer.writeAttribute("classname", suite);
        writer.writeAttribute("name", step.name);
        writer.writeAttribute("time", seconds(step.duration));
        if (!step.problem.isEmpty()) {
            writer.writeStartElement("failure");
            writer.writeAttribute("message", step.problem);
            writer.writeEndElement();
        }
        if (step.isSkipped)
            writer.writeEmptyElement("skipped");
        writer.writeEndElement();
    }
    writer.writeEndElement();
    writer.writeEndDocument();
    return xml;
}

} // namespace host::workbench::script
