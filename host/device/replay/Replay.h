// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_REPLAY_REPLAY_H
#define HOST_DEVICE_REPLAY_REPLAY_H

#include "host/device/replay/Conversation.h"
#include "host/device/replay/ReplayedDevice.h"
#include "host/device/replay/Widgets.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>
#include <optional>

namespace host::device::replay {

/// A recorded conversation as a person plays it into a plugin: at any speed, call by call, or from
/// any moment on. Nothing is compared.
class Replay : public QObject
{
    Q_OBJECT

public:
    using Time = Conversation::Time;

    /// @p environment outlives it. It stands at the beginning.
    Replay(std::unique_ptr<Conversation> conversation, Environment& environment);
    ~Replay() override;

    /// Has @p factory build the widget @p widgetName of the device that the plugin says it serves.
    /// The caller owns it; null where the plugin has no such widget. What a constructor throws
    /// passes through. The replay outlives the widget.
    plugin::gui::DeviceWidget* loadWidget(const plugin::gui::Interface& factory,
                                          const char* widgetName);
    /// The language changed.
    void translateWidgets();

    /// All calls that were played, and those that the plugin made.
    trace::Traffic& traffic() { return m_widgets.traffic(); }

    /// What a person should know of the file.
    QStringList problems() const { return m_conversation->problems(); }

    Time duration() const { return m_conversation->duration(); }

    Time position() const { return m_position; }

    /// The newest call at the position; nothing at the beginning.
    const std::optional<PlayedCall>& present() const { return m_present; }

    bool isPlaying() const { return m_timer.isActive(); }

    /// At the end it begins again.
    void play();
    void pause();

    /// Plays the next call.
    void step();

    /// Goes to @p time: the widgets are told what the variables and the connection were before the
    /// newest call of that time, which is then played. What else they were told before is not told
    /// again.
    void jump(Time time);

    /// Goes to the next call that took longer than PluginCall::tooLong, and stops there. False
    /// where there is none.
    bool jumpToLongCall();

    /// How much faster than recorded; nothing: as fast as it goes.
    void setSpeed(std::optional<double> speed);

    /// Whether it begins again at the end.
    void setLooping(bool isLooping) { m_isLooping = isLooping; }

Q_SIGNALS:
    /// The position, the present call, or whether it plays.
    void changed();
    /// What a person should know, with what to do.
    void problem(const QString& words);

private:
    const PlayedCall* peek();
    bool advance();
    void playOn();
    void end();
    void keepTime();
    void deliver(const PlayedCall& call);
    void skip(const PlayedCall& call);
    void learn(const PlayedCall& call);
    void learnArguments(const recording::RecordedCall& call);
    void tellAll();
    bool tellError();
    void onCalled(const trace::PluginCall& call);

    std::unique_ptr<Conversation> m_conversation;
    ReplayedDevice m_device;
    Widgets m_widgets{m_device};
    std::optional<PlayedCall> m_present;
    std::optional<PlayedCall> m_next; // read, but not played
    Time m_position{0};
    QTimer m_timer; // runs while it plays
    std::optional<double> m_speed = 1;
    bool m_isLooping = false;
    // While it plays, time passes from there.
    Time m_start{0};
    QElapsedTimer m_sinceStart;
    int m_toldConnection = -1; // to the widgets
    bool m_isBusy = false;     // a call of the plugin is under way
    bool m_isWishTold = false; // that nothing comes of it
};

} // namespace host::device::replay

#endif
