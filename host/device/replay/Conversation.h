// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_REPLAY_CONVERSATION_H
#define HOST_DEVICE_REPLAY_CONVERSATION_H

#include "host/device/recording/DeviceState.h"
#include "host/device/replay/PlayedCall.h"
#include "rosbridge/bag/MessageList.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <deque>
#include <memory>
#include <optional>
#include <vector>

namespace rosbridge::bag {
class BagReader;
} // namespace rosbridge::bag

namespace host::device::replay {

/// The conversation between host and plugin in a recording, call by call. Nothing is read before
/// it is asked for.
class Conversation
{
    Q_DECLARE_TR_FUNCTIONS(host::device::replay::Conversation)

public:
    /// Since the recording began.
    using Time = std::chrono::nanoseconds;

    /// Nothing, and in @p error the file's name and why, if it has no such conversation.
    static std::unique_ptr<Conversation> open(const QString& file, QString* error);
    ~Conversation();

    /// What a person should know of the file: that it was cut off, for instance.
    QStringList problems() const;

    const recording::DeviceState& initialState() const { return m_initialState; }

    /// When the last message about the plugin was recorded.
    Time duration() const;

    /// The next call that was made within no other; those to the plugin within another come after
    /// it. One that had not ended when the recording did is as far as it is known. Nothing at the
    /// end, or where the recording cannot be read on, and error() then says why.
    std::optional<PlayedCall> next();

    /// Goes to the newest state that was recorded not after @p time, and gives it: what next()
    /// tells from there on has changed it. Nothing where it cannot be read, which error() says.
    std::optional<recording::DeviceState> rewind(Time time);

    /// When the first call after @p time ended that took too long; nothing if there is none.
    std::optional<Time> longCallAfter(Time time) const;

    QString error() const { return m_error; }

private:
    Conversation(const QString& file, std::unique_ptr<rosbridge::bag::BagReader> reader);

    Time since(const rosbridge::bag::MessageList& list, std::size_t number) const;
    std::optional<QJsonObject> readObject(const rosbridge::bag::MessageList& list,
                                          std::size_t number);
    std::optional<recording::DeviceState> readState(const rosbridge::bag::MessageList& list,
                                                    std::size_t number);
    void take(recording::RecordedCall call, Time time);
    void begin(const recording::RecordedCall& call, Time time);
    void end(const recording::RecordedCall& call);
    void fail(const QString& why);

    QString m_file;
    std::unique_ptr<rosbridge::bag::BagReader> m_reader;
    rosbridge::bag::MessageList m_calls; // the first one is the initial state
    rosbridge::bag::MessageList m_states;
    rosbridge::bag::MessageList m_longCalls;
    recording::DeviceState m_initialState;
    std::size_t m_next = 1;                              // of the calls' messages
    std::shared_ptr<const trace::Arguments> m_arguments; // the newest of a call to the plugin
    quint64 m_argumentsOf = 0;
    std::vector<PlayedCall> m_open; // calls to the plugin, each within the one before
    std::deque<PlayedCall> m_ended; // within the outermost one
    std::deque<PlayedCall> m_ready;
    QString m_error;
};

} // namespace host::device::replay

#endif
