// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_CONNECTION_H
#define HOST_DEVICE_CONNECTION_CONNECTION_H

#include "host/device/connection/Certificates.h"
#include "host/device/connection/Followers.h"
#include "host/device/connection/Remappings.h"
#include "host/device/connection/Timing.h"
#include "plugin/plugin/DataRole.h"
#include "rosbridge/client/Client.h"
#include "rosbridge/protocol/Topics.h"

#include <QCborMap>
#include <QDateTime>
#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace host::device::connection {

/// The connection to one robot: from a text with its address to control over it, and back. A
/// robot that grants control, or that has no control service, is connected; one that another
/// client controls is connected passively, until a person takes control. Every other end is -1,
/// with the cause and what to try as the status and as an emphasised message. Connecting lasts for
/// one round of the animation at least: people should see that something happens.
class Connection : public QObject
{
    Q_OBJECT

public:
    // From 0 up to connected: the frames of an animation.
    static constexpr int notConnected = -1;
    static constexpr int connected = 3;
    static constexpr int passive = 4;

    /// Makes the client end of each link anew.
    using MakeClient = std::function<std::unique_ptr<rosbridge::client::Client>(
        const rosbridge::client::Client::Timeouts&)>;

    explicit Connection(const Timing& timing);
    Connection(const Timing& timing, MakeClient makeClient);
    /// Says nothing any more. The robot takes the end of the link as the end of control.
    ~Connection() override;

    int state() const { return m_state; }

    /// One sentence for people, in the language of the moment; what went wrong stays in the
    /// language in which it did.
    QString status() const { return m_status(); }

    /// How long it has been connected, passively or not; none unless it is.
    std::optional<std::chrono::milliseconds> connectedFor() const;

    /// The age of the newest message of any topic that is followed, the robot's log not counted;
    /// none on a link without any.
    std::optional<std::chrono::milliseconds> dataAge() const { return m_followers.dataAge(); }

    /// What went wrong last, and what to try: kept when the next connection succeeds.
    struct Failure
    {
        QString words; ///< empty: nothing has
        QDateTime time;
    };
    const Failure& lastFailure() const { return m_lastFailure; }

    /// What this robot calls the topics and services. Topics and services are ours everywhere else
    /// here, and theirs only in words for people. A new name is in effect at once for a topic that
    /// is followed, and at its next call for a service.
    Remappings& remappings() { return m_remappings; }

    /// Whom to believe where the link is encrypted.
    Certificates& certificates() { return m_certificates; }

    /// What comes of the topics that are followed.
    Followers& followers() { return m_followers; }

    /// Starts to connect. False, and nothing changes, unless the state is -1; false as well for
    /// an address that cannot be understood, which is a failure like the others.
    bool open(const QString& addressText);
    /// Gives control back and closes, or gives up connecting: the state is -1 at once, and no
    /// message is sent. False where there is nothing to close.
    bool close();

    /// Asks for control where the state is passive: granted, the state is connected. Nothing is
    /// sent to the robot but that.
    void takeControl();
    /// Gives control back and stays connected, passively from then on. Does nothing unless the
    /// robot has granted control.
    void releaseControl();
    /// Whether the robot has granted control: to a robot without control everybody is welcome.
    bool hasControl() const { return m_hasControl; }
    /// Who is in control, in the robot's words, where the state is passive; empty where nobody is,
    /// or the robot does not say.
    QString controller() const;

    /// From now on control counts as that of @p holder, a few words, whatever the robot grants;
    /// with an empty text as the robot says.
    void pretendController(const QString& holder);

    /// From now on gives each message of @p topic to @p handler, on this link and on all to come,
    /// until unfollow(). With a @p throttle, and where nobody else follows the topic more closely,
    /// only the newest, at most that often. A robot's state that is told once, as its map, is told
    /// anew to all followers. Returns the id for unfollow().
    int follow(const QString& topic, const QString& type,
               const rosbridge::client::Client::Handler& handler,
               std::chrono::milliseconds throttle = {});
    /// The follower hears nothing more, on this link and on all to come; also from inside its own
    /// handler. Does nothing with an id that is unknown or was ended.
    void unfollow(int id);
    /// Calls a service of the robot; not while the state is -1. What comes of it is told unless
    /// the link ends before.
    void call(const QString& service, const QCborMap& args,
              const rosbridge::client::Client::Callback& callback);
    /// Publishes @p msg at once on @p topic, one of our names, which is advertised first where that
    /// was not done on this link. False where nothing was sent, as there is no open link. What the
    /// robot does not take it says by publicationRefused().
    bool publish(const rosbridge::protocol::Topic& topic, const QCborMap& msg);

Q_SIGNALS:
    /// The robot is reached: its services can be called from now on. Whether it grants control is
    /// still open, and so the state is one of connecting.
    void opened();
    /// Also -1 after -1, where open() could not understand the address.
    void stateChanged(int state);
    /// After that: the link to the robot at @p address, which was connected, has failed after so
    /// long a time.
    void lost(const QString& address, std::chrono::milliseconds lasted);
    void statusChanged(const QString& words);
    /// Control that was asked for by takeControl() was not granted, or control was not released:
    /// why.
    void controlRefused(const QString& words);
    /// A line for a log.
    void message(plugin::plugin::DataRole role, const QString& text);
    /// Whether the robot that is connected runs in simulated time; false on every loss.
    void simulatorChanged(bool isSimulator);
    /// The robot does not let @p topic, our name, be followed; @p words say so for a log.
    void subscriptionRefused(const QString& topic, const QString& words);
    /// The robot does not take what was published on @p topic, our name; @p words say so, and have
    /// been said in the log.
    void publicationRefused(const QString& topic, const QString& words);

private:
    using Client = rosbridge::client::Client;
    using Words = std::function<QString()>;

    void onOpened();
    void onStatus(const QString& level, const QString& words, const QString& id);
    template <class Handle>
    auto whileCurrent(const Handle& handle);
    void callOn(Client& client, const QString& service, const QCborMap& args,
                const Client::Callback& callback, std::chrono::milliseconds timeout);
    void onSimTimeAnswered(const Client::Result& result);
    void onAcquireAnswered(const Client::Result& result);
    void onTakeAnswered(const Client::Result& result);
    void onReleaseAnswered(const Client::Result& result);
    void onFrame();
    void settle();
    bool isGrantedByRobot() const;
    bool isGranted() const;
    Words passiveWords() const;
    void enter(int state, const Words& status);
    void setStatus(const Words& status);
    void leave(const Words& status);
    void fail(const QString& words);
    void sayGoodbye(std::unique_ptr<Client> client);
    void setSimulator(bool isSimulator);

    Timing m_timing;
    MakeClient m_makeClient;
    Remappings m_remappings;
    Certificates m_certificates;
    Followers m_followers{m_remappings};
    int m_state = notConnected;
    Words m_status;
    QElapsedTimer m_connected; // invalid unless the state is connected or passive
    Failure m_lastFailure;
    QString m_address;
    std::unique_ptr<Client> m_client;     // as long as the state is not -1
    QHash<QString, QString> m_advertised; // our names of topics by the robot's, on this link
    bool m_hasControl = false;
    QString m_pretendedController;
    bool m_isSimulator = false;
    QTimer m_frameTimer;
    bool m_isFirstRound = false; // of the frames
    Client::Result m_acquireResult;
    bool m_isAcquireAnswered = false;
    bool m_isReleased = false; // by releaseControl(): nobody is in control, as far as is known
    QTimer m_acquireDeadline;
};

} // namespace host::device::connection

#endif
