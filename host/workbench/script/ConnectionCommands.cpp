// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/script/ConnectionCommands.h"

#include "host/device/Device.h"
#include "host/workbench/robotview/RobotFeed.h"
#include "host/workbench/script/Scene.h"
#include "host/workbench/window/DeviceView.h"

#include <QAbstractItemView>
#include <QDockWidget>
#include <QLabel>
#include <QLineF>

#include <memory>

namespace host::workbench::script {

using device::connection::Connection;
using robotview::RobotFeed;

namespace {

/// Of the dock "Robot"; null while that is hidden.
const RobotFeed* feedOf(const Scene& scene)
{
    const auto* const dock = scene.view().findChild<const QDockWidget*>("RobotDock");
    return dock && dock->isVisible() ? dock->findChild<const RobotFeed*>() : nullptr;
}

/// The status line follows at its own pace.
bool isToldOf(const Scene& scene)
{
    const auto* const words = scene.view().findChild<const QLabel*>("status");
    return !words || !words->isVisible() || words->text() == scene.device().status();
}

} // namespace

Commands ConnectionCommands::all()
{
    using Kind = Command::Kind;
    return {
        {"connect [ADDRESS]", Kind::Act, connect},
        {"disconnect", Kind::Act, disconnect},
        {"wait for disconnected", Kind::Look,
         [](Scene& scene, const Arguments&) {
             return waitForState(scene,
                                 [](int state) { return state == Connection::notConnected; });
         }},
        {"wait for connected", Kind::Look,
         [](Scene& scene, const Arguments&) {
             return waitForState(scene, [](int state) { return state == Connection::connected; });
         }},
        {"wait for passive", Kind::Look,
         [](Scene& scene, const Arguments&) {
             return waitForState(scene, [](int state) { return state == Connection::passive; });
         }},
        {"wait for state STATE", Kind::Look,
         [](Scene& scene, const Arguments& arguments) {
             return waitForState(scene, [wanted = arguments.value("STATE").toInt()](int state) {
                 return state == wanted;
             });
         }},
        {"wait for robot", Kind::Look, waitForRobot},
        {"wait for motion METRES", Kind::Look, waitForMotion},
    };
}

QString ConnectionCommands::expected(const QString& name, const QString& value)
{
    bool isNumber = false;
    const int state = value.toInt(&isNumber);
    const bool isState =
        isNumber && state >= Connection::notConnected && state <= Connection::passive;
    if (name == "STATE" && !isState)
        return tr("a number from -1 to 4");
    if (name == "METRES" && !(value.toDouble() > 0))
        return tr("a number above 0");
    return {};
}

Attempt ConnectionCommands::connect(Scene& scene, const Arguments& arguments)
{
    device::Device& device = scene.device();
    if (arguments.has("ADDRESS"))
        device.overrideAddress(arguments.value("ADDRESS"));
    Progress progress =
        device.connectDevice() ? Progress::done() : Progress::failed(device.status());
    return [progress] { return progress; };
}

Attempt ConnectionCommands::disconnect(Scene& scene, const Arguments&)
{
    device::Device& device = scene.device();
    Progress progress =
        device.disconnectDevice() ? Progress::done() : Progress::failed(device.status());
    return [progress] { return progress; };
}

/// Ends early where connecting has failed: nothing more will come of it.
Attempt ConnectionCommands::waitForState(Scene& scene, const std::function<bool(int)>& isMeant)
{
    const auto wasConnecting = std::make_shared<bool>(false);
    return [&scene, isMeant, wasConnecting] {
        device::Device& device = scene.device();
        const int state = device.connectionState();
        const bool isSettled = state == Connection::notConnected || state >= Connection::connected;
        if (isMeant(state))
            return isSettled && !isToldOf(scene)
                       ? Progress::waiting(tr("the status line does not follow"))
                       : Progress::done();
        const bool isOver = state == Connection::notConnected && !device.reconnection().isTrying();
        if (isOver && *wasConnecting && !isMeant(Connection::notConnected))
            return Progress::failed(device.status());
        *wasConnecting = !isOver;
        return Progress::waiting(
            tr("the state is %1: %2").arg(QString::number(state), device.status()));
    };
}

/// The dock "Robot" shows where everything is.
Attempt ConnectionCommands::waitForRobot(Scene& scene, const Arguments&)
{
    return [&scene] {
        const auto* const dock = scene.view().findChild<const QDockWidget*>("RobotDock");
        const RobotFeed* const feed = feedOf(scene);
        if (!feed)
            return Progress::waiting(tr("the dock \"Robot\" is hidden"));
        const auto* const notes = dock->findChild<const QLabel*>("notes"); // what is missing
        if (notes->isVisible())
            return Progress::waiting(notes->text());
        const auto* const parts = dock->findChild<const QAbstractItemView*>("parts");
        const auto isAngle = [parts](int column) {
            return parts->model()->index(0, column).data().toString().contains(QChar(0x00b0));
        };
        const auto& robot = feed->state();
        const bool isComplete =
            isAngle(1) && isAngle(2) && robot.map() && robot.robotPlace() && robot.raysPlace();
        return isComplete ? Progress::done()
                          : Progress::waiting(tr("the dock \"Robot\" does not show everything"));
    };
}

/// Until the robot has moved so far, perhaps back and forth.
Attempt ConnectionCommands::waitForMotion(Scene& scene, const Arguments& arguments)
{
    struct Way
    {
        std::optional<QPointF> last;
        double length = 0;
    };
    const auto way = std::make_shared<Way>();
    return [&scene, way, wanted = arguments.value("METRES").toDouble()] {
        const RobotFeed* const feed = feedOf(scene);
        if (!feed)
            return Progress::waiting(tr("the dock \"Robot\" is hidden"));
        if (const auto& robot = feed->state().robotPlace()) {
            const QPointF now = robot->onFloor().map(QPointF());
            if (way->last)
                way->length += QLineF(*way->last, now).length();
            way->last = now;
        }
        return way->length >= wanted
                   ? Progress::done()
                   : Progress::waiting(tr("it has moved by %1 m").arg(way->length, 0, 'f', 2));
    };
}

} // namespace host::workbench::script
