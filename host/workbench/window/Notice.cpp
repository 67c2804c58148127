// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/window/Notice.h"

#include "host/workbench/values/OutsideText.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

namespace host::workbench::window {

namespace {

constexpr int mostInSight = 5;

} // namespace

Notice::Notice() : m_shown([this] { showWords(); }), m_words(new QLabel), m_close(new QToolButton)
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
    showWords();
}

void Notice::add(const QString& words)
{
    if (isHidden()) {
        m_newest.clear();
        m_leftOut = 0;
    }
    m_newest.append(values::shortened(words));
    if (m_newest.size() > mostInSight) {
        m_newest.removeFirst();
        ++m_leftOut;
    }
    show();
    m_shown.request();
}

void Notice::showWords()
{
    QStringList lines = m_newest;
    if (m_leftOut > 0)
        lines.prepend(tr("Earlier messages that are left out here: %1").arg(m_leftOut));
    m_words->setText(lines.join('\n'));
}

} // namespace host::workbench::window
