// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/recording/RecordButton.h"

#include "host/device/Device.h"
#include "host/workbench/values/OutsideText.h"

#include <QAction>
#include <QDateTime>
#include <QEvent>
#include <QFileDialog>
#include <QIcon>
#include <QLocale>
#include <QPainter>
#include <QPixmap>
#include <QRegularExpression>

namespace host::workbench::recording {

namespace {

using namespace std::chrono_literals;

/// A dot to begin with, a square to end it.
QIcon symbol(bool isRecording)
{
    constexpr int size = 32;
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor("#d32f2f"));
    const QRectF frame(5, 5, size - 10, size - 10);
    if (isRecording)
        painter.drawRect(frame);
    else
        painter.drawEllipse(frame);
    painter.end();
    return pixmap;
}

QString inWords(std::chrono::milliseconds time)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time).count();
    return QStringLiteral("%1:%2:%3")
        .arg(seconds / 3600)
        .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

RecordButton::RecordButton(device::Device& device, QWidget* parent)
    : QToolButton(parent),
      m_device(device),
      m_action(new QAction(this))
{
    setObjectName("record");
    m_action->setObjectName("record");
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setAutoRaise(true);
    setDefaultAction(m_action);
    m_clock.setInterval(500ms);
    connect(&m_clock, &QTimer::timeout, this, &RecordButton::showProgress);
    connect(m_action, &QAction::triggered, this, &RecordButton::onTriggered);
    connect(&device.recorder(), &device::recording::Recorder::changed, this,
            &RecordButton::refresh);
    refresh();
}

void RecordButton::record(const QString& file)
{
    QString error;
    if (!m_device.recorder().start(file, &error))
        Q_EMIT problem(tr("Nothing is recorded: %1. Choose another file.").arg(error));
}

void RecordButton::changeEvent(QEvent* event)
{
    QToolButton::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        refresh();
}

void RecordButton::onTriggered()
{
    if (m_device.recorder().isRecording())
        m_device.recorder().stop();
    else
        chooseFile();
}

void RecordButton::chooseFile()
{
    // Not modal: the robot goes on meanwhile, and so must whoever watches it.
    auto* dialog = new QFileDialog(this, tr("Record"), QString(), tr("ROS bags (*.bag)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix("bag");
    dialog->selectFile(usualName());
    connect(dialog, &QFileDialog::fileSelected, this, &RecordButton::record);
    dialog->show();
}

/// Of the device and the present time, as recordings of robots are usually called.
QString RecordButton::usualName() const
{
    static const QRegularExpression odd(QStringLiteral("[^\\w-]+"),
                                        QRegularExpression::UseUnicodePropertiesOption);
    return m_device.name().replace(odd, QStringLiteral("_")) +
           QDateTime::currentDateTime().toString(QStringLiteral("-yyyy-MM-dd-HH-mm-ss")) +
           QStringLiteral(".bag");
}

void RecordButton::refresh()
{
    const bool isRecording = m_device.recorder().isRecording();
    m_action->setText(isRecording ? tr("Stop &recording") : tr("&Record…"));
    m_action->setIcon(symbol(isRecording));
    m_action->setToolTip(
        isRecording
            ? values::plainToolTip(tr("Stop recording to %1.").arg(m_device.recorder().file()))
            : tr("Record the robot's topics and the calls between host and "
                 "plugin to a ROS bag."));
    setAccessibleName(isRecording ? tr("Stop recording") : tr("Record"));
    if (isRecording)
        m_clock.start();
    else
        m_clock.stop();
    showProgress();
}

void RecordButton::showProgress()
{
    const device::recording::Recorder& recorder = m_device.recorder();
    m_action->setIconText(
        recorder.isRecording()
            ? QStringLiteral("%1, %2").arg(inWords(recorder.elapsed()),
                                           locale().formattedDataSize(recorder.size(), 1))
            : tr("Record"));
}

} // namespace host::workbench::recording
