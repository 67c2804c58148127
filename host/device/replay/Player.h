// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_REPLAY_PLAYER_H
#define HOST_DEVICE_REPLAY_PLAYER_H

#include "host/device/replay/PlayedCall.h"
#include "host/device/replay/ReplayHost.h"
#include "host/device/replay/Widgets.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <deque>

class QWidget;

namespace plugin::gui {
class Interface;
} // namespace plugin::gui

namespace host::device::replay {

/// Plays the host's side of a recorded conversation into a plugin, and compares what the plugin
/// asks with what it asked then. docs/recording.md says which differences count.
class Player : public QObject
{
    Q_OBJECT

public:
    /// @p factory outlives the player. @p parent holds the widgets that the plugin builds, and
    /// outlives the player as well.
    Player(const plugin::gui::Interface& factory, const recording::DeviceState& state,
           QWidget& parent);
    ~Player() override;

    /// Plays @p call. A call that the plugin made by itself only changes what the host knows.
    void play(const PlayedCall& call);

    /// The first difference, with the calls before and after it, line by line; empty without one.
    /// From then on widgets are answered what seems right.
    const QStringList& difference() const { return m_difference; }

    /// All calls that were played, and those that the plugin made.
    trace::Traffic& traffic() { return m_widgets.traffic(); }

private:
    void buildWidgets();
    void build(const char* device, const char* widget);
    void deliver(const recording::RecordedCall& call);
    void onCalled(const trace::PluginCall& call);
    void compareEnd(const QString& result, bool hasThrown);
    void differ(const QString& words);

    const plugin::gui::Interface& m_factory;
    QWidget& m_parent;
    ReplayHost m_host;
    Widgets m_widgets{m_host};
    bool m_hasWidgets = false;
    const PlayedCall* m_played = nullptr; // while it is played
    std::size_t m_nextAnswer = 0;
    std::deque<QString> m_before; // the newest calls
    QStringList m_difference;
};

} // namespace host::device::replay

#endif
