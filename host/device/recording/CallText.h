// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_RECORDING_CALLTEXT_H
#define HOST_DEVICE_RECORDING_CALLTEXT_H

#include "host/device/trace/PluginCall.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QJsonObject>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>

namespace host::device::recording {

/// A call between the host and its plugin as a message of a recording tells it.
struct RecordedCall
{
    enum class Part
    {
        Begin, ///< of a call to the plugin
        End,   ///< of such a call: only number, duration, result and hasThrown say something
        Whole, ///< a call to the host, told when it ends: those within it come before
    };

    Part part = Part::Whole;
    quint64 number = 0; ///< in the order in which calls began
    trace::PluginCall::Direction direction = trace::PluginCall::Direction::ToHost;
    int depth = 0; ///< how many other calls it was made within
    QString function;
    QString widgetClass; ///< empty where no widget is known
    QString widgetName;
    std::shared_ptr<const trace::Arguments> arguments; ///< null where argumentsOf tells them
    std::optional<quint64> argumentsOf;                ///< the call with the same arguments
    std::chrono::nanoseconds duration{0};
    std::optional<olm::core::variant::Variant> result;
    bool hasThrown = false;
};

/// The messages of calls in a recording, in JSON: see docs/recording.md.
class CallText
{
    Q_DECLARE_TR_FUNCTIONS(host::device::recording::CallText)

public:
    /// How a call to the plugin begins. @p argumentsOf is the number of an earlier call that
    /// shares its arguments, if there is one.
    static QByteArray begin(const trace::PluginCall& call, std::optional<quint64> argumentsOf);
    /// How it ends.
    static QByteArray end(const trace::PluginCall& call);
    /// A call to the host that has ended.
    static QByteArray whole(const trace::PluginCall& call);

    /// Nothing if @p json is none of these, and in @p error why.
    static std::optional<RecordedCall> read(const QJsonObject& json, QString* error);
};

} // namespace host::device::recording

#endif
