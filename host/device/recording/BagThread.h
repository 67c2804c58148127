// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_RECORDING_BAGTHREAD_H
#define HOST_DEVICE_RECORDING_BAGTHREAD_H

#include "rosbridge/bag/BagWriter.h"
#include "rosbridge/serialization/MessageDefinition.h"

#include <QCborMap>
#include <QHash>
#include <QMutex>
#include <QString>
#include <QThread>
#include <QWaitCondition>

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <vector>

namespace host::device::recording {

/// Writes a bag on a thread of its own, so that no disk holds anybody up. What is given to it is
/// in the file within some two seconds.
class BagThread : public QThread
{
    Q_OBJECT

public:
    struct Message
    {
        QString topic;
        QString type;
        std::chrono::nanoseconds time; ///< since 1970
        QCborMap content;
    };

    /// That much may wait to be written, in bytes.
    static constexpr qint64 mostWaiting = qint64{64} * 1024 * 1024;

    /// Nothing, and in @p error why, if the file cannot be made; see BagWriter.
    static std::unique_ptr<BagThread> create(const QString& file, qint64 mostBytes, QString* error);
    /// Finishes the bag.
    ~BagThread() override;

    void add(const Message& message);

    /// Writes what waits and finishes the bag, which takes a moment. Nothing more is added. The
    /// problem, or nothing.
    QString finish();

    /// Of the file in bytes, about.
    qint64 size() const { return m_size; }

Q_SIGNALS:
    /// Nothing more is written, and it is time to finish: why. From the other thread.
    void ended(const QString& why);
    /// A message is not in the bag, and others of its topic may not be: why. Once for each topic,
    /// from the other thread.
    void leftOut(const QString& words);

protected:
    void run() override;

private:
    /// A topic as its first message had it.
    struct Known
    {
        QString type;
        std::optional<rosbridge::serialization::MessageDefinition> definition;
        int number = 0;
        bool isLeftOutSaid = false;
    };

    explicit BagThread(std::unique_ptr<rosbridge::bag::BagWriter> writer);

    bool write(const Message& message);
    Known& known(const Message& message);
    void leaveOut(Known& known, const QString& words);
    void end(const QString& why);

    std::unique_ptr<rosbridge::bag::BagWriter> m_writer;
    QHash<QString, Known> m_topics;
    std::atomic<qint64> m_size{0};
    std::atomic<bool> m_hasEnded{false};
    QMutex m_mutex; // guards what follows
    QWaitCondition m_finishing;
    bool m_isFinishing = false;
    std::vector<Message> m_waiting;
    qint64 m_waitingBytes = 0;
};

} // namespace host::device::recording

#endif
