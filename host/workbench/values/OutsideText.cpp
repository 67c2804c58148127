// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/values/OutsideText.h"

namespace host::workbench::values {

QString shortened(const QString& text)
{
    constexpr int longest = 1000;
    constexpr int mostLines = 10;
    const QString cut = text.left(longest).section('\n', 0, mostLines - 1);
    return cut.size() == text.size() ? text : cut + QChar(0x2026);
}

/// A tool tip cannot be told to be plain, only to be markup.
QString plainToolTip(const QString& text)
{
    if (text.isEmpty())
        return {};
    return "<qt>" + shortened(text).toHtmlEscaped().replace('\n', "<br>") + "</qt>";
}

} // namespace host::workbench::values
