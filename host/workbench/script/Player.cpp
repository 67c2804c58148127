// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/script/Player.h"

#include "host/workbench/script/ActionCommands.h"
#include "host/workbench/script/ConnectionCommands.h"
#include "host/workbench/script/DeviceCommands.h"
#include "host/workbench/script/ExpectCommands.h"
#include "host/workbench/script/InputCommands.h"
#include "host/workbench/script/MenuCommands.h"
#include "host/workbench/script/Scene.h"
#include "host/workbench/script/SceneCommands.h"

#include <cmath>

namespace host::workbench::script {

using namespace std::chrono_literals;

namespace {

constexpr auto pause = 10ms; // between two looks: no state of a plugin is as short

QString expected(const QString& name, const QString& value)
{
    bool isNumber = false;
    const double seconds = value.toDouble(&isNumber);
    if (name == "SECONDS" && !(isNumber && seconds > 0 && std::isfinite(seconds)))
        return Player::tr("a number of seconds above 0");
    for (const auto check : {&ConnectionCommands::expected, &DeviceCommands::expected,
                             &ExpectCommands::expected, &InputCommands::expected}) {
        QString words = check(name, value);
        if (!words.isEmpty())
            return words;
    }
    return {};
}

} // namespace

Commands Player::commands()
{
    Commands commands;
    for (const Commands& group :
         {SceneCommands::all(), ConnectionCommands::all(), InputCommands::all(),
          MenuCommands::all(), ActionCommands::all(), DeviceCommands::all(), ExpectCommands::all()})
        commands.insert(commands.end(), group.begin(), group.end());
    return commands;
}

text::Grammar Player::grammar()
{
    text::Grammar grammar{{}, expected};
    for (const Command& command : commands())
        grammar.forms.emplace_back(QString(command.form) + " [within SECONDS]");
    return grammar;
}

Player::Player(Scene& scene, const text::ScriptText& script, const QString& name)
    : m_scene(scene),
      m_statements(script.statements()),
      m_name(name),
      m_commands(commands())
{
    m_timer.setInterval(pause);
    connect(&m_timer, &QTimer::timeout, this, &Player::proceed);
}

void Player::start()
{
    enter(m_name);
    m_attempt = SceneCommands::showWindow(m_scene);
    m_deadline = QDeadlineTimer(patience);
    m_timer.start();
}

void Player::interrupt()
{
    if (m_timer.isActive())
        finish(tr("it was interrupted"));
}

void Player::begin()
{
    const text::Statement& statement = m_statements[m_next++];
    const Command& command = m_commands[static_cast<std::size_t>(statement.form)];
    const Arguments arguments = m_scene.expand(statement.arguments);
    const bool isTimed = arguments.has("within");
    const std::chrono::duration<double> asked(arguments.value("SECONDS").toDouble());
    m_deadline =
        QDeadlineTimer(isTimed ? std::chrono::ceil<std::chrono::milliseconds>(asked) : patience);
    if (arguments.has("step"))
        enter(arguments.value("NAME"));
    if (command.kind == Command::Kind::Act)
        m_scene.mark();
    m_attempt = command.begin(m_scene, arguments);
}

void Player::proceed()
{
    if (!m_attempt) {
        if (m_next == m_statements.size())
            return finish({});
        begin();
    }
    const Progress progress = m_attempt();
    if (progress.state == Progress::State::Done)
        m_attempt = {};
    else if (progress.state == Progress::State::Failed || m_deadline.hasExpired())
        finish(progress.words);
}

void Player::enter(const QString& step)
{
    if (!m_steps.empty()) {
        m_steps.back().duration = std::chrono::milliseconds(m_stepTime.elapsed());
        // What stands before the first step is a part of its own only if there is something.
        if (m_steps.size() == 1 && m_next == 1)
            m_steps.clear();
    }
    m_steps.push_back({step, {}, {}, false});
    m_stepTime.start();
}

void Player::finish(const QString& problem)
{
    m_timer.stop();
    m_attempt = {};
    InputCommands::release(m_scene);
    m_steps.back().duration = std::chrono::milliseconds(m_stepTime.elapsed());
    if (!problem.isEmpty()) {
        m_problem = m_next == 0 ? QStringLiteral("%1: %2").arg(m_name, problem)
                                : QStringLiteral("%1:%2: %3: %4")
                                      .arg(m_name, QString::number(m_statements[m_next - 1].line),
                                           m_statements[m_next - 1].text, problem);
        m_steps.back().problem = m_problem;
        for (std::size_t i = m_next; i < m_statements.size(); ++i) {
            const Arguments& arguments = m_statements[i].arguments;
            if (arguments.has("step"))
                m_steps.push_back({arguments.value("NAME"), {}, {}, true});
        }
    }
    Q_EMIT finished();
}

} // namespace host::workbench::script
