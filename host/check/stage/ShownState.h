// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_SHOWNSTATE_H
#define HOST_CHECK_STAGE_SHOWNSTATE_H

#include <QMap>
#include <QString>

class QWidget;

namespace host::check::stage {

/// What the controls in @p root show, on hidden tabs too: by control and property, "text of
/// QTabWidget/QLabel", and for tables and lists by cell. Not where they are, nor what they paint
/// themselves.
QMap<QString, QString> shownState(const QWidget& root);

} // namespace host::check::stage

#endif
