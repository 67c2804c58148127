// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/stage/Application.h"

#include "host/check/stage/Complaints.h"
#include "host/check/stage/GuiTime.h"

#include <QEvent>
#include <QFileDialog>

#include <exception>

namespace host::check::stage {

namespace {

/// Plugins are used at random: in a file dialog that would overwrite, rename and delete the files
/// of whoever runs this.
void keepFromFiles(QFileDialog& dialog)
{
    dialog.setEnabled(false);
    QMetaObject::invokeMethod(&dialog, &QDialog::reject, Qt::QueuedConnection);
}

} // namespace

Application::Application(int& argc, char** argv, Complaints& complaints)
    : QApplication(argc, argv),
      m_complaints(complaints)
{
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    const QEvent::Type type = event->type(); // both may be gone afterwards
    const auto complain = [&](const QString& what) {
        m_complaints.add(
            QStringLiteral("threw an exception into the event loop, in an event %1: %2")
                .arg(GuiTime::nameOf(type), what));
    };
    if (type == QEvent::Show) {
        if (auto* const dialog = qobject_cast<QFileDialog*>(receiver))
            keepFromFiles(*dialog);
    }
    try {
        return GuiTime::measureEvent(*receiver, type,
                                     [&] { return QApplication::notify(receiver, event); });
    } catch (const std::exception& e) {
        complain(QString::fromUtf8(e.what()));
    } catch (...) {
        complain(QStringLiteral("of an unknown type"));
    }
    return true;
}

} // namespace host::check::stage
