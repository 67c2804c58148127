// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "olm/qt/replaceFile.h"

#include <QSaveFile>

#include <cerrno>

#include <unistd.h>

namespace olm {
namespace qt {

namespace {

bool writeToDisk(int file, const QByteArray& content)
{
    const char* const end = content.constEnd();
    for (const char* at = content.constBegin(); at != end;) {
        const ssize_t written = write(file, at, static_cast<std::size_t>(end - at));
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            at += written;
    }
    return fsync(file) == 0;
}

} // namespace

QString replaceFile(const QString& fileName, const QByteArray& content)
{
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    // Past QSaveFile's own buffer: it takes no notice of what fails when that is emptied, and
    // does not know why a disk took only a part.
    if (!writeToDisk(file.handle(), content))
        return qt_error_string(errno);
    return file.commit() ? QString() : file.errorString();
}

} // namespace qt
} // namespace olm
