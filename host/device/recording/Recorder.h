// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_RECORDING_RECORDER_H
#define HOST_DEVICE_RECORDING_RECORDER_H

#include "host/device/trace/PluginCall.h"

#include <QCborMap>
#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <chrono>
#include <memory>

namespace host::device::connection {
class Connection;
class Offer;
} // namespace host::device::connection

namespace host::device::trace {
class Traffic;
} // namespace host::device::trace

namespace host::device::variables {
class Variables;
} // namespace host::device::variables

namespace rosbridge::protocol {
struct Topic;
} // namespace rosbridge::protocol

namespace host::device::recording {

class BagThread;

/// Records a device to a ROS bag: the messages of all topics that are followed, under the robot's
/// names for them, and the whole conversation with the plugin. See docs/recording.md.
class Recorder : public QObject
{
    Q_OBJECT

public:
    /// What is recorded; all of it outlives the recorder.
    struct Sources
    {
        QString device; ///< its name
        const variables::Variables& variables;
        const trace::Traffic& traffic;
        connection::Connection& connection;
        const connection::Offer& offer;
    };

    /// A recording ends when it is that large, in bytes.
    static constexpr qint64 mostBytes = qint64{4} * 1024 * 1024 * 1024;

    explicit Recorder(const Sources& sources);
    /// Finishes the recording.
    ~Recorder() override;

    /// Begins to record into @p file, which ends on ".active" until the recording is finished. A
    /// recording that there is already is finished first. False, and in @p error why, if the file
    /// cannot be made.
    bool start(const QString& file, QString* error, qint64 most = mostBytes);
    /// Finishes the recording, if there is one.
    void stop();

    bool isRecording() const { return m_thread != nullptr; }

    /// Of the present recording, or the last one.
    QString file() const { return m_file; }

    /// Of the present recording.
    std::chrono::milliseconds elapsed() const;
    qint64 size() const; ///< in bytes, about

Q_SIGNALS:
    /// A recording began or was finished.
    void changed();
    /// What a person should know of the recording, with what to do.
    void problem(const QString& words);

private:
    void listen();
    std::chrono::nanoseconds now() const;
    void add(const QString& topic, const QString& type, const QCborMap& message);
    void addText(const rosbridge::protocol::Topic& topic, const QByteArray& json);
    void addState(const rosbridge::protocol::Topic& topic);
    void onBegan(const trace::PluginCall& call);
    void onEnded(const trace::PluginCall& call);
    void onReceived(const QString& topic, const QString& type, const QCborMap& message);
    void onFull(const QString& why);

    Sources m_sources;
    QString m_file;
    std::unique_ptr<BagThread> m_thread; // while it records
    std::chrono::nanoseconds m_begin{0}; // since 1970
    QElapsedTimer m_sinceBegin;          // whatever becomes of the computer's clock
    std::chrono::nanoseconds m_newest{0};
    std::chrono::nanoseconds m_newestState{0}; // when it was told, since 1970
    quint64 m_firstCall = 0;
    // The newest arguments that several calls may share, and the call that tells them.
    std::shared_ptr<const trace::Arguments> m_arguments;
    quint64 m_argumentsOf = 0;
};

} // namespace host::device::recording

#endif
