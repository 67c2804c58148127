// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_REPLAY_REPLAYEDDEVICE_H
#define HOST_DEVICE_REPLAY_REPLAYEDDEVICE_H

#include "host/device/Environment.h"
#include "host/device/replay/ReplayHost.h"

namespace host::device::replay {

/// The device of a recording for a person who looks at its widgets: their texts and their help are
/// those of the program that shows them, whichever language was recorded.
class ReplayedDevice : public ReplayHost
{
public:
    /// @p environment outlives it.
    ReplayedDevice(const recording::DeviceState& state, Environment& environment)
        : ReplayHost(state),
          m_environment(environment)
    {
    }

    QString translate(const QString& text) const override { return m_environment.translate(text); }

    QString currentLanguage() const override { return m_environment.currentLanguage(); }

    QAction* helpAction(const QString& context) const override
    {
        return m_environment.helpAction(context);
    }

private:
    Environment& m_environment;
};

} // namespace host::device::replay

#endif
