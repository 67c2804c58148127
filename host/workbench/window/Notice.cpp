#include "host/workbench/window/Notice.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

namespace host::workbench::window {

Notice::Notice() : m_words(new QLabel), m_close(new QToolButton)
{
    setObjectName("Notice");
    // A tint of the window's own colour, whatever that is, so that its text stays legible.
    setStyleSheet(
        "#Notice { background: rgba(255, 170, 0, 45); border-bottom: 1px solid #d9a520; }");
    m_words->setTextFormat(Qt::PlainText);
    m_words->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_words->setWordWrap(true);

    m_close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    m_close->setAutoRaise(true);
    connect(m_close, &QToolButton::clicked, this, &QWidget::hide);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 8, 8, 8);
    layout->addWidget(m_words, 1);
    layout->addWidget(m_close, 0, Qt::AlignTop);
    translate();
    hide();
}

void Notice::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QFrame::changeEvent(event);
}

void Notice::translate()
{
    m_close->setToolTip(tr("Close"));
    m_close->setAccessibleName(m_close->toolTip());
}

void Notice::add(const QString& words)
{
    m_words->setText(isHidden() ? words : m_words->text() + '\n' + words);
    show();
}

} // namespace host::workbench::window
