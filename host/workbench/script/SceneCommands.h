// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_SCENECOMMANDS_H
#define HOST_WORKBENCH_SCRIPT_SCENECOMMANDS_H

#include "host/workbench/script/Command.h"

#include <QCoreApplication>

class QPixmap;
class QWidget;

namespace host::workbench::script {

/// What the script is about, and what it keeps of that: the window and its pictures.
class SceneCommands
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::script::SceneCommands)

public:
    static Commands all();

    /// Shows the window that the stage has opened, in the size that all pictures have.
    static Attempt showWindow(Scene& scene);

private:
    static Attempt restart(Scene& scene, const Arguments& arguments);
    static Attempt chooseDevice(Scene& scene, const Arguments& arguments);
    static Attempt record(Scene& scene, const Arguments& arguments);
    static Attempt stopRecording(Scene& scene, const Arguments& arguments);
    static Attempt takePicture(Scene& scene, const Arguments& arguments);
    static void paintOver(QPixmap& picture, const QWidget& window, QWidget& widget);
    static Progress save(const QPixmap& picture, const QString& path);
};

} // namespace host::workbench::script

#endif
