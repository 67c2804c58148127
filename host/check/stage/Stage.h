// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_H
#define HOST_CHECK_STAGE_H

#include "host/check/stage/RecordingHost.h"
#include "plugin/gui/DeviceWidget.h"

#include <QPointer>

#include <memory>

namespace host::check::stage {

class Subject;

/// A widget of the plugin, built on a host of its own.
class Stage
{
public:
    /// Fails the test where the plugin gives no widget. It is not welcome()d yet.
    explicit Stage(Subject& subject);
    /// The same on @p host.
    Stage(Subject& subject, std::unique_ptr<RecordingHost> host);
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
    /// Deletes the widget if it is still there.
    ~Stage();

    RecordingHost& host() { return *m_host; }

    /// Null once it was deleted.
    plugin::gui::DeviceWidget* widget() const { return m_widget; }

    /// Deletes the widget.
    void strike();

    /// Shows the widget in a window of its own and gives that the focus.
    void show();

    /// All that a device tells: it is connected, every variable that was registered changes
    /// to a value of each type, messages come, and it is disconnected.
    void tellEverything();

private:
    std::unique_ptr<RecordingHost> m_host;
    QPointer<plugin::gui::DeviceWidget> m_widget;
};

/// A widget as the factory gives it, null for none. Fails the test where the plugin throws.
std::unique_ptr<plugin::gui::DeviceWidget> load(Subject& subject, const QByteArray& device,
                                                const QByteArray& widget, RecordingHost& host);

/// Lets everything happen that is due.
void settle();

/// The same for a while, for what comes by itself.
void wait(int milliseconds);

} // namespace host::check::stage

#endif
