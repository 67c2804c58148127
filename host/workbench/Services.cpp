#include "host/workbench/Services.h"

#include "host/workbench/HelpTopics.h"

#include <QAction>
#include <QCoreApplication>

namespace host::workbench {

QString Services::translate(const QString& text) const
{
    return QCoreApplication::translate("plugin", text.toUtf8().constData());
}

QString Services::currentLanguage() const
{
    return QStringLiteral("en");
}

QAction* Services::helpAction(const QString& context)
{
    QAction*& action = m_helpActions[context];
    if (!action) {
        action = new QAction(tr("Help: %1").arg(helpTopic(context).title), this);
        connect(action, &QAction::triggered, this, [this, context] { helpRequested(context); });
    }
    return action;
}

} // namespace host::workbench
