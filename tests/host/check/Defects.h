// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TESTS_HOST_CHECK_DEFECTS_H
#define TESTS_HOST_CHECK_DEFECTS_H

#include "tests/host/ProgramRun.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

/// What the tests of device-plugin-check share: plugins, and what it finds in them.
namespace defects {

/// A plugin with one defect, and how it is found.
struct Defect
{
    const char* plugin;  ///< its file, without ".so"
    const char* test;    ///< which finds it
    const char* status;  ///< how that ends
    const char* message; ///< what it says, among other things
    const char* effort = "1";
};

inline QString brokenPlugin(const QString& name)
{
    return QStringLiteral(BROKEN_PLUGIN_FOLDER "/%1.so").arg(name);
}

/// A run with a JSON report, which is in @p report.
inline program_run::Result check(const QStringList& arguments, QJsonObject* report)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("report.json");
    const program_run::Result result =
        program_run::run(CHECK_FILE, QStringList{"--json", file, "--seed", "1"} + arguments,
                         program_run::environmentIn(folder), folder.path());
    QFile json(file);
    if (json.open(QIODevice::ReadOnly))
        *report = QJsonDocument::fromJson(json.readAll()).object();
    return result;
}

/// How the defect was found, if not as it should be; empty where all is well.
inline QString fault(const Defect& defect)
{
    QJsonObject report;
    const bool isToHang = QLatin1String(defect.status) == QLatin1String("timed out");
    check({"--level", "10", "--only", defect.test, "--timeout", isToHang ? "2" : "40", "--widget",
           "dialog", "--effort", defect.effort, brokenPlugin(defect.plugin)},
          &report);
    const QJsonArray tests = report.value("tests").toArray();
    for (const auto& test : tests) {
        const QJsonObject found = test.toObject();
        if (found.value("status").toString() == defect.status &&
            found.value("message").toString().contains(defect.message))
            return {};
    }
    return defect.plugin + QStringLiteral(": ") + QString::fromUtf8(QJsonDocument(report).toJson());
}

} // namespace defects

#endif
