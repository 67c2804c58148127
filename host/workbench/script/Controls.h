// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_CONTROLS_H
#define HOST_WORKBENCH_SCRIPT_CONTROLS_H

#include <QCoreApplication>
#include <QList>
#include <QString>

class QAction;
class QWidget;

namespace host::workbench::script {

class Scene;

/// What a person sees in the windows: the controls by their names, and the texts.
class Controls
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::script::Controls)

public:
    /// The one control in sight that a screen reader calls @p name, or else that has this object
    /// name, or else this class. With a @p place, the name of a control around it, only in there.
    /// Null where there is none, or several; @p problem then says what there is.
    static QWidget* find(const Scene& scene, const QString& name, const QString& place,
                         QString* problem);

    /// Whether there is one such control in sight, or several.
    static bool isAny(const Scene& scene, const QString& name, const QString& place);

    /// As it is on the screen: a window behind a dialog does not count.
    static bool isInSight(const QWidget& widget);
    static bool isOnScreen(const QWidget& window);

    /// The menu or the dialog that has to be closed before anything below it can be used; null
    /// without one.
    static QWidget* topmost();

    /// What @p widget and all in it show, a line for each part.
    static QString text(const QWidget& widget);
    /// What all windows show that can be used.
    static QString text(const Scene& scene);

    /// A name without what marks a key, a dialog or a label.
    static QString plain(const QString& text);

private:
    static QList<QWidget*> roots(const Scene& scene);
    static QList<QWidget*> all(const QString& name, const QList<QWidget*>& roots,
                               const QWidget* except);
    static QList<QWidget*> inSight(const QList<QWidget*>& roots);
    static QString accessibleName(QWidget& widget);
    static QString ownText(const QWidget& widget);
};

} // namespace host::workbench::script

#endif
