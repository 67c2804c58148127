// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TESTS_HOST_PROGRAMRUN_H
#define TESTS_HOST_PROGRAMRUN_H

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A program, started as a person starts it.
namespace program_run {

inline constexpr int runPatience = 200000; // ms, less than CTest's

struct Result
{
    int status = -1; // -1 where it crashed or did not end
    QString out;
    QString err;
};

/// The environment of a person with a display, and settings that are nobody's.
inline QProcessEnvironment environmentIn(const QTemporaryDir& home)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("XDG_DATA_HOME", home.path());
    environment.insert("XDG_RUNTIME_DIR", home.path()); // Qt warns of a machine that has none
    return environment;
}

inline Result run(const QString& file, const QStringList& arguments,
                  const QProcessEnvironment& environment, const QString& folder = QString())
{
    QProcess program;
    program.setProcessEnvironment(environment);
    program.setWorkingDirectory(folder);
    program.start(file, arguments);
    Result result;
    if (program.waitForFinished(runPatience) && program.exitStatus() == QProcess::NormalExit)
        result.status = program.exitCode();
    result.out = QString::fromLocal8Bit(program.readAllStandardOutput());
    result.err = QString::fromLocal8Bit(program.readAllStandardError());
    return result;
}

inline Result run(const QString& file, const QStringList& arguments)
{
    const QTemporaryDir home;
    return run(file, arguments, environmentIn(home));
}

inline void removeDisplay(QProcessEnvironment& environment)
{
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(name);
}

} // namespace program_run

#endif
