// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/variables/SettingsFile.h"

#include "olm/qt/replaceFile.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLockFile>
#include <QThread>
#include <QUrl>

namespace host::device::variables {

namespace {

constexpr int lockPatience = 2000; // ms; others hold the lock for one save
constexpr qint64 megabyte = qint64{1024} * 1024;

/// False where somebody else still holds it. QLockFile itself waits longer from attempt to attempt,
/// and so may never come to its turn among several.
bool take(QLockFile& lock)
{
    const QDeadlineTimer deadline(lockPatience);
    while (!lock.tryLock(0)) {
        // Where no lock can be made at all, as on a full disk, writing tells the cause.
        if (lock.error() != QLockFile::LockFailedError)
            return true;
        if (deadline.hasExpired())
            return false;
        QThread::msleep(2);
    }
    return true;
}

// All but letters, digits and a few marks is encoded: different names stay different.
QString baseName(const QString& name)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(name, " "));
}

} // namespace

SettingsFile::SettingsFile(const QString& folder, const QString& name, const QString& ending,
                           Check check)
    : m_folder(folder),
      m_fileName(QDir(folder).filePath(baseName(name) + ending)),
      m_check(std::move(check))
{
}

QString SettingsFile::load()
{
    const Content content = read();
    const QString file = QDir::toNativeSeparators(m_fileName);
    switch (content.state) {
    case State::Missing:
        return {};
    case State::Good:
        m_entries = content.entries;
        return {};
    case State::NotOurs:
        return tr("The stored settings in %1 cannot be used: %2. The defaults are used, and "
                  "changes are not stored. Fix this or move the file away, and start again.")
            .arg(file, content.reason);
    case State::Damaged:
        break;
    }
    QString error;
    const QString aside = moveAside(&error);
    if (aside.isEmpty())
        return tr("The stored settings in %1 are damaged (%2) and cannot be moved aside (%3). The "
                  "defaults are used, and changes are not stored: correct or remove the file and "
                  "start again.")
            .arg(file, content.reason, error);
    return tr("The stored settings in %1 are damaged (%2). They were moved to %3 and the "
              "defaults are used: set them again, or correct that file and move it back.")
        .arg(file, content.reason, aside);
}

void SettingsFile::insert(const QString& key, const QJsonValue& value)
{
    m_entries.insert(key, value);
    m_touched.insert(key);
}

void SettingsFile::remove(const QString& key)
{
    m_entries.remove(key);
    m_touched.insert(key);
}

QString SettingsFile::save()
{
    if (m_touched.isEmpty())
        return {};
    if (!QDir().mkpath(m_folder))
        return notStored(tr("the folder cannot be created"));
    QLockFile lock(m_fileName + ".lock");
    if (!take(lock))
        return notStored(tr("another program is writing it"));

    const Content content = read();
    QString problem;
    if (content.state == State::NotOurs)
        return tr("The settings cannot be stored in %1: %2. Changes are lost when the program "
                  "ends: fix this or move the file away, and change a setting again.")
            .arg(QDir::toNativeSeparators(m_fileName), content.reason);
    if (content.state == State::Damaged) {
        QString error;
        const QString aside = moveAside(&error);
        if (aside.isEmpty())
            return notStored(error);
        problem = tr("The stored settings in %1 have been damaged (%2). They were moved to %3, and "
                     "the settings of this program were stored in their place.")
                      .arg(QDir::toNativeSeparators(m_fileName), content.reason, aside);
    }
    // Where the file is gone, all that was in it is written again.
    QJsonObject entries = content.state == State::Good ? content.entries : m_entries;
    for (const QString& key : std::as_const(m_touched)) {
        if (m_entries.contains(key))
            entries.insert(key, m_entries.value(key));
        else
            entries.remove(key);
    }
    if (content.state != State::Good || entries != content.entries) {
        const QString error = write(entries);
        if (!error.isEmpty())
            return notStored(error);
    }
    m_entries = entries;
    m_touched.clear();
    return problem;
}

SettingsFile::Content SettingsFile::read() const
{
    const QFileInfo info(m_fileName);
    if (!info.exists())
        return {State::Missing, {}, {}};
    // Opening a pipe would wait for a writer, and reading a device might never end.
    if (!info.isFile())
        return {State::NotOurs, {}, tr("it is not a regular file")};
    QFile file(m_fileName);
    if (!file.open(QIODevice::ReadOnly))
        return {State::NotOurs, {}, file.errorString()};
    const QByteArray json = file.read(mostBytes + 1);
    if (json.size() > mostBytes)
        return {State::Damaged, {}, tr("it is larger than %1 MB").arg(mostBytes / megabyte)};

    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        return {
            State::Damaged, {}, tr("at byte %1: %2").arg(error.offset).arg(error.errorString())};
    if (!document.isObject())
        return {State::Damaged, {}, tr("it is not a JSON object")};
    const QJsonObject entries = document.object();
    // No entry of this version is a number.
    if (entries.value(QLatin1String("format")).isDouble())
        return {State::NotOurs, {}, tr("a newer version of this program wrote it")};
    const QString fault = m_check(entries);
    if (!fault.isEmpty())
        return {State::Damaged, {}, fault};
    return {State::Good, entries, {}};
}

/// Returns what went wrong, or nothing.
QString SettingsFile::write(const QJsonObject& entries) const
{
    const QByteArray json = QJsonDocument(entries).toJson();
    if (json.size() > mostBytes)
        return tr("they are larger than %1 MB").arg(mostBytes / megabyte);
    return olm::qt::replaceFile(m_fileName, json);
}

/// Returns where the file is now. Where it could not be moved that is nothing, and @p error says
/// why.
QString SettingsFile::moveAside(QString* error) const
{
    // rename() never replaces a file.
    QFile damaged(m_fileName);
    for (int number = 1;; ++number) {
        const QString aside = m_fileName + QStringLiteral(".damaged-%1").arg(number);
        if (damaged.rename(aside))
            return QDir::toNativeSeparators(aside);
        if (!QFile::exists(aside))
            break;
    }
    *error = damaged.errorString();
    return {};
}

QString SettingsFile::notStored(const QString& reason) const
{
    return tr("The settings cannot be stored in %1 (%2). Changes are lost when the program ends: "
              "free disk space or make the folder writable, and change a setting again.")
        .arg(QDir::toNativeSeparators(m_fileName), reason);
}

} // namespace host::device::variables
