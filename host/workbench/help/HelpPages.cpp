// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/help/HelpPages.h"

#include <QFile>

namespace host::workbench::help {

const char* const mainHelpPage = "workbench";

QString helpPage(const QString& context)
{
    if (context.isEmpty())
        return QStringLiteral("base");
    for (const char* word : {"toolbar", "manipulator", "rangefinder"}) {
        if (context == QLatin1String(word))
            return context;
    }
    return QLatin1String(mainHelpPage);
}

QUrl helpUrl(const QString& page, const QString& language)
{
    return QStringLiteral("qrc:/docs/help/%1/%2.md").arg(language, page);
}

QString helpTitle(const QUrl& url)
{
    QFile file(':' + url.path());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readLine()).section(' ', 1).trimmed();
}

} // namespace host::workbench::help
