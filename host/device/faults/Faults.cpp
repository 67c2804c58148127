// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/faults/Faults.h"

#include "olm/core/Vector.h"

#include <QStringList>

namespace host::device::faults {

bool Faults::isAnyOn() const
{
    return m_isNextRefused || m_hasOtherController || m_delay != m_delay.zero() ||
           m_dropInterval > 0 || m_isScanFrozen || m_areWritesRefused || !m_wrongTypes.empty();
}

QString Faults::summary() const
{
    QStringList faults;
    if (m_isNextRefused)
        faults += tr("next connection refused");
    if (m_hasOtherController)
        faults += tr("another client in control");
    if (m_delay != m_delay.zero())
        faults += tr("answers %1 s late")
                      .arg(QString::number(std::chrono::duration<double>(m_delay).count()));
    if (m_dropInterval > 0)
        faults += tr("one message in %1 dropped").arg(m_dropInterval);
    if (m_isScanFrozen)
        faults += tr("scan frozen");
    if (m_areWritesRefused)
        faults += tr("writes refused");
    QStringList names;
    for (const Key& key : m_wrongTypes)
        names += QString::fromLatin1(key.second.c_str());
    if (!names.isEmpty())
        faults += tr("wrong type: %1").arg(names.join(QStringLiteral(", ")));
    return faults.isEmpty() ? QString()
                            : tr("Active faults: %1").arg(faults.join(QStringLiteral("; ")));
}

void Faults::endAll()
{
    setNextRefused(false);
    setOtherController(false);
    setDelay(m_delay.zero());
    setDropInterval(0);
    setScanFrozen(false);
    setWritesRefused(false);
    const std::set<Key> wrongTypes = m_wrongTypes;
    for (const Key& key : wrongTypes)
        setWrongType(key, false);
}

void Faults::setNextRefused(bool on)
{
    set(m_isNextRefused, on);
}

bool Faults::takeRefusal()
{
    const bool isRefused = m_isNextRefused;
    setNextRefused(false);
    return isRefused;
}

void Faults::setOtherController(bool on)
{
    set(m_hasOtherController, on);
}

QString Faults::otherController() const
{
    return m_hasOtherController ? tr("injected fault") : QString();
}

void Faults::setDelay(std::chrono::milliseconds delay)
{
    set(m_delay, delay);
}

void Faults::setDropInterval(int interval)
{
    set(m_dropInterval, interval);
}

void Faults::setScanFrozen(bool on)
{
    set(m_isScanFrozen, on);
}

void Faults::setWritesRefused(bool on)
{
    set(m_areWritesRefused, on);
}

bool Faults::refusesWrite(variables::Variables::Kind kind, const char* name)
{
    const bool isRefused = m_areWritesRefused && kind == variables::Variables::Kind::Config;
    if (isRefused)
        Q_EMIT writeRefused({kind, name});
    return isRefused;
}

void Faults::setWrongType(const Key& key, bool on)
{
    if (on == (m_wrongTypes.count(key) > 0))
        return;
    if (on)
        m_wrongTypes.insert(key);
    else
        m_wrongTypes.erase(key);
    Q_EMIT wrongTypeChanged(key);
    Q_EMIT changed();
}

Faults::Variant Faults::seen(variables::Variables::Kind kind, const std::string& name,
                             const Variant& value) const
{
    if (m_wrongTypes.empty() || value.isEmpty() || m_wrongTypes.count({kind, name}) == 0)
        return value;
    // Of a type that even a lenient reader does not take for the right one.
    bool isText = false;
    value.toStringList(&isText);
    return isText ? Variant(olm::core::Vector<float>(1)) : Variant(std::string("wrong type"));
}

template <class T>
void Faults::set(T& fault, const T& value)
{
    if (fault == value)
        return;
    fault = value;
    Q_EMIT changed();
}

} // namespace host::device::faults
