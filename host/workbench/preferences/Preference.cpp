#include "host/workbench/preferences/Preference.h"

#include <QDir>
#include <QSettings>

namespace host::workbench::preferences {

QString Preference::restore(const QString& folder)
{
    m_file = QDir(folder).filePath("workbench.ini");
    return QSettings(m_file, QSettings::IniFormat).value(m_key).toString();
}

bool Preference::keep(const QString& value) const
{
    if (m_file.isEmpty())
        return true;
    QSettings settings(m_file, QSettings::IniFormat);
    settings.setValue(m_key, value);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

QString Preference::file() const
{
    return QDir::toNativeSeparators(m_file);
}

} // namespace host::workbench::preferences
