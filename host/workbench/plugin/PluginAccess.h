// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PLUGIN_PLUGINACCESS_H
#define HOST_WORKBENCH_PLUGIN_PLUGINACCESS_H

#include <QList>
#include <QObject>
#include <QPointer>

class QWidget;

namespace host::workbench::plugin {

/// Makes a plugin's widget usable without a mouse, without eyes and on a small screen: Tab leaves
/// its tables, a key opens their menus, its dialogs can be typed into at once, no tab hides behind
/// others, and those of its controls that show no words get the names that a screen reader says. A
/// name is what the plugin says of the control, in its tool tip
/// for instance, else what kind of control it is and where.
class PluginAccess : public QObject
{
    Q_OBJECT

public:
    /// @p widget is a plugin's, has all its controls, and owns this.
    explicit PluginAccess(QWidget& widget);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static bool isNameless(QWidget& widget);
    static QString kindOf(QWidget& widget);
    void nameAll();
    void name(QWidget& control) const;
    QString placeOf(const QWidget& control) const;

    QWidget& m_widget;
    QList<QPointer<QWidget>> m_nameless; // without us
};

} // namespace host::workbench::plugin

#endif
