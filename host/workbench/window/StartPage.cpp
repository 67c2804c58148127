// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/window/StartPage.h"

#include "host/device/connection/Connection.h"
#include "host/workbench/values/OutsideText.h"
#include "host/workbench/window/Lamp.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace host::workbench::window {

namespace {

QLabel* paragraph(qreal size = 1.0)
{
    auto* label = new QLabel;
    label->setWordWrap(true);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * size);
    label->setFont(font);
    return label;
}

} // namespace

StartPage::StartPage(const QString& deviceName, const QString& robot, QWidget* parent)
    : QWidget(parent),
      m_lamp(new Lamp),
      m_status(paragraph(1.15)),
      m_steps(paragraph()),
      m_note(paragraph()),
      m_robot(robot)
{
    setObjectName("StartPage");
    m_status->setObjectName("connection");
    m_status->setTextFormat(Qt::PlainText);
    m_note->setTextFormat(Qt::PlainText);
    m_steps->setObjectName("steps");
    m_steps->setTextFormat(Qt::RichText);

    QLabel* title = paragraph(2.0);
    title->setTextFormat(Qt::PlainText);
    title->setText(deviceName);

    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Plain);
    line->setForegroundRole(QPalette::Mid);

    auto* connection = new QHBoxLayout;
    connection->setSpacing(8);
    m_lamp->setFixedHeight(m_status->fontMetrics().lineSpacing()); // beside the first line
    connection->addWidget(m_lamp, 0, Qt::AlignTop);
    connection->addWidget(m_status, 1);

    auto* sheet = new QFrame;
    sheet->setObjectName("sheet");
    sheet->setStyleSheet("#sheet { background: palette(base); border: 1px solid palette(mid);"
                         " border-radius: 6px; }"
                         "#sheet QLabel { color: palette(text); }");
    // One size for all states, so that nothing jumps when the state changes.
    sheet->setFixedSize(560, 24 * sheet->fontMetrics().lineSpacing());
    auto* rows = new QVBoxLayout(sheet);
    rows->setContentsMargins(36, 28, 36, 32);
    rows->setSpacing(14);
    rows->addWidget(title);
    rows->addLayout(connection);
    rows->addWidget(line);
    rows->addWidget(m_steps);
    rows->addWidget(m_note);
    rows->addStretch();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->addStretch(2);
    layout->addWidget(sheet, 0, Qt::AlignHCenter);
    layout->addStretch(3);
}

void StartPage::setConnection(int state, bool isLost, const QString& status)
{
    m_lamp->setState(state, isLost);
    m_status->setText(values::shortened(status));
    m_note->setText(tr("This plugin has no dialog: everything it offers is in the tool bar."));
    if (state < 0) {
        QString steps = tr("<p>Getting started:</p>"
                           "<ol><li>Enter the robot's address in the field in the tool bar.</li>"
                           "<li>Press the connect button beside it.</li></ol>");
        if (!m_robot.isEmpty()) {
            steps += tr("<p>No robot? A simulated one runs at <b>%1</b>.</p>")
                         .arg(m_robot.toHtmlEscaped());
        }
        m_steps->setText(steps);
    } else if (state < device::connection::Connection::connected) {
        m_steps->setText(tr("<p>To cancel, press the button again.</p>"));
    } else {
        m_steps->setText(tr("<p>To disconnect, press the button again.</p>"));
    }
}

} // namespace host::workbench::window
