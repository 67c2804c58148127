// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_FAULTS_FAULTS_H
#define HOST_DEVICE_FAULTS_FAULTS_H

#include "host/device/variables/Variables.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <set>
#include <string>

namespace host::device::faults {

/// The faults that are injected into a device, for developers who want to see how their plugin
/// copes with them. It keeps which are on; FaultyClient, FaultyHost and the device ask it where a
/// fault would occur. None is on at first, and none is stored.
class Faults : public QObject
{
    Q_OBJECT

public:
    using Variant = olm::core::variant::Variant;
    using Key = variables::Variables::Key;

    bool isAnyOn() const;
    /// All faults that are on, in words and in the language of the moment; empty without any.
    QString summary() const;
    void endAll();

    /// The next connection is refused, just that one.
    bool isNextRefused() const { return m_isNextRefused; }
    void setNextRefused(bool on);
    /// Whether this connection is to be refused.
    bool takeRefusal();

    /// Another client seems to be in control of the robot.
    bool hasOtherController() const { return m_hasOtherController; }
    /// A few words for that client; empty where there is none.
    QString otherController() const;
    void setOtherController(bool on);

    /// How much later than they come the robot's answers are taken; zero for no delay.
    std::chrono::milliseconds delay() const { return m_delay; }
    void setDelay(std::chrono::milliseconds delay);

    /// One of how many messages of each topic is lost; 0 for none.
    int dropInterval() const { return m_dropInterval; }
    void setDropInterval(int interval);
    /// @p number counts the messages of one topic from 1.
    bool dropsMessage(quint64 number) const
    {
        return m_dropInterval > 0 && number % quint64(m_dropInterval) == 0;
    }

    /// No scan of the robot reaches the variables.
    bool isScanFrozen() const { return m_isScanFrozen; }
    void setScanFrozen(bool on);

    /// What widgets write into the configuration is not kept.
    bool areWritesRefused() const { return m_areWritesRefused; }
    void setWritesRefused(bool on);
    /// Whether this write of a widget is refused, which writeRefused() then tells.
    bool refusesWrite(variables::Variables::Kind kind, const char* name);

    /// The variables that widgets see in a wrong type. The device keeps the right values, and
    /// one without a value has none for its widgets either.
    const std::set<Key>& wrongTypes() const { return m_wrongTypes; }
    void setWrongType(const Key& key, bool on);
    /// The device's @p value as widgets see it.
    Variant seen(variables::Variables::Kind kind, const std::string& name,
                 const Variant& value) const;

    /// Ends the link, or the attempt at one, as if the robot had vanished.
    void dropLink() { Q_EMIT linkDropped(); }

Q_SIGNALS:
    /// Some fault began or ended.
    void changed();
    /// From now on widgets see this variable otherwise.
    void wrongTypeChanged(const host::device::variables::Variables::Key& key);
    void writeRefused(const host::device::variables::Variables::Key& key);
    void linkDropped();

private:
    template <class T>
    void set(T& fault, const T& value);

    bool m_isNextRefused = false;
    bool m_hasOtherController = false;
    std::chrono::milliseconds m_delay{0};
    int m_dropInterval = 0;
    bool m_isScanFrozen = false;
    bool m_areWritesRefused = false;
    std::set<Key> m_wrongTypes;
};

} // namespace host::device::faults

#endif
