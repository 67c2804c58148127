#include "host/workbench/HelpPanel.h"

#include <QTextBrowser>
#include <QTextDocument>

namespace host::workbench {

HelpPanel::HelpPanel(QWidget* parent) : QDockWidget(parent), m_browser(new QTextBrowser)
{
    setObjectName("HelpPanel");
    setFeatures(QDockWidget::DockWidgetClosable);
    setAllowedAreas(Qt::RightDockWidgetArea);
    m_browser->setFrameShape(QFrame::NoFrame);
    m_browser->document()->setDocumentMargin(12);
    setWidget(m_browser);
    hide();
}

void HelpPanel::open(const QString& title, const QString& text)
{
    setWindowTitle(title);
    m_browser->setHtml(text);
    show();
}

} // namespace host::workbench
