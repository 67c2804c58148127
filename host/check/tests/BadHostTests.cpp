// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/tests/BadHostTests.h"

#include "host/check/stage/Actions.h"
#include "host/check/stage/BadHost.h"
#include "host/check/stage/Controls.h"
#include "host/check/stage/Failure.h"
#include "host/check/stage/Ledger.h"
#include "host/check/stage/Progress.h"
#include "host/check/stage/Stage.h"
#include "host/check/stage/Subject.h"
#include "plugin/gui/Interface.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace host::check::tests {

namespace {

using plugin::gui::DeviceWidget;
using stage::BadHost;
using stage::fail;
using stage::HostFailure;
using stage::Ledger;
using stage::Progress;
using stage::settle;
using stage::Stage;
using stage::Subject;

/// Uses each control of a widget, and after each one lets the host say @p times what became of
/// what that wrote.
void useAll(Subject& subject, BadHost::Writes writes, int times, const char* answer)
{
    auto owned = std::make_unique<BadHost>(subject.complaints());
    BadHost& host = *owned;
    host.treatWritesAs(writes);
    Stage stage(subject, std::move(owned));
    host.welcome();
    stage.show();
    host.connected();
    stage::forEachControl(*stage.widget(), [&](QWidget& control) {
        Progress::note("the use of the " + stage::nameOf(control));
        const QString action = stage::use(control);
        settle();
        const auto mark = host.mark();
        host.answerWrites(times);
        settle();
        for (const auto& call : host.callsSince(mark)) {
            if (QLatin1String(call.name).startsWith(QLatin1String("write")))
                fail(QStringLiteral("%1, %2, and it calls %3 once more, which nobody asked for")
                         .arg(action, QLatin1String(answer), QLatin1String(call.name)));
        }
    });
}

void takesForgottenWrites(Subject& subject)
{
    useAll(subject, BadHost::Writes::Forgotten, 0, "");
}

void takesRefusedWrites(Subject& subject)
{
    useAll(subject, BadHost::Writes::Refused, 1, "the host says that the variable stays as it was");
}

void takesEchoes(Subject& subject)
{
    useAll(subject, BadHost::Writes::Taken, 1, "the host says later that it is so");
    useAll(subject, BadHost::Writes::Taken, 2, "the host says twice that it is so");
}

void takesAnyOrder(Subject& subject)
{
    constexpr int full = 40;
    constexpr std::size_t mostActions = 12;
    const int rounds = subject.share(full, full / 4);
    for (int i = 0; i < rounds; ++i) {
        Stage stage(subject, std::make_unique<BadHost>(subject.complaints()));
        stage::ActionList actions = stage::notifications(stage.host().usage(), subject.random());
        std::shuffle(actions.begin(), actions.end(), subject.random());
        actions.resize(std::min(actions.size(), subject.random()() % mostActions));
        stage::play(actions, stage);
        stage.host().welcome();
        settle();
    }
}

/// Builds the widget on a host of which call number @p failing throws.
void buildAndFail(Subject& subject, int failing)
{
    BadHost host(subject.complaints());
    host.throwAt(failing);
    const auto complain = [&](const QString& what) {
        fail(QStringLiteral("%1 where its host throws one when it is called %2")
                 .arg(what, host.failedCall()));
    };
    std::unique_ptr<DeviceWidget> widget;
    try {
        widget.reset(subject.interface().loadDeviceWidget(
            subject.device().constData(), subject.widget().constData(), host.delegate()));
    } catch (const HostFailure&) {
        if (host.widgetCount() > 0)
            complain(QStringLiteral("passes the exception on, but keeps half a widget,"));
        return;
    } catch (...) {
        complain(QStringLiteral("throws another exception"));
    }
    complain(QStringLiteral("swallows the exception"));
}

/// What a widget that came to nothing leaves behind.
QString leftBy(Subject& subject, int failing)
{
    constexpr int warmUp = 2;          // caches fill
    constexpr int intervals = 4;       // and may grow once more, but not in each of these
    constexpr int rounds = 10;         // in each
    constexpr qint64 mostBytes = 1024; // for each widget; less may be a cache that grows
    const auto repeat = [&](int count) {
        for (int i = 0; i < count; ++i)
            buildAndFail(subject, failing);
        settle();
        return Ledger(0).heapBytes();
    };
    repeat(warmUp);
    const Ledger before(0);
    qint64 last = repeat(1);
    qint64 bytes = std::numeric_limits<qint64>::max();
    for (int i = 0; i < intervals; ++i) {
        const qint64 now = repeat(rounds);
        bytes = std::min(bytes, (now - last) / rounds);
        last = now;
    }
    const QStringList objects = Ledger(0).growthSince(before);
    if (!objects.isEmpty())
        return objects.join(", ");
    return bytes > mostBytes ? QStringLiteral("%1 bytes of memory").arg(bytes) : QString();
}

void passesExceptionsOn(Subject& subject)
{
    Ledger::watchObjects();
    const QByteArray device = subject.device();
    const auto build = [&](BadHost& host) {
        Progress::note("the widget was built");
        return std::unique_ptr<DeviceWidget>(subject.interface().loadDeviceWidget(
            device.constData(), subject.widget().constData(), host.delegate()));
    };
    BadHost host(subject.complaints());
    build(host);
    for (int i = 0; i < host.callCount(); ++i) {
        BadHost failing(subject.complaints());
        failing.throwAt(i);
        try {
            build(failing);
        } catch (const HostFailure&) {
            Progress::note("its host threw an exception when it was called " +
                           failing.failedCall());
        }
        const QString left = leftBy(subject, i);
        if (!left.isEmpty())
            fail(QStringLiteral("leaves behind, where its host throws when it is called %1: %2")
                     .arg(failing.failedCall(), left));
    }
}

} // namespace

Tests badHostTests()
{
    constexpr auto widget = Test::Scope::Widget;
    return {
        {"forgotten-writes", 5, widget, takesForgottenWrites,
         "can be used where whatever it reads is empty"},
        {"refused-writes", 5, widget, takesRefusedWrites, "takes no for an answer"},
        {"echoes", 5, widget, takesEchoes, "takes late and double answers to what it wrote"},
        {"any-order", 5, widget, takesAnyOrder,
         "takes notifications in any order, before it is translated too"},
        {"host-throws", 5, widget, passesExceptionsOn,
         "passes on what its host throws while it is built, and leaves nothing"},
    };
}

} // namespace host::check::tests
