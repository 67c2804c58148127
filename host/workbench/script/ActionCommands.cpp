// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/script/ActionCommands.h"

#include "host/input/ActionFile.h"
#include "host/workbench/script/Gesture.h"
#include "host/workbench/script/Scene.h"
#include "host/workbench/window/DeviceView.h"
#include "plugin/gui/DeviceWidget.h"

#include <QPointer>
#include <QToolBar>

#include <memory>

namespace host::workbench::script {

namespace {

/// A list that is under way.
struct Playing
{
    input::ActionFile::Content content;
    std::size_t next = 0;
    Attempt begun; // the next one, once its control is there
};

bool isInToolBar(const QWidget* widget)
{
    while (widget && !qobject_cast<const QToolBar*>(widget))
        widget = widget->parentWidget();
    return widget != nullptr;
}

} // namespace

Commands ActionCommands::all()
{
    return {{"actions FILE", Command::Kind::Act, play}};
}

/// Of the device that the statements are about; null where there is none.
QWidget* ActionCommands::pluginWidget(const Scene& scene, const QString& name)
{
    for (QWidget* widget : scene.view().findChildren<QWidget*>()) {
        if (dynamic_cast<::plugin::gui::DeviceWidget*>(widget) &&
            isInToolBar(widget) == (name == QLatin1String("toolbar")))
            return widget;
    }
    return nullptr;
}

/// One after the other, each when its control can be seen.
Attempt ActionCommands::play(Scene& scene, const Arguments& arguments)
{
    const auto content = input::ActionFile::read(arguments.value("FILE"));
    if (!content)
        return [] {
            return Progress::failed(
                tr("it is no list of actions that device-plugin-check has written"));
        };
    const auto playing = std::make_shared<Playing>(Playing{*content, 0, {}});
    return [&scene, playing] {
        const input::ActionList& actions = playing->content.actions;
        while (playing->next < actions.size()) {
            const input::Action& action = actions[playing->next];
            if (!playing->begun) {
                QWidget* const screen =
                    input::screenAbove(pluginWidget(scene, playing->content.widget));
                QWidget* const control = screen ? input::controlOf(action, *screen) : nullptr;
                if (!control)
                    return Progress::waiting(
                        tr("this cannot be done, since its control is not in sight: %1")
                            .arg(action.inWords()));
                playing->begun = Gesture([action, control = QPointer<QWidget>(control)] {
                    if (control)
                        input::perform(action, *control);
                });
            }
            Progress progress = playing->begun();
            if (progress.state != Progress::State::Done)
                return progress;
            playing->begun = nullptr;
            ++playing->next;
        }
        return Progress::done();
    };
}

} // namespace host::workbench::script
