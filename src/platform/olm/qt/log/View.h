// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef OLM_QT_LOG_VIEW_H
#define OLM_QT_LOG_VIEW_H

#include "olm/core/Export.h"

#include <QPointer>
#include <QTextEdit>

class QAction;

namespace olm {
namespace qt {
namespace log {

/// Shows a log, given to it with `QTextEdit::setDocument`. Read-only; its context menu copies,
/// clears and saves the text and ends with the help action.
class OLM_EXPORT View : public QTextEdit
{
    Q_OBJECT

public:
    explicit View(QWidget* parent);

    /// The last entry of the context menu; not owned, and none after it is gone.
    void setHelpAction(QAction* action);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void save();

    QPointer<QAction> m_helpAction;
};

} // namespace log
} // namespace qt
} // namespace olm

#endif
