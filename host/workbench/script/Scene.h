// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_SCENE_H
#define HOST_WORKBENCH_SCRIPT_SCENE_H

#include "host/device/trace/Traffic.h"
#include "host/workbench/script/text/Form.h"

#include <QPoint>
#include <QPointer>
#include <QString>

namespace host::device {
class Device;
}

namespace host::workbench::window {
class DeviceView;
class Window;
} // namespace host::workbench::window

namespace host::workbench::script {

class Stage;

using text::Arguments;

/// What the statements of a script are about: the window, the device of the moment, and what the
/// earlier ones left.
class Scene
{
public:
    /// @p stage outlives the scene. Pictures go to the folder @p output; @p folder is the
    /// script's.
    Scene(Stage& stage, const QString& output, const QString& folder);

    Stage& stage() const { return m_stage; }
    window::Window& window() const;
    /// Of the device that the statements are about.
    window::DeviceView& view() const;
    device::Device& device() const;

    /// From now on the statements are about the device @p name. False where there is none.
    bool choose(const QString& name);
    /// A new window is open: the statements are about its first device.
    void begin();

    /// @p arguments with $robot, $folder and $output as they are at the moment.
    Arguments expand(const Arguments& arguments) const;
    QString outputFile(const QString& name) const;

    /// What the plugin does from now on counts as done by the statement.
    void mark();
    /// The first call since then.
    device::trace::Traffic::Number marked() const;

    /// Where the mouse button is held down, if it is.
    struct Held
    {
        QPointer<QWidget> widget;
        QPoint place;
    };
    Held held;

private:
    Stage& m_stage;
    QString m_output;
    QString m_folder;
    int m_device = 0;
    device::trace::Traffic::Number m_mark = 0;
};

} // namespace host::workbench::script

#endif
