// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TESTS_HOST_DEVICE_REPLAY_WRITTENBAG_H
#define TESTS_HOST_DEVICE_REPLAY_WRITTENBAG_H

#include "host/device/recording/DeviceState.h"
#include "host/device/recording/PluginTopics.h"
#include "host/device/trace/PluginCall.h"
#include "rosbridge/bag/BagWriter.h"

#include <QtEndian>

#include <chrono>
#include <memory>

/// A recording that a test writes message by message, at times of its own.
class WrittenBag
{
public:
    using Time = std::chrono::milliseconds;
    using Topic = rosbridge::protocol::Topic;

    explicit WrittenBag(const QString& file)
        : m_writer(rosbridge::bag::BagWriter::create(file, qint64{1} << 30, &m_error))
    {
    }

    QString error() const { return m_error; }

    void finish() { m_error = m_writer->finish(); }

    /// All that was written so far is in a chunk.
    void endChunk() { m_writer->flush(); }

    /// @p time is since the beginning of the recording. No two messages have the same time.
    void write(const Topic& topic, Time time, const QByteArray& text)
    {
        int& number = m_topics[topic.name];
        if (number == 0)
            number = 1 + m_writer->add({topic.name.data(), topic.type.data(), "string data\n",
                                        "992ce8a1687cec8c8bd883ec73ca41d1"});
        QByteArray bytes(4, '\0');
        qToLittleEndian(static_cast<quint32>(text.size()), bytes.data());
        const auto order = std::chrono::nanoseconds(m_count++);
        m_writer->write(number - 1, std::chrono::hours(400000) + time + order, bytes + text);
    }

    void writeState(const Topic& topic, Time time,
                    const host::device::recording::DeviceState& state)
    {
        write(topic, time, state.toJson());
    }

    /// A call to a widget of the class "Probe".
    void writeCall(Time time, const QByteArray& function, const QByteArray& arguments,
                   std::chrono::nanoseconds duration = std::chrono::milliseconds(1),
                   const QByteArray& within = {})
    {
        using namespace host::device::recording;
        const QByteArray number = QByteArray::number(m_calls++);
        write(callsTopic, time,
              "{\"call\":" + number + R"(,"depth":0,"to":"plugin","function":")" + function +
                  R"(","widget":"Probe","arguments":[)" + arguments + "]}");
        if (!within.isEmpty())
            write(callsTopic, time,
                  "{\"call\":" + QByteArray::number(m_calls++) +
                      R"(,"depth":1,"to":"host","widget":"Probe","ns":1000,)" + within + '}');
        const auto end = time + std::chrono::duration_cast<Time>(duration);
        const QByteArray text =
            "{\"end\":" + number + ",\"ns\":" + QByteArray::number(qint64{duration.count()}) + '}';
        write(callsTopic, end, text);
        if (duration > host::device::trace::PluginCall::tooLong)
            write(longCallsTopic, end, text);
    }

    /// The update of an input with a whole number.
    void writeUpdate(Time time, const QByteArray& name, int value)
    {
        writeCall(time, "update",
                  R"({"kind":"input","name":")" + name + R"(","type":"int","value":)" +
                      QByteArray::number(value) + '}');
    }

    void writeMessage(Time time, int role, const QByteArray& value)
    {
        writeCall(time, "on_messageReceived",
                  R"({"name":"role","type":"int","value":)" + QByteArray::number(role) +
                      R"(},{"name":"value",)" + value + '}');
    }

private:
    QString m_error;
    std::unique_ptr<rosbridge::bag::BagWriter> m_writer;
    QHash<QString, int> m_topics; // their numbers, from 1
    int m_count = 0;
    int m_calls = 0;
};

#endif
