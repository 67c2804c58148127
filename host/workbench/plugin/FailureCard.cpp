// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/plugin/FailureCard.h"

#include "host/workbench/values/OutsideText.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace host::workbench::plugin {

namespace {

constexpr int leastCharacters = 40; // of a line

QLabel* textLabel(const char* name)
{
    auto* label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    return label;
}

} // namespace

FailureCard::FailureCard(const loading::FailureWords& failure, QWidget* parent)
    : QFrame(parent),
      m_failure(failure),
      m_title(textLabel("title")),
      m_reason(textLabel("reason")),
      m_advice(textLabel("advice")),
      // A line edit, since a path has no blanks to wrap at and must still be readable as a whole.
      m_file(new QLineEdit)
{
    setObjectName("FailureCard");
    setMinimumWidth(leastCharacters * fontMetrics().averageCharWidth());
    // A tint of the window's own colour, whatever that is, so that its text stays legible.
    setStyleSheet("#FailureCard { background: rgba(220, 50, 40, 30);"
                  " border: 1px solid rgba(220, 50, 40, 100); border-left: 5px solid #c8362c; }"
                  "#FailureCard QLineEdit { background: transparent; border: none; }");

    QFont font = m_title->font();
    font.setPointSizeF(font.pointSizeF() * 1.25);
    font.setBold(true);
    m_title->setFont(font);

    m_file->setObjectName("file");
    m_file->setReadOnly(true);
    m_file->setTextMargins(-2, 0, 0, 0); // in line with the labels

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 14, 18, 14);
    layout->setSpacing(8);
    layout->addWidget(m_title);
    layout->addWidget(m_reason);
    layout->addWidget(m_advice);
    layout->addWidget(m_file);
    translate();
}

void FailureCard::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QFrame::changeEvent(event);
}

void FailureCard::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    makeRoom();
}

/// For all lines that the words take in this width: a window asks for no more than one of each.
void FailureCard::makeRoom()
{
    setMinimumHeight(layout()->totalHeightForWidth(width()));
}

void FailureCard::translate()
{
    const loading::Failure failure = m_failure();
    m_title->setText(failure.title);
    m_reason->setText(values::shortened(failure.reason));
    m_advice->setText(failure.advice);
    m_file->setText(failure.file);
    m_file->setToolTip(values::plainToolTip(failure.file));
    m_file->setCursorPosition(0);
    m_file->setAccessibleName(tr("File of the plugin"));
    setAccessibleName(failure.title);
    setAccessibleDescription(failure.text());
    makeRoom();
}

} // namespace host::workbench::plugin
