// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/positions/PositionsMenu.h"

#include "host/device/Device.h"
#include "host/device/variables/Positions.h"
#include "host/workbench/positions/ImportDialog.h"
#include "host/workbench/positions/PositionTable.h"
#include "host/workbench/values/TableFile.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>

namespace host::workbench::positions {

namespace {

const char* const csv = "text/csv";
constexpr qint64 mostBytes = 1000000; // far more than any arm's positions take

} // namespace

PositionsMenu::PositionsMenu(device::Device& device, QWidget* parent)
    : QMenu(parent),
      m_device(device),
      m_window(*parent),
      m_history(device)
{
    setObjectName("positions");
    m_undo = addAction(QString(), &m_history.stack(), &QUndoStack::undo);
    m_redo = addAction(QString(), &m_history.stack(), &QUndoStack::redo);
    addSeparator();
    m_copy = addAction(QString(), this, &PositionsMenu::copy);
    m_paste = addAction(QString(), this, &PositionsMenu::paste);
    addSeparator();
    m_import = addAction(QString(), this, &PositionsMenu::chooseFile);
    m_export = addAction(QString(), this, &PositionsMenu::exportTable);
    m_undo->setObjectName("undo");
    m_undo->setShortcuts(QKeySequence::Undo);
    m_redo->setObjectName("redo");
    m_redo->setShortcuts(QKeySequence::Redo);
    m_copy->setObjectName("copy");
    m_paste->setObjectName("paste");
    m_import->setObjectName("import");
    m_export->setObjectName("export");
    connect(&m_history.stack(), &QUndoStack::indexChanged, this, &PositionsMenu::refresh);
    refresh();
}

void PositionsMenu::importFile(const QString& fileName)
{
    QFile file(fileName);
    if (!QFileInfo(fileName).isFile())
        return Q_EMIT problem(tr("%1 was not read: it is not a file.").arg(fileName));
    if (!file.open(QIODevice::ReadOnly))
        return Q_EMIT problem(tr("%1 was not read: %2.").arg(fileName, file.errorString()));
    const QByteArray content = file.read(mostBytes + 1);
    if (content.size() > mostBytes)
        return Q_EMIT problem(
            tr("%1 was not read: it is larger than any table of positions.").arg(fileName));
    offer(content, fileName);
}

void PositionsMenu::changeEvent(QEvent* event)
{
    QMenu::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        refresh();
}

QByteArray PositionsMenu::table() const
{
    return toTable(device::variables::storedPositions(m_device.variables()));
}

void PositionsMenu::copy()
{
    auto* data = new QMimeData; // the clipboard's
    data->setData(csv, table());
    data->setText(QString::fromUtf8(table()));
    QApplication::clipboard()->setMimeData(data);
}

void PositionsMenu::paste()
{
    const QMimeData* const data = QApplication::clipboard()->mimeData();
    offer(data->hasFormat(csv) ? data->data(csv) : data->text().toUtf8(), tr("the clipboard"));
}

void PositionsMenu::chooseFile()
{
    auto* dialog =
        new QFileDialog(&m_window, tr("Import positions"), QString(), values::tableFilter());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, &PositionsMenu::importFile);
    dialog->show();
}

void PositionsMenu::exportTable()
{
    values::saveTableAs([this] { return table(); }, tr("Export positions"), m_window,
                        [this](const QString& words) { Q_EMIT problem(words); });
}

void PositionsMenu::offer(const QByteArray& table, const QString& source)
{
    QString fault;
    const auto positions = fromTable(table, &fault);
    if (!positions)
        return Q_EMIT problem(tr("No positions were read from %1. %2").arg(source, fault));
    if (!m_dialog)
        m_dialog = new ImportDialog(m_device, m_history, &m_window);
    m_dialog->offer(*positions, source);
}

void PositionsMenu::refresh()
{
    const QUndoStack& stack = m_history.stack();
    setTitle(tr("&Positions"));
    m_undo->setEnabled(stack.canUndo());
    m_undo->setText(stack.canUndo() ? tr("&Undo: %1").arg(stack.undoText()) : tr("&Undo"));
    m_redo->setEnabled(stack.canRedo());
    m_redo->setText(stack.canRedo() ? tr("&Redo: %1").arg(stack.redoText()) : tr("&Redo"));
    m_copy->setText(tr("&Copy all"));
    m_paste->setText(tr("&Paste…"));
    m_import->setText(tr("&Import…"));
    m_export->setText(tr("&Export…"));
}

} // namespace host::workbench::positions
