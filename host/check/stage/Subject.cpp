// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/stage/Subject.h"

#include "host/check/stage/Failure.h"
#include "plugin/gui/Interface.h"

#include <algorithm>

namespace host::check::stage {

Subject::Subject(const Target& target, quint32 seed, Complaints& complaints)
    : m_target(target),
      m_random(seed),
      m_complaints(complaints)
{
}

const loading::PluginLoader& Subject::loader()
{
    if (!m_loader)
        m_loader.emplace(m_target.file);
    if (const auto failure = m_loader->failure())
        fail(failure->title + ". " + failure->reason);
    return *m_loader;
}

const ::plugin::gui::Interface& Subject::interface()
{
    return *loader().interface();
}

QByteArray Subject::device()
{
    if (!m_target.device.isEmpty())
        return m_target.device.toLatin1();
    const ::plugin::plugin::PluginInfo& info = interface().info();
    return QByteArray::fromStdString(info.vendor() + ' ' + info.name());
}

int Subject::share(int full, int least) const
{
    constexpr qint64 percent = 100;
    return std::max(least, static_cast<int>(qint64{full} * m_target.effort / percent));
}

bool Subject::isSpared(const std::string& variable) const
{
    return m_target.spared.contains(QByteArray::fromStdString(variable));
}

} // namespace host::check::stage
