#include "host/device/connection/Connection.h"

#include "host/device/connection/MessageRole.h"
#include "host/device/faults/Faults.h"
#include "rosbridge/protocol/CanonicalName.h"
#include "rosbridge/protocol/Services.h"
#include "rosbridge/protocol/Topics.h"

#include <QDebug>

#include <algorithm>
#include <utility>

namespace host::device::connection {

namespace service = rosbridge::protocol::service;
namespace topic = rosbridge::protocol::topic;

namespace {

std::optional<std::chrono::milliseconds> since(const QElapsedTimer& timer)
{
    if (!timer.isValid())
        return std::nullopt;
    return std::chrono::milliseconds(timer.elapsed());
}

QString text(const QCborMap& map, const char* key)
{
    return map.value(QLatin1String(key)).toString();
}

} // namespace

Connection::Connection(const Timing& timing, faults::Faults& faults)
    : m_timing(timing),
      m_faults(faults),
      m_status([] { return tr("Not connected."); })
{
    m_frameTimer.setInterval(m_timing.frame);
    connect(&m_frameTimer, &QTimer::timeout, this, &Connection::onFrame);
    m_acquireDeadline.setSingleShot(true);
    m_acquireDeadline.setInterval(m_timing.answer);
    connect(&m_acquireDeadline, &QTimer::timeout, this, [this] {
        const auto seconds = std::chrono::duration<double>(m_timing.answer).count();
        fail(tr("%1 has not answered the request for control for %2 s. Restart the robot's "
                "program and connect again.")
                 .arg(m_address, QString::number(seconds)));
    });
    connect(&m_remappings, &Remappings::changed, this, &Connection::subscribeAnew);
    // Its lines are no data: they come from a robot whose sensors are silent, too.
    m_followed.push_back({++m_lastFollower,
                          topic::log.name,
                          topic::log.type,
                          [this](const QCborMap& log) { onLogMessage(log); },
                          {},
                          QString()});
    connect(&m_faults, &faults::Faults::changed, this, &Connection::onFaultsChanged);
    connect(&m_faults, &faults::Faults::linkDropped, this, &Connection::loseLink);
}

Connection::~Connection() = default;

std::optional<std::chrono::milliseconds> Connection::connectedFor() const
{
    return since(m_connected);
}

std::optional<std::chrono::milliseconds> Connection::dataAge() const
{
    return since(m_newestData);
}

bool Connection::open(const QString& addressText)
{
    if (m_state != notConnected)
        return false;
    QString error;
    const auto address = rosbridge::protocol::Address::parse(addressText, &error);
    if (!address) {
        fail(error);
        return false;
    }
    m_address = address->toString();
    m_client = std::make_unique<Client>(m_timing.link);
    connect(m_client.get(), &Client::opened, this, &Connection::onOpened);
    connect(m_client.get(), &Client::closed, this,
            [this](Client::Cause, const QString& words) { fail(words); });
    connect(m_client.get(), &Client::statusReceived, this, &Connection::onStatus);
    connect(m_client.get(), &Client::malformedReceived, this, [this](const QString& why) {
        qWarning().noquote() << "A message of" << m_address << "was not understood:" << why;
    });
    m_subscribed.clear();
    m_client->setDelay(m_faults.delay());
    if (m_faults.takeRefusal())
        QMetaObject::invokeMethod(
            m_client.get(), [this] { fail(Client::refusedText(m_address)); }, Qt::QueuedConnection);
    else
        m_client->open(*address);
    m_isFirstRound = true;
    m_isAcquireAnswered = false;
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

/// For the messages of one topic.
Connection::Client::Handler Connection::unlessDropped(const Client::Handler& handler)
{
    const auto count = std::make_shared<quint64>(0); // by all copies of the handler together
    return whileCurrent([this, handler, count](const QCborMap& message) {
        if (!m_faults.dropsMessage(++*count))
            handler(message);
    });
}

int Connection::follow(const QString& topic, const QString& type, const Client::Handler& handler,
                       std::chrono::milliseconds throttle)
{
    const QString name = rosbridge::protocol::canonicalName(topic);
    const auto hear = [this, handler](const QCborMap& msg) {
        m_newestData.start();
        handler(msg);
    };
    m_followed.push_back({++m_lastFollower, name, type, hear, throttle, QString()});
    subscribeAnew(name);
    return m_lastFollower;
}

void Connection::unfollow(int id)
{
    const auto followed = std::find_if(m_followed.begin(), m_followed.end(),
                                       [id](const Followed& each) { return each.id == id; });
    if (followed == m_followed.end())
        return;
    if (m_client)
        m_client->unsubscribe(followed->subscription);
    m_followed.erase(followed);
}

void Connection::call(const QString& service, const QCborMap& args,
                      const Client::Callback& callback)
{
    Q_ASSERT(m_client);
    callOn(*m_client, service, args, whileCurrent(callback), m_timing.answer);
}

/// All calls come through here: it is the robot's name that goes out.
void Connection::callOn(Client& client, const QString& service, const QCborMap& args,
                        const Client::Callback& callback, std::chrono::milliseconds timeout)
{
    client.callService(m_remappings.theirs(service), args, callback, timeout);
}

/// All subscriptions come through here: it is the robot's name that goes out.
void Connection::subscribe(Followed& followed)
{
    Client::SubscribeOptions options;
    options.compression = Client::Compression::Cbor;
    options.throttleRate = followed.throttle;
    options.queueLength = followed.throttle.count() > 0 ? 1 : 0; // the newest is not lost
    followed.subscription = m_client->subscribe(m_remappings.theirs(followed.topic), followed.type,
                                                options, unlessDropped(followed.handler));
    m_subscribed.insert(followed.subscription, followed.topic);
}

/// All followers of a topic: a robot tells its state once for all subscriptions of a client to it.
void Connection::subscribeAnew(const QString& topic)
{
    if (!m_client || m_client->state() != Client::State::Open)
        return;
    for (const Followed& followed : m_followed) {
        if (followed.topic == topic)
            m_client->unsubscribe(followed.subscription);
    }
    for (Followed& followed : m_followed) {
        if (followed.topic == topic)
            subscribe(followed);
    }
}

void Connection::onOpened()
{
    // First the log, which tells of the rest; last the topics, some of which have much to say at
    // once.
    subscribe(m_followed.front());
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
    for (std::size_t i = 1; i < m_followed.size(); ++i)
        subscribe(m_followed[i]);
}

void Connection::onStatus(const QString& level, const QString& words, const QString& id)
{
    const QString line = tr("Robot, %1: %2").arg(level, words);
    const QString topic = m_subscribed.value(id);
    if (level == QLatin1String("error") && !topic.isEmpty())
        Q_EMIT subscriptionRefused(topic, line);
    else
        Q_EMIT message(baseLogLine, line);
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
    if (isGranted() && !m_faults.hasOtherController()) {
        enter(connected, [address = m_address] { return tr("Connected to %1.").arg(address); });
        return;
    }
    const QString reason =
        isGranted() ? tr("a pretended one") : text(m_acquireResult.values, "message");
    const Words words = [address = m_address, reason] {
        return tr("Connected to %1, passive: another client is in control (%2). To take over, "
                  "connect again when it has left.")
            .arg(address, reason.isEmpty() ? tr("it gave no name") : reason);
    };
    enter(passive, words);
    Q_EMIT message(emphasisedBaseLogLine, words());
}

/// A robot without control services is anyone's.
bool Connection::isGranted() const
{
    return m_hasControl || !m_acquireResult.ok;
}

void Connection::onFaultsChanged()
{
    if (m_client)
        m_client->setDelay(m_faults.delay());
    const bool isPassive = m_faults.hasOtherController() || !isGranted();
    if (m_state >= connected && isPassive != (m_state == passive))
        settle();
}

/// As if the robot had vanished.
void Connection::loseLink()
{
    if (m_state != notConnected)
        fail(Client::lostText(m_address));
}

void Connection::onLogMessage(const QCborMap& log)
{
    const QString line = text(log, "msg");
    QString name = text(log, "name");
    if (name.startsWith(QLatin1Char('/')))
        name.remove(0, 1);
    if (name == QLatin1String("base"))
        Q_EMIT message(baseLogLine, line);
    else if (name == QLatin1String("manipulator"))
        Q_EMIT message(manipulatorLogLine, line);
    else if (name == QLatin1String("laser"))
        Q_EMIT message(laserLogLine, line);
    else
        Q_EMIT message(baseLogLine, QStringLiteral("%1: %2").arg(name, line));
}

void Connection::enter(int state, const Words& status)
{
    const bool isNewStatus = status() != m_status();
    m_state = state;
    m_status = status;
    if (state >= connected && !m_connected.isValid())
        m_connected.start();
    if (isNewStatus)
        Q_EMIT statusChanged(m_status());
    Q_EMIT stateChanged(state);
}

/// Deletes the client, from inside its signals and callbacks too.
void Connection::leave(const Words& status)
{
    m_frameTimer.stop();
    m_acquireDeadline.stop();
    m_hasControl = false;
    if (const auto client = std::move(m_client)) {
        client->disconnect(this);
        client->close();
    }
    m_connected.invalidate();
    m_newestData.invalidate();
    setSimulator(false);
    enter(notConnected, status);
}

void Connection::fail(const QString& words)
{
    m_lastFailure = {words, QDateTime::currentDateTime()};
    leave([words] { return words; });
    Q_EMIT message(emphasisedBaseLogLine, words);
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
