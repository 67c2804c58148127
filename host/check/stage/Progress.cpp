// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/stage/Progress.h"

#include <QFile>

#include <algorithm>
#include <cstring>

namespace host::check::stage {

namespace {

constexpr qint64 pageSize = 4096;

uchar* s_memory = nullptr;

} // namespace

void Progress::keepIn(const QString& file)
{
    static QFile shared;
    shared.setFileName(file);
    if (shared.open(QIODevice::ReadWrite) && shared.resize(pageSize))
        s_memory = shared.map(0, pageSize);
}

void Progress::note(const QString& words)
{
    if (!s_memory)
        return;
    const QByteArray text = words.toUtf8().left(pageSize - 1);
    std::memcpy(s_memory, text.constData(), static_cast<std::size_t>(text.size()) + 1);
}

QString Progress::noted(const QString& file)
{
    QFile shared(file);
    if (!shared.open(QIODevice::ReadOnly))
        return {};
    const QByteArray text = shared.readAll();
    return QString::fromUtf8(text.constData()); // up to the first zero
}

} // namespace host::check::stage
