// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/help/HelpPanel.h"

#include "host/workbench/help/HelpPages.h"
#include "host/workbench/preferences/Language.h"

#include <QEvent>
#include <QFile>
#include <QLabel>
#include <QScrollBar>
#include <QTextBrowser>
#include <QTextDocument>
#include <QUrl>
#include <QVBoxLayout>

namespace host::workbench::help {

HelpPanel::HelpPanel(const preferences::Language& language, QWidget* parent)
    : QDockWidget(parent),
      m_language(language),
      m_browser(new QTextBrowser),
      m_outside(new QLabel)
{
    setObjectName("HelpPanel");
    setFeatures(QDockWidget::DockWidgetClosable);
    setAllowedAreas(Qt::RightDockWidgetArea);

    m_browser->setFrameShape(QFrame::NoFrame);
    m_browser->document()->setDocumentMargin(12);
    m_browser->document()->setIndentWidth(20);
    m_browser->setMinimumWidth(48 * fontMetrics().averageCharWidth()); // or long words break
    m_browser->setOpenLinks(false);
    connect(m_browser, &QTextBrowser::anchorClicked, this, &HelpPanel::follow);
    m_outside->setObjectName("outside");
    m_outside->setTextFormat(Qt::PlainText);
    m_outside->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_outside->setWordWrap(true);
    m_outside->setContentsMargins(12, 6, 12, 6);
    m_outside->hide();

    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_browser, 1);
    layout->addWidget(m_outside);
    setWidget(content);
    hide();
    connect(&language, &preferences::Language::changed, this, &HelpPanel::translate);
}

void HelpPanel::openPage(const QString& page)
{
    show(helpUrl(page, m_language.written()));
    QDockWidget::show();
}

void HelpPanel::changeEvent(QEvent* event)
{
    QDockWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || m_page.isEmpty())
        return;
    // Links have the colour of the palette with which they were read.
    const int place = m_browser->verticalScrollBar()->value();
    m_browser->reload();
    m_browser->verticalScrollBar()->setValue(place);
}

void HelpPanel::follow(const QUrl& link)
{
    if (link.scheme() == QLatin1String("qrc")) {
        show(link);
        return;
    }
    m_outside->setText(
        tr("This link leads outside the program: %1").arg(link.toString(QUrl::FullyEncoded)));
    m_outside->show();
}

void HelpPanel::show(const QUrl& page)
{
    m_page = page.fileName().section('.', 0, 0);
    m_outside->hide();
    m_browser->setSource(page);
    setTitle(helpTitle(page));
}

void HelpPanel::setTitle(const QString& title)
{
    setWindowTitle(title);
    m_browser->setAccessibleName(title);
}

void HelpPanel::translate()
{
    if (!m_page.isEmpty())
        show(helpUrl(m_page, m_language.written()));
}

} // namespace host::workbench::help
