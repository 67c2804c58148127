// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/script/SceneCommands.h"

#include "host/device/Device.h"
#include "host/workbench/script/Controls.h"
#include "host/workbench/script/InputCommands.h"
#include "host/workbench/script/Scene.h"
#include "host/workbench/script/Stage.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/Window.h"
#include "olm/qt/replaceFile.h"

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QTextStream>

namespace host::workbench::script {

namespace {

constexpr QSize windowSize(1000, 640);

} // namespace

Commands SceneCommands::all()
{
    using Kind = Command::Kind;
    return {
        {"step NAME", Kind::Look,
         [](Scene&, const Arguments&) { return Attempt([] { return Progress::done(); }); }},
        {"restart [OPTION…]", Kind::Look, restart},
        {"device NAME", Kind::Look, chooseDevice},
        {"picture FILE [of CONTROL]", Kind::Look, takePicture},
        {"record FILE", Kind::Look, record},
        {"stop recording", Kind::Look, stopRecording},
    };
}

Attempt SceneCommands::restart(Scene& scene, const Arguments& arguments)
{
    Progress closed = Controls::topmost()
                          ? Progress::failed(tr("a menu or a dialog is open; close it first"))
                          : Progress::done();
    if (closed.state == Progress::State::Failed)
        return [closed] { return closed; };
    InputCommands::release(scene);
    const QString problem = scene.stage().open(arguments.values("OPTION"));
    if (!problem.isEmpty())
        return [problem] { return Progress::failed(problem); };
    return showWindow(scene);
}

Attempt SceneCommands::showWindow(Scene& scene)
{
    scene.begin();
    window::Window& window = scene.window();
    window.resize(windowSize); // whatever the screen
    window.show();
    window.activateWindow();
    return [&scene] {
        return Controls::isOnScreen(scene.window())
                   ? Progress::done()
                   : Progress::waiting(tr("the window does not appear on the screen"));
    };
}

Attempt SceneCommands::chooseDevice(Scene& scene, const Arguments& arguments)
{
    Progress progress = Progress::done();
    if (!scene.choose(arguments.value("NAME"))) {
        QStringList names;
        for (const window::DeviceView* view : scene.window().views())
            names << view->device().name();
        progress =
            Progress::failed(tr("there is no such device; there are: %1").arg(names.join(", ")));
    }
    return [progress] { return progress; };
}

Attempt SceneCommands::record(Scene& scene, const Arguments& arguments)
{
    QString error;
    const bool isBegun =
        scene.device().recorder().start(scene.outputFile(arguments.value("FILE")), &error);
    return [progress = isBegun ? Progress::done() : Progress::failed(error)] { return progress; };
}

Attempt SceneCommands::stopRecording(Scene& scene, const Arguments&)
{
    scene.device().recorder().stop();
    return [] { return Progress::done(); };
}

/// What is open above the window, a menu or a dialog, is in its picture, too.
Attempt SceneCommands::takePicture(Scene& scene, const Arguments& arguments)
{
    const QString path = scene.outputFile(arguments.value("FILE"));
    return [&scene, arguments, path] {
        QString problem;
        QWidget* const part = arguments.has("of")
                                  ? Controls::find(scene, arguments.value("CONTROL"), {}, &problem)
                                  : nullptr;
        if (!problem.isEmpty())
            return Progress::waiting(problem);
        QWidget& shown = part ? *part : scene.window();
        if (!Controls::isOnScreen(*shown.window()))
            return Progress::waiting(tr("the window is not on the screen"));
        QCoreApplication::sendPostedEvents(); // what widgets are still to be told
        QPixmap picture = shown.grab();
        if (!part) {
            for (QWidget* above :
                 {QApplication::activeModalWidget(), QApplication::activePopupWidget()}) {
                if (above)
                    paintOver(picture, shown, *above);
            }
        }
        return save(picture, path);
    };
}

/// With the frame and the title that a screen would give a dialog.
void SceneCommands::paintOver(QPixmap& picture, const QWidget& window, QWidget& widget)
{
    QPainter painter(&picture);
    const QRect place(window.mapFromGlobal(widget.mapToGlobal(QPoint())), widget.size());
    if (!qobject_cast<QMenu*>(&widget)) {
        const QPalette& palette = widget.palette();
        const int height = widget.fontMetrics().height() + 8;
        painter.setPen(palette.color(QPalette::Shadow));
        painter.setBrush(palette.dark());
        painter.drawRect(place.adjusted(-1, -height - 1, 0, 0));
        painter.setPen(palette.color(QPalette::BrightText));
        painter.drawText(QRect(place.left(), place.top() - height, place.width(), height),
                         Qt::AlignCenter,
                         widget.fontMetrics().elidedText(widget.windowTitle(), Qt::ElideRight,
                                                         place.width() - 8));
    }
    painter.drawPixmap(place.topLeft(), widget.grab());
}

Progress SceneCommands::save(const QPixmap& picture, const QString& path)
{
    QByteArray png;
    QBuffer buffer(&png);
    picture.save(&buffer, "PNG");
    QDir().mkpath(QFileInfo(path).path()); // if that fails, so does the next
    const QString error = olm::qt::replaceFile(path, png);
    if (!error.isEmpty())
        return Progress::failed(tr("%1 cannot be written: %2").arg(path, error));
    QTextStream(stdout) << path << '\n';
    return Progress::done();
}

} // namespace host::workbench::script
