// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "olm/qt/convert.h"

namespace olm {
namespace qt {

QStringList convert(const olm::core::StringList& list)
{
    QStringList converted;
    for (const std::string& text : list)
        converted.append(QString::fromLatin1(text.data(), static_cast<int>(text.size())));
    return converted;
}

olm::core::StringList convert(const QStringList& list)
{
    olm::core::StringList converted;
    for (const QString& text : list)
        converted.append(text.toLatin1().toStdString());
    return converted;
}

} // namespace qt
} // namespace olm
