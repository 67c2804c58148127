#ifndef HOST_WORKBENCH_SERVICES_H
#define HOST_WORKBENCH_SERVICES_H

#include "host/device/Services.h"
#include "host/workbench/Appearance.h"
#include "host/workbench/Language.h"

#include <QHash>
#include <QObject>

namespace host::workbench {

/// What the workbench gives the widgets of a plugin beside their device: the language, the
/// appearance, and one help action for each context word. It opens no help itself: the window does.
class Services : public QObject, public device::Services
{
    Q_OBJECT

public:
    Services();

    Language& language() { return m_language; }
    Appearance& appearance() { return m_appearance; }

    QString translate(const QString& text) const override;
    QString currentLanguage() const override;
    QAction* helpAction(const QString& context) override;

Q_SIGNALS:
    /// Someone triggered the help action of @p context.
    void helpRequested(const QString& context);

private:
    void translateHelpActions();

    Language m_language;
    Appearance m_appearance;
    QHash<QString, QAction*> m_helpActions;
};

} // namespace host::workbench

#endif
