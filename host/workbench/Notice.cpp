#include "host/workbench/Notice.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

namespace host::workbench {

Notice::Notice() : m_words(new QLabel)
{
    setObjectName("Notice");
    // Text and background together, so that it is legible whatever the desktop's colours.
    setStyleSheet("#Notice { background: #fff4d6; border-bottom: 1px solid #d9b24c; }"
                  "#Notice QLabel { color: #3d2e00; }");
    m_words->setTextFormat(Qt::PlainText);
    m_words->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_words->setWordWrap(true);

    auto* close = new QToolButton;
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAutoRaise(true);
    close->setToolTip(tr("Close"));
    connect(close, &QToolButton::clicked, this, &QWidget::hide);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 8, 8, 8);
    layout->addWidget(m_words, 1);
    layout->addWidget(close, 0, Qt::AlignTop);
    hide();
}

void Notice::add(const QString& words)
{
    m_words->setText(isHidden() ? words : m_words->text() + '\n' + words);
    show();
}

} // namespace host::workbench
