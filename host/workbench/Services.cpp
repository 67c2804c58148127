#include "host/workbench/Services.h"

#include "host/workbench/HelpPages.h"

#include <QAction>
#include <QCoreApplication>

namespace host::workbench {

namespace {

/// A widget asks for a text alone, while lupdate files each text under the class that asks. So
/// the classes are tried in turn; one text has one translation in all of them.
constexpr const char* pluginContexts[] = {
    "BaseDialog",        "ConnectButton", "Dialog",       "LaserRangeFinderDialog",
    "ManipulatorDialog", "PositionModel", "PositionView",
};

} // namespace

Services::Services()
{
    connect(&m_language, &Language::changed, this, &Services::translateHelpActions);
}

QString Services::translate(const QString& text) const
{
    const QByteArray source = text.toUtf8();
    for (const char* context : pluginContexts) {
        QString translation = QCoreApplication::translate(context, source.constData());
        if (translation != text)
            return translation;
    }
    return text;
}

QString Services::currentLanguage() const
{
    return m_language.written();
}

QAction* Services::helpAction(const QString& context)
{
    QAction*& action = m_helpActions[context];
    if (!action) {
        action = new QAction(this);
        connect(action, &QAction::triggered, this, [this, context] { helpRequested(context); });
        translateHelpActions();
    }
    return action;
}

void Services::translateHelpActions()
{
    for (auto entry = m_helpActions.cbegin(); entry != m_helpActions.cend(); ++entry) {
        const QUrl page = helpUrl(helpPage(entry.key()), m_language.written());
        entry.value()->setText(tr("Help: %1").arg(helpTitle(page)));
    }
}

} // namespace host::workbench
