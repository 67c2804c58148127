// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "olm/qt/log/View.h"

#include "EndFollower.h"
#include "olm/qt/replaceFile.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QScrollBar>

namespace olm {
namespace qt {
namespace log {

View::View(QWidget* parent) : QTextEdit(parent)
{
    setReadOnly(true);
    setAcceptRichText(false);
    new EndFollower(verticalScrollBar());
}

void View::setHelpAction(QAction* action)
{
    if (m_helpAction)
        removeAction(m_helpAction);
    m_helpAction = action;
    if (action)
        addAction(action); // where the host looks for help about what is beside the log
}

void View::contextMenuEvent(QContextMenuEvent* event)
{
    // The menu is the view's child: whoever deletes the view while it is open takes it along.
    const QPointer<QMenu> menu = createStandardContextMenu(event->pos());
    menu->addSeparator();
    const bool filled = !document()->isEmpty() || document()->blockCount() > 1;
    QAction* const clearAction = menu->addAction(tr("Clear"), document(), &QTextDocument::clear);
    clearAction->setEnabled(filled);
    QAction* const saveAction = menu->addAction(tr("Save as…"), this, &View::save);
    saveAction->setEnabled(filled);
    if (m_helpAction) {
        menu->addSeparator();
        menu->addAction(m_helpAction);
    }
    menu->exec(event->globalPos());
    delete menu.data();
}

void View::save()
{
    // Not modal: messages go on arriving, and what is saved is the log at the moment of saving.
    auto* const dialog = new QFileDialog(this, tr("Save the log"), QString(),
                                         tr("Text files (*.txt);;All files (*)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("txt"));
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& fileName) {
        const QString error = replaceFile(fileName, toPlainText().toUtf8() + '\n');
        if (error.isEmpty())
            return;
        auto* const message = new QMessageBox(
            QMessageBox::Warning, tr("Save the log"),
            tr("The log could not be saved to %1: %2. Choose another folder, or free disk space.")
                .arg(QDir::toNativeSeparators(fileName), error),
            QMessageBox::Ok, this);
        message->setAttribute(Qt::WA_DeleteOnClose);
        message->open();
    });
    dialog->open();
}

} // namespace log
} // namespace qt
} // namespace olm
