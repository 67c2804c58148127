// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Latin1.h"

QString Latin1::decode(const std::string& bytes)
{
    return QString::fromLatin1(bytes.data(), static_cast<int>(bytes.size()));
}

std::string Latin1::encode(const QString& text)
{
    const QByteArray bytes = text.toLatin1();
    return std::string(bytes.constData(), static_cast<std::string::size_type>(bytes.size()));
}
