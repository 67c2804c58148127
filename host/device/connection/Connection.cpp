// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/connection/Connection.h"

#include "host/device/connection/MessageRole.h"
#include "rosbridge/protocol/CanonicalName.h"
#include "rosbridge/protocol/Services.h"
#include "rosbridge/protocol/Topics.h"

#include <QDebug>

#include <utility>

namespace host::device::connection {

namespace service = rosbridge::protocol::service;
namespace topic = rosbridge::protocol::topic;

namespace {

QString text(const QCborMap& map, const char* key)
{
    return map.value(QLatin1String(key)).toString();
}

} // namespace

Connection::Connection(const Timing& timing)
    : Connection(timing, [](const Client::Timeouts& timeouts) {
          return std::make_unique<Client>(timeouts);
      })
{
}

Connection::Connection(const Timing& timing, MakeClient makeClient)
    : m_timing(timing),
      m_makeClient(std::move(makeClient)),
      m_status([] { return tr("Not connected."); })
{
    m_frameTimer.setInterval(m_timing.frame);
    connect(&m_frameTimer, &QTimer::timeout, this, &Connection::onFrame);
    m_acquireDeadline.setSingleShot(true);
    m_acquireDeadline.setInterval(m_timing.answer);
    connect(&m_acquireDeadline, &QTimer::timeout, this, [this] {
        const auto seconds = std::chrono::duration<double>(m_timing.answer).count();
        const QString silence =
            tr("%1 has not answered the request for control for %2 s. Restart the robot's program "
               "and connect again.")
                .arg(m_address, QString::number(seconds));
        fail(m_client->hasHeard()
                 ? silence
                 : tr("%1 If its rosbridge wants authentication (the operation \"auth\"), switch "
                      "that off: this program cannot log in.")
                       .arg(silence));
    });
}

Connection::~Connection() = default;

std::optional<std::chrono::milliseconds> Connection::connectedFor() const
{
    if (!m_connected.isValid())
        return std::nullopt;
    return std::chrono::milliseconds(m_connected.elapsed());
}

bool Connection::open(const QString& addressText)
{
    if (m_state != notConnected)
        return false;
    m_certificates.dismiss(); // an answer would be about an earlier attempt
    QString error;
    const auto address = rosbridge::protocol::Address::parse(addressText, &error);
    if (!address) {
        fail(error);
        return false;
    }
    m_address = address->toString();
    m_client = m_makeClient(m_timing.link);
    connect(m_client.get(), &Client::opened, this, &Connection::onOpened);
    connect(m_client.get(), &Client::closed, this,
            [this](Client::Cause, const QString& words) { fail(words); });
    connect(m_client.get(), &Client::statusReceived, this, &Connection::onStatus);
    connect(m_client.get(), &Client::pongReceived, &m_followers, &Followers::answered);
    connect(m_client.get(), &Client::malformedReceived, this, [this](const QString& why) {
        qWarning().noquote() << "A message of" << m_address << "was not understood:" << why;
    });
    m_client->setTrust(&m_certificates);
    m_client->open(*address);
    m_isFirstRound = true;
    m_isAcquireAnswered = false;
    m_isReleased = false;
    m_frameTimer.start();
    enter(0, [address = m_address] { return tr("Connecting to %1 …").arg(address); });
    return true;
}

bool Connection::close()
{
    if (m_state == notConnected)
        return false;
    if (m_hasControl)
        sayGoodbye(std::move(m_client));
    leave([] { return tr("Not connected."); });
    return true;
}

/// A client that is left may still answer: it speaks of a connection that is over.
template <class Handle>
auto Connection::whileCurrent(const Handle& handle)
{
    return [this, client = m_client.get(), handle](const auto& answer) {
        if (client == m_client.get())
            handle(answer);
    };
}

int Connection::follow(const QString& topic, const QString& type, const Client::Handler& handler,
                       std::chrono::milliseconds throttle)
{
    return m_followers.follow(topic, type, handler, throttle);
}

void Connection::unfollow(int id)
{
    m_followers.unfollow(id);
}

void Connection::call(const QString& service, const QCborMap& args,
                      const Client::Callback& callback)
{
    Q_ASSERT(m_client);
    callOn(*m_client, service, args, whileCurrent(callback), m_timing.answer);
}

bool Connection::publish(const rosbridge::protocol::Topic& topic, const QCborMap& msg)
{
    if (!m_client)
        return false;
    const QString name = rosbridge::protocol::canonicalName(m_remappings.theirs(topic.name));
    if (!m_advertised.contains(name) && m_client->advertise(name, topic.type))
        m_advertised.insert(name, topic.name);
    return m_client->publish(name, msg);
}

/// All calls come through here: it is the robot's name that goes out.
void Connection::callOn(Client& client, const QString& service, const QCborMap& args,
                        const Client::Callback& callback, std::chrono::milliseconds timeout)
{
    client.callService(m_remappings.theirs(service), args, callback, timeout);
}

void Connection::onOpened()
{
    // First the log, which tells of the rest; last the topics, some of which have much to say at
    // once.
    m_followers.open(*m_client);
    m_followers.subscribe(topic::log.name);
    callOn(*m_client, service::parameter.name,
           {{QStringLiteral("name"), QStringLiteral("/use_sim_time")},
            {QStringLiteral("default"), QStringLiteral("false")}},
           whileCurrent([this](const Client::Result& result) { onSimTimeAnswered(result); }),
           m_timing.answer);
    // Our own deadline comes first, so that a failure is always what the robot answered.
    m_acquireDeadline.start();
    callOn(*m_client, service::acquireControl.name, {},
           whileCurrent([this](const Client::Result& result) { onAcquireAnswered(result); }),
           2 * m_timing.answer);
    Q_EMIT opened();
    m_followers.subscribeRest();
}

void Connection::onStatus(const QString& level, const QString& words, const QString& id)
{
    const QString line = tr("Robot, %1: %2").arg(level, words);
    const bool isRefusal = level == QLatin1String("error");
    const QString topic = m_followers.topicOf(id);
    const QString published = m_advertised.value(id);
    if (isRefusal && !topic.isEmpty())
        Q_EMIT subscriptionRefused(topic, line);
    else
        Q_EMIT message(baseLogLine, line);
    if (isRefusal && !published.isEmpty())
        Q_EMIT publicationRefused(published, line);
}

void Connection::onSimTimeAnswered(const Client::Result& result)
{
    setSimulator(result.ok && text(result.values, "value") == QLatin1String("true"));
}

void Connection::onAcquireAnswered(const Client::Result& result)
{
    m_acquireDeadline.stop();
    m_acquireResult = result;
    m_isAcquireAnswered = true;
    m_hasControl = result.values.value(QLatin1String("success")).toBool();
    if (!m_isFirstRound)
        settle();
}

void Connection::onFrame()
{
    const int frame = (m_state + 1) % connected;
    if (frame == 0)
        m_isFirstRound = false;
    if (!m_isFirstRound && m_isAcquireAnswered)
        settle();
    else
        enter(frame, m_status);
}

/// Connecting has come to its end: what the robot answered decides how.
void Connection::settle()
{
    m_frameTimer.stop();
    if (isGranted()) {
        enter(connected, [address = m_address] { return tr("Connected to %1.").arg(address); });
        return;
    }
    const Words words = passiveWords();
    enter(passive, words);
    Q_EMIT message(emphasisedBaseLogLine, words());
}

Connection::Words Connection::passiveWords() const
{
    return [address = m_address, isReleased = m_isReleased, holder = controller()] {
        if (isReleased && holder.isEmpty())
            return tr("Connected to %1, passive: control was released. To take it again, choose "
                      "Robot > Control.")
                .arg(address);
        return tr("Connected to %1, passive: another client is in control (%2). To take over, "
                  "choose Robot > Control.")
            .arg(address, holder.isEmpty() ? tr("name unknown") : holder);
    };
}

QString Connection::controller() const
{
    return isGrantedByRobot() ? m_pretendedController : text(m_acquireResult.values, "message");
}

void Connection::takeControl()
{
    if (m_state == passive)
        call(service::acquireControl.name, {},
             [this](const Client::Result& result) { onTakeAnswered(result); });
}

void Connection::onTakeAnswered(const Client::Result& result)
{
    if (m_state != passive)
        return;
    if (result.ok) { // else it is as before
        m_acquireResult = result;
        m_hasControl = result.values.value(QLatin1String("success")).toBool();
        m_isReleased = false;
    }
    if (isGranted())
        return settle();
    setStatus(passiveWords());
    Q_EMIT controlRefused(result.ok ? m_status() : result.error);
}

void Connection::releaseControl()
{
    if (m_state == connected && m_hasControl)
        call(service::releaseControl.name, {},
             [this](const Client::Result& result) { onReleaseAnswered(result); });
}

void Connection::onReleaseAnswered(const Client::Result& result)
{
    if (!result.ok || !result.values.value(QLatin1String("success")).toBool()) {
        Q_EMIT controlRefused(tr("Control was not released. Reason: %1")
                                  .arg(result.ok ? text(result.values, "message") : result.error));
        return;
    }
    m_hasControl = false;
    m_acquireResult = result;
    m_acquireResult.values = {};
    m_isReleased = true;
    settle();
}

/// A robot without control services is anyone's.
bool Connection::isGrantedByRobot() const
{
    return m_hasControl || !m_acquireResult.ok;
}

bool Connection::isGranted() const
{
    return isGrantedByRobot() && m_pretendedController.isEmpty();
}

void Connection::pretendController(const QString& holder)
{
    m_pretendedController = holder;
    if (m_state >= connected && isGranted() != (m_state == connected))
        settle();
}

void Connection::enter(int state, const Words& status)
{
    m_state = state;
    if (state >= connected && !m_connected.isValid())
        m_connected.start();
    setStatus(status);
    Q_EMIT stateChanged(state);
}

void Connection::setStatus(const Words& status)
{
    const bool isNews = status() != m_status();
    m_status = status;
    if (isNews)
        Q_EMIT statusChanged(m_status());
}

/// Deletes the client, from inside its signals and callbacks too.
void Connection::leave(const Words& status)
{
    m_frameTimer.stop();
    m_acquireDeadline.stop();
    m_hasControl = false;
    m_followers.close();
    m_advertised.clear();
    if (const auto client = std::move(m_client)) {
        client->disconnect(this);
        client->close();
    }
    m_connected.invalidate();
    setSimulator(false);
    enter(notConnected, status);
}

void Connection::fail(const QString& words)
{
    const auto lasted = connectedFor();
    m_lastFailure = {words, QDateTime::currentDateTime()};
    leave([words] { return words; });
    Q_EMIT message(emphasisedBaseLogLine, words);
    if (lasted)
        Q_EMIT lost(m_address, *lasted);
}

/// Gives control back on a link that nobody waits for any more.
void Connection::sayGoodbye(std::unique_ptr<Client> client)
{
    Client* const leaving = client.release();
    leaving->setParent(this);
    leaving->disconnect(this);
    callOn(
        *leaving, service::releaseControl.name, {},
        [leaving](const Client::Result&) {
            leaving->close();
            leaving->deleteLater();
        },
        m_timing.answer);
}

void Connection::setSimulator(bool isSimulator)
{
    if (isSimulator == m_isSimulator)
        return;
    m_isSimulator = isSimulator;
    Q_EMIT simulatorChanged(isSimulator);
}

} // namespace host::device::connection
