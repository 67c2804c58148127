// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/recording/BagThread.h"

#include "rosbridge/serialization/MessageWriter.h"
#include "rosbridge/serialization/StandardMessages.h"

#include <QCborArray>
#include <QElapsedTimer>
#include <QLocale>

#include <utility>

namespace host::device::recording {

using rosbridge::bag::BagWriter;
using rosbridge::serialization::MessageDefinition;
using rosbridge::serialization::MessageWriter;

namespace {

// Rarely enough for the thread to cost little, and often enough for a crash to cost little.
constexpr unsigned long pause = 200;   // ms between two looks at what waits
constexpr qint64 flushInterval = 1000; // ms

/// About what a message takes in memory: that of its large parts.
qint64 sizeOf(const QCborMap& message)
{
    qint64 size = 1024;
    for (const auto field : message) {
        const QCborValue value = field.second;
        if (value.isTag())
            size += value.taggedValue().toByteArray().size();
        else if (value.isByteArray())
            size += value.toByteArray().size();
        else if (value.isString())
            size += 2 * value.toString().size();
        else if (value.isArray())
            size += value.toArray().size() * qint64{sizeof(QCborValue)};
    }
    return size;
}

} // namespace

std::unique_ptr<BagThread> BagThread::create(const QString& file, qint64 mostBytes, QString* error)
{
    auto writer = BagWriter::create(file, mostBytes, error);
    if (!writer)
        return nullptr;
    std::unique_ptr<BagThread> thread(new BagThread(std::move(writer)));
    thread->start();
    return thread;
}

BagThread::BagThread(std::unique_ptr<BagWriter> writer) : m_writer(std::move(writer)) {}

BagThread::~BagThread()
{
    finish();
}

void BagThread::add(const Message& message)
{
    if (m_hasEnded)
        return;
    const qint64 size = sizeOf(message.content);
    const QMutexLocker lock(&m_mutex);
    if (m_waitingBytes + size > mostWaiting) {
        end(tr("the disk is too slow: %1 wait to be written")
                .arg(QLocale().formattedDataSize(m_waitingBytes)));
        return;
    }
    m_waiting.push_back(message);
    m_waitingBytes += size;
}

QString BagThread::finish()
{
    {
        const QMutexLocker lock(&m_mutex);
        m_isFinishing = true;
        m_finishing.wakeAll();
    }
    wait();
    QString problem = m_writer->finish();
    m_size = m_writer->size();
    return problem;
}

void BagThread::run()
{
    QElapsedTimer sinceFlush;
    sinceFlush.start();
    for (bool isLast = false; !isLast;) {
        std::vector<Message> messages;
        {
            const QMutexLocker lock(&m_mutex);
            if (!m_isFinishing)
                m_finishing.wait(&m_mutex, pause);
            isLast = m_isFinishing;
            messages = std::exchange(m_waiting, {});
            m_waitingBytes = 0;
        }
        for (const Message& message : messages) {
            if (!write(message))
                return end(m_writer->error());
        }
        if (sinceFlush.hasExpired(flushInterval)) {
            sinceFlush.start();
            if (!m_writer->flush())
                return end(m_writer->error());
        }
        m_size = m_writer->size();
    }
}

/// False where it is time to end.
bool BagThread::write(const Message& message)
{
    Known& topic = known(message);
    if (topic.type != message.type)
        leaveOut(topic, tr("%1 is not recorded any more: its type was %2 and is %3 now.")
                            .arg(message.topic, topic.type, message.type));
    if (topic.type != message.type || !topic.definition)
        return true;
    QString fault;
    const auto bytes = MessageWriter::write(*topic.definition, message.content, &fault);
    if (bytes)
        return m_writer->write(topic.number, message.time, *bytes);
    leaveOut(topic, tr("A message of %1 is not recorded: %2.").arg(message.topic, fault));
    return true;
}

BagThread::Known& BagThread::known(const Message& message)
{
    const auto found = m_topics.find(message.topic);
    if (found != m_topics.end())
        return *found;
    Known topic;
    topic.type = message.type;
    QString why = tr("this program has no definition of its type, %1").arg(message.type);
    const QString definition = rosbridge::serialization::standardDefinition(message.type);
    if (!definition.isEmpty())
        topic.definition = MessageDefinition::parse(message.type, definition, &why);
    if (topic.definition)
        topic.number = m_writer->add({message.topic.toUtf8(), message.type.toUtf8(),
                                      definition.toUtf8(), topic.definition->checksum()});
    else
        leaveOut(topic, tr("%1 is not recorded: %2.").arg(message.topic, why));
    return *m_topics.insert(message.topic, topic);
}

void BagThread::leaveOut(Known& known, const QString& words)
{
    if (!std::exchange(known.isLeftOutSaid, true))
        Q_EMIT leftOut(words);
}

void BagThread::end(const QString& why)
{
    if (!m_hasEnded.exchange(true))
        Q_EMIT ended(why);
}

} // namespace host::device::recording
