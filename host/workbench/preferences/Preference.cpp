// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/preferences/Preference.h"

namespace host::workbench::preferences {

Preference::Preference(const char* key, const QStringList& choices)
    : m_key(QLatin1String(key)),
      m_choices(choices),
      m_code(choices.first())
{
}

void Preference::use(const QString& code)
{
    if (code == m_code)
        return;
    m_code = code;
    apply();
}

QString Preference::restore(const QString& folder)
{
    // One file for all: each touches its own entry alone.
    m_file.emplace(folder, QStringLiteral("workbench"), QStringLiteral(".preferences"));
    QString problem = m_file->load();
    const QString code = m_file->entries().value(m_key).toString();
    if (m_choices.contains(code))
        use(code);
    return problem;
}

QString Preference::choose(const QString& code)
{
    use(code);
    if (!m_file)
        return {};
    m_file->insert(m_key, code);
    return m_file->save();
}

} // namespace host::workbench::preferences
