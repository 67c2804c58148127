// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PLUGIN_PLUGINENVIRONMENT_H
#define HOST_WORKBENCH_PLUGIN_PLUGINENVIRONMENT_H

#include "host/device/Environment.h"
#include "host/workbench/preferences/Appearance.h"
#include "host/workbench/preferences/Language.h"
#include "host/workbench/preferences/LostLinks.h"
#include "host/workbench/preferences/OtherNodes.h"

#include <QHash>
#include <QObject>

namespace host::workbench::plugin {

/// What the workbench gives the widgets of a plugin beside their device: the language, the
/// appearance, and one help action for each context word. It opens no help itself: the window does.
/// What else a person prefers for all devices is here, too.
class PluginEnvironment : public QObject, public device::Environment
{
    Q_OBJECT

public:
    PluginEnvironment();

    preferences::Language& language() { return m_language; }
    preferences::Appearance& appearance() { return m_appearance; }
    preferences::LostLinks& lostLinks() { return m_lostLinks; }
    preferences::OtherNodes& otherNodes() { return m_otherNodes; }

    QString translate(const QString& text) const override;
    QString currentLanguage() const override;
    QAction* helpAction(const QString& context) override;

Q_SIGNALS:
    /// Someone triggered the help action of @p context.
    void helpRequested(const QString& context);

private:
    void translateHelpActions();

    preferences::Language m_language;
    preferences::Appearance m_appearance;
    preferences::LostLinks m_lostLinks;
    preferences::OtherNodes m_otherNodes;
    QHash<QString, QAction*> m_helpActions;
};

} // namespace host::workbench::plugin

#endif
