// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef PLUGIN_GUI_PLUGINWIDGET_H
#define PLUGIN_GUI_PLUGINWIDGET_H

#include "olm/core/Export.h"

#include <QList>
#include <QString>
#include <QWidget>

class QAction;

namespace plugin {
namespace gui {

class DeviceHost; // the host's private side of a device

/// A widget that a plugin supplies, with what the host gives every such widget: language and
/// help.
class OLM_EXPORT PluginWidget : public QWidget
{
public:
    PluginWidget(DeviceHost& host, QWidget* parent);

    /// Called by the host whenever texts must be set: after construction, and when the language
    /// changes. Nothing by default.
    virtual void translate();
    /// @p text in the current language, @p text itself where there is no translation.
    virtual QString trans(const QString& text) const;
    /// The action that opens the help about @p context. One for each context word, owned by the
    /// host: nobody else deletes it.
    virtual QAction* helpAction(const QString& context) const;
    /// The context word of this widget's own help; empty by default.
    virtual QString helpContext() const;
    /// Repaints the widget.
    virtual void update();
    /// The language of trans(), as in "en" or "de".
    virtual QString currentLanguage() const;
    /// Actions out of a library of the host; this host has none.
    virtual QList<QAction*> libraryActions(const QString& library, const QString& group,
                                           bool recursive);

protected:
    /// A press beside the controls takes the focus: it ends an edit, and help is about the
    /// widget that was pressed.
    void mousePressEvent(QMouseEvent* event) override;

private:
    DeviceHost& m_host;
};

} // namespace gui
} // namespace plugin

#endif
