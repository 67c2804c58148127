// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_COVERAGE_H
#define HOST_CHECK_STAGE_COVERAGE_H

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QString>

class QAction;
class QWidget;

namespace host::check::stage {

/// How much of a widget was used: controls, actions of menus, and cells of tables and lists.
class Coverage
{
public:
    /// @p root is shown.
    explicit Coverage(QWidget& root);

    /// The control, as pathOf() names it, was used.
    void noteControl(const QString& path) { m_usedControls.insert(path); }
    /// Looks at what has become current in tables, and at the menu that is open.
    void look();

    /// "5 of its 6 controls, ... were used".
    QString inWords() const;

private:
    void watch(QAction& action);

    QPointer<QWidget> m_root;
    QSet<QString> m_controls;
    QSet<QString> m_usedControls;
    QSet<QString> m_actions; // by their text
    QSet<QString> m_usedActions;
    QSet<const QObject*> m_watched;
    QSet<QString> m_cells; // by the view and the place in it
    QSet<QString> m_usedCells;
    QObject m_context; // of connections with actions
};

} // namespace host::check::stage

#endif
