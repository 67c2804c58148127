#include "host/device/variables/SettingsFile.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QSaveFile>
#include <QUrl>

namespace host::device::variables {

namespace {

// All but letters, digits and a few marks is encoded: different names stay different.
QString baseName(const QString& deviceName)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(deviceName, " "));
}

} // namespace

SettingsFile::SettingsFile(const QString& folder, const QString& deviceName, const QString& ending)
    : m_folder(folder),
      m_fileName(QDir(folder).filePath(baseName(deviceName) + ending))
{
}

QString SettingsFile::load(const Check& check)
{
    QFile file(m_fileName);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly)) {
        m_isReadOnly = true;
        return tr("The stored settings in %1 cannot be read (%2). The defaults are used, and "
                  "changes are not stored: make the file readable and start again.")
            .arg(QDir::toNativeSeparators(m_fileName), file.errorString());
    }
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    file.close();
    if (error.error != QJsonParseError::NoError)
        return setAside(tr("at byte %1: %2").arg(error.offset).arg(error.errorString()));
    if (!document.isObject())
        return setAside(tr("it is not a JSON object"));

    const QString fault = check(document.object());
    if (!fault.isEmpty())
        return setAside(fault);
    m_entries = document.object();
    m_savedEntries = m_entries;
    return {};
}

QString SettingsFile::setAside(const QString& reason)
{
    const QString file = QDir::toNativeSeparators(m_fileName);
    // rename() never replaces a file.
    QFile damaged(m_fileName);
    for (int number = 1;; ++number) {
        const QString aside = QStringLiteral("%1.damaged-%2").arg(m_fileName).arg(number);
        if (damaged.rename(aside)) {
            return tr("The stored settings in %1 are damaged (%2). They were moved to %3 and the "
                      "defaults are used: set them again, or correct that file and move it back.")
                .arg(file, reason, QDir::toNativeSeparators(aside));
        }
        if (!QFile::exists(aside))
            break;
    }
    m_isReadOnly = true;
    return tr("The stored settings in %1 are damaged (%2) and cannot be moved aside (%3). The "
              "defaults are used, and changes are not stored: correct or remove the file and "
              "start again.")
        .arg(file, reason, damaged.errorString());
}

QString SettingsFile::save()
{
    if (m_isReadOnly || m_entries == m_savedEntries)
        return {};
    QSaveFile file(m_fileName);
    const QByteArray json = QJsonDocument(m_entries).toJson();
    if (QDir().mkpath(m_folder) && file.open(QIODevice::WriteOnly) &&
        file.write(json) == json.size() && file.commit()) {
        m_savedEntries = m_entries;
        m_lastError.clear();
        return {};
    }
    const QString error =
        file.error() == QFileDevice::NoError ? tr("the folder cannot be made") : file.errorString();
    if (error == m_lastError)
        return {};
    m_lastError = error;
    return tr("The settings cannot be stored in %1 (%2). Changes are lost when the program ends: "
              "make room or the folder writable, and change a setting again.")
        .arg(QDir::toNativeSeparators(m_fileName), error);
}

} // namespace host::device::variables
