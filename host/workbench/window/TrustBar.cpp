// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/window/TrustBar.h"

#include "host/device/Device.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace host::workbench::window {

TrustBar::TrustBar(device::Device& device)
    : m_device(device),
      m_words(new QLabel),
      m_trust(new QPushButton),
      m_refuse(new QPushButton)
{
    setObjectName("TrustBar");
    // A tint of the window's own colour, whatever that is, so that its text stays legible.
    setStyleSheet(
        "#TrustBar { background: rgba(255, 170, 0, 45); border-bottom: 1px solid #d9a520; }");
    m_words->setTextFormat(Qt::PlainText);
    m_words->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_words->setWordWrap(true);
    m_trust->setObjectName("trust");
    m_refuse->setObjectName("refuse");

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_trust);
    buttons->addWidget(m_refuse);
    buttons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 8, 8, 8);
    layout->addWidget(m_words);
    layout->addLayout(buttons);

    device::connection::Certificates& certificates = device.connection().certificates();
    connect(m_trust, &QPushButton::clicked, this, [this] {
        m_device.connection().certificates().trust();
        m_device.connectDevice();
    });
    connect(m_refuse, &QPushButton::clicked, &certificates,
            &device::connection::Certificates::dismiss);
    connect(&certificates, &device::connection::Certificates::questionChanged, this,
            &TrustBar::showQuestion);
    translate();
}

void TrustBar::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QFrame::changeEvent(event);
}

void TrustBar::translate()
{
    m_trust->setText(tr("Trust and connect"));
    m_refuse->setText(tr("Do not trust"));
    showQuestion();
}

void TrustBar::showQuestion()
{
    const auto& question = m_device.connection().certificates().question();
    setVisible(question.has_value());
    if (question)
        m_words->setText(tr("Trust %1? %2").arg(question->server, question->words));
}

} // namespace host::workbench::window
