// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_CONTROLS_H
#define HOST_CHECK_STAGE_CONTROLS_H

#include <QList>
#include <QString>

#include <functional>

class QWidget;

namespace host::check::stage {

/// As messages name it: QCheckBox "power".
QString nameOf(const QWidget& control);

/// The controls in @p root that are seen, and that a person can change or press.
QList<QWidget*> visibleControls(const QWidget& root);

/// Calls @p visit as @p root is, then with each of its tabs open. @p root is shown.
void forEachPage(QWidget& root, const std::function<void()>& visit);

/// Calls @p visit with each control in @p root that a person can change or press, one tab after
/// the other. @p root is shown; @p visit may delete controls.
void forEachControl(QWidget& root, const std::function<void(QWidget& control)>& visit);

/// Does to @p control what a person does to change it, and closes what opens. Says what it did.
QString use(QWidget& control);

/// A text that a person reads, and where.
struct ShownText
{
    QString where;
    QString text;
};

/// All texts in @p root that belong to the widget, on hidden tabs too; not what a person entered or
/// a device sent.
QList<ShownText> shownTexts(const QWidget& root);

} // namespace host::check::stage

#endif
