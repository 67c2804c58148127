// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/plugin/PluginEnvironment.h"

#include "host/workbench/help/HelpPages.h"

#include <QAction>
#include <QCoreApplication>

namespace host::workbench::plugin {

PluginEnvironment::PluginEnvironment()
{
    connect(&m_language, &preferences::Language::changed, this,
            &PluginEnvironment::translateHelpActions);
}

QString PluginEnvironment::translate(const QString& text) const
{
    // Without a context: whichever class of the plugin the text is filed under.
    return QCoreApplication::translate("", text.toUtf8().constData());
}

QString PluginEnvironment::currentLanguage() const
{
    return m_language.written();
}

QAction* PluginEnvironment::helpAction(const QString& context)
{
    QAction*& action = m_helpActions[context];
    if (!action) {
        action = new QAction(this);
        connect(action, &QAction::triggered, this, [this, context] { helpRequested(context); });
        translateHelpActions();
    }
    return action;
}

void PluginEnvironment::translateHelpActions()
{
    for (auto entry = m_helpActions.cbegin(); entry != m_helpActions.cend(); ++entry) {
        const QUrl page = help::helpUrl(help::helpPage(entry.key()), m_language.written());
        entry.value()->setText(tr("Help: %1").arg(help::helpTitle(page)));
    }
}

} // namespace host::workbench::plugin
