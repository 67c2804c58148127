// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_PLAYER_H
#define HOST_WORKBENCH_SCRIPT_PLAYER_H

#include "host/workbench/script/Command.h"
#include "host/workbench/script/text/ScriptText.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <vector>

namespace host::workbench::script {

/// Has a script's statements carried out one after another, in turns of the event loop, so that
/// menus and dialogs run as ever. A statement that has to wait has the time that it asks for.
class Player : public QObject
{
    Q_OBJECT

public:
    /// What became of a part of the script: of what follows a statement "step".
    struct Step
    {
        QString name;
        std::chrono::milliseconds duration{};
        QString problem; ///< empty: it passed
        bool isSkipped = false;
    };

    /// For a statement that does not say how long it may take.
    static constexpr std::chrono::seconds patience{30};

    /// What scripts can say.
    static text::Grammar grammar();

    /// @p scene and @p script outlive the player. @p name is the script's in problems.
    Player(Scene& scene, const text::ScriptText& script, const QString& name);

    /// Shows the window that is open, and begins.
    void start();

    /// Makes it fail at the statement under way.
    void interrupt();

    const std::vector<Step>& steps() const { return m_steps; }

    /// Why it failed, with the line of the script; empty where all passed.
    const QString& problem() const { return m_problem; }

Q_SIGNALS:
    /// Once; nothing of the script is under way any more.
    void finished();

private:
    static Commands commands();
    void begin();
    void proceed();
    void enter(const QString& step);
    void finish(const QString& problem);

    Scene& m_scene;
    const std::vector<text::Statement>& m_statements;
    const QString m_name;
    const Commands m_commands;
    std::size_t m_next = 0; // the statement under way is the one before
    Attempt m_attempt;
    QDeadlineTimer m_deadline;
    QTimer m_timer;
    QElapsedTimer m_stepTime;
    std::vector<Step> m_steps;
    QString m_problem;
};

} // namespace host::workbench::script

#endif
