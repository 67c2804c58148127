// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_REPLAY_CONVERSATION_H
#define HOST_DEVICE_REPLAY_CONVERSATION_H

#include "host/device/recording/InitialState.h"
#include "host/device/replay/PlayedCall.h"

#include <QCoreApplication>
#include <QString>

#include <deque>
#include <memory>
#include <optional>
#include <vector>

namespace rosbridge::bag {
class BagReader;
} // namespace rosbridge::bag

namespace host::device::replay {

/// The conversation between host and plugin in a recording, call by call.
class Conversation
{
    Q_DECLARE_TR_FUNCTIONS(host::device::replay::Conversation)

public:
    /// Nothing, and in @p error the file's name and why, if it has no such conversation.
    static std::unique_ptr<Conversation> open(const QString& file, QString* error);
    ~Conversation();

    const recording::InitialState& initialState() const { return m_initialState; }

    /// The next call that was made within no other; those to the plugin within another come after
    /// it. One that had not ended when the recording did is as far as it is known. Nothing at the
    /// end, or where the recording cannot be read on, and error() then says why.
    std::optional<PlayedCall> next();

    QString error() const { return m_error; }

private:
    Conversation(const QString& file, std::unique_ptr<rosbridge::bag::BagReader> reader);

    bool readInitialState();
    std::optional<QJsonObject> readObject();
    void take(recording::RecordedCall call, std::chrono::nanoseconds time);
    void begin(const recording::RecordedCall& call, std::chrono::nanoseconds time);
    void end(const recording::RecordedCall& call);
    bool fail(const QString& why);

    QString m_file;
    std::unique_ptr<rosbridge::bag::BagReader> m_reader;
    std::chrono::nanoseconds m_begin{0};
    std::chrono::nanoseconds m_time{0}; // of the newest message
    recording::InitialState m_initialState;
    std::shared_ptr<const trace::Arguments> m_arguments; // the newest of a call to the plugin
    quint64 m_argumentsOf = 0;
    std::vector<PlayedCall> m_open; // calls to the plugin, each within the one before
    std::deque<PlayedCall> m_ended; // within the outermost one
    std::deque<PlayedCall> m_ready;
    QString m_error;
};

} // namespace host::device::replay

#endif
