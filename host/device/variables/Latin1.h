// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_VARIABLES_LATIN1_H
#define HOST_DEVICE_VARIABLES_LATIN1_H

#include <QString>

#include <string>

namespace host::device::variables {

/// A byte string of a variable as text, zero bytes included, and back. What Latin-1 lacks becomes
/// a question mark, as everywhere at the plugin's boundary.
inline QString fromLatin1(const std::string& bytes)
{
    // With its size: Qt 5 takes the first zero byte for the end otherwise.
    return QString::fromLatin1(bytes.data(), static_cast<int>(bytes.size()));
}

inline std::string toLatin1(const QString& text)
{
    return text.toLatin1().toStdString();
}

} // namespace host::device::variables

#endif
