// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/tests/PersonTests.h"

#include "host/check/stage/Complaints.h"
#include "host/check/stage/Controls.h"
#include "host/check/stage/Coverage.h"
#include "host/check/stage/Failure.h"
#include "host/check/stage/Monkey.h"
#include "host/check/stage/Progress.h"
#include "host/check/stage/Stage.h"
#include "host/check/stage/Subject.h"
#include "host/input/ActionFile.h"
#include "host/input/ControlPath.h"

#include <QTimer>

#include <optional>

namespace host::check::tests {

namespace {

using stage::Action;
using stage::ActionList;
using stage::fail;
using stage::Progress;
using stage::settle;
using stage::Stage;
using stage::Subject;

/// Plays the list that is to be reproduced, or else what it draws.
void standsAMonkey(Subject& subject)
{
    constexpr int actions = 100000;
    const std::optional<ActionList>& given = subject.actions();
    Stage stage(subject);
    stage.host().welcome();
    stage.show();
    stage::Coverage coverage(*stage.widget());
    input::ActionFile journal(subject.journal(), QString::fromLatin1(subject.widget()));
    const std::size_t count =
        given ? given->size() : static_cast<std::size_t>(subject.share(actions));
    std::size_t done = 0;
    stage::Monkey monkey(stage, [&]() -> std::optional<Action> {
        coverage.look();
        if (done >= count || !subject.complaints().all().isEmpty())
            return std::nullopt;
        const Action action =
            given ? given->at(done) : stage::drawFromScreen(stage, subject.random());
        ++done;
        journal.add(action);
        coverage.noteControl(action.target);
        return action;
    });
    monkey.run();
    settle();
    if (!stage.widget())
        fail(QStringLiteral("deletes its widget, which belongs to its host"));
    if (stage.host().isInTransaction())
        fail(QStringLiteral("is still in a transaction when everything is closed"));
    subject.remark(
        QStringLiteral("%1, in %2 actions").arg(coverage.inWords(), QString::number(done)));
}

/// What opens something, and is still open when the widget goes.
void diesWithWhatIsOpen(Subject& subject)
{
    constexpr int patience = 20; // ms until what an action opens is open
    QStringList paths;
    {
        Stage stage(subject);
        stage.host().welcome();
        stage.show();
        stage::forEachPage(*stage.widget(), [&] {
            for (const QWidget* widget : stage.widget()->findChildren<QWidget*>()) {
                const QString path = input::pathOf(*widget, *stage.widget());
                if (widget->isVisible() && widget->isEnabled() && !paths.contains(path))
                    paths << path;
            }
        });
    }
    constexpr int most = 40; // controls: enough for each kind
    for (const QString& path : paths.mid(0, most)) {
        for (const char* verb : {"click", "right-click", "double-click"}) {
            const Action action{QLatin1String(verb), path, QStringLiteral("8,8")};
            Progress::note(QStringLiteral("its widget was deleted with what this opens: ") +
                           action.inWords());
            Stage stage(subject);
            stage.host().welcome();
            stage.show();
            QTimer::singleShot(patience, [&stage] { stage.strike(); });
            stage::perform(action, stage);
            while (stage.widget())
                stage::wait(1);
            settle();
        }
    }
}

} // namespace

Tests personTests()
{
    constexpr auto widget = Test::Scope::Widget;
    return {
        {monkey, 6, widget, standsAMonkey, "stands whatever a person does, drawn from the seed", 1,
         5},
        {"deletion-open", 6, widget, diesWithWhatIsOpen,
         "can be deleted while a menu, a list, an editor or a dialog is open"},
    };
}

} // namespace host::check::tests
