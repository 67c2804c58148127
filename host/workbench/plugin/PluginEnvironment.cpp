#include "host/workbench/plugin/PluginEnvironment.h"

#include "host/workbench/help/HelpPages.h"

#include <QAction>
#include <QCoreApplication>

namespace host::workbench::plugin {

namespace {

/// A widget asks for a text alone, while lupdate files each text under the class that asks. So
/// the classes are tried in turn; one text has one translation in all of them.
constexpr const char* pluginContexts[] = {
    "BaseDialog",        "ConnectButton", "Dialog",       "LaserRangeFinderDialog",
    "ManipulatorDialog", "PositionModel", "PositionView",
};

} // namespace

PluginEnvironment::PluginEnvironment()
{
    connect(&m_language, &preferences::Language::changed, this,
            &PluginEnvironment::translateHelpActions);
}

QString PluginEnvironment::translate(const QString& text) const
{
    const QByteArray source = text.toUtf8();
    for (const char* context : pluginContexts) {
        QString translation = QCoreApplication::translate(context, source.constData());
        if (translation != text)
            return translation;
    }
    return text;
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
