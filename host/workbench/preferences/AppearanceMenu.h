#ifndef HOST_WORKBENCH_PREFERENCES_APPEARANCEMENU_H
#define HOST_WORKBENCH_PREFERENCES_APPEARANCEMENU_H

#include "host/workbench/preferences/PreferenceMenu.h"

namespace host::workbench::preferences {

class Appearance;

/// As the system has it, light, or dark.
class AppearanceMenu : public PreferenceMenu
{
    Q_OBJECT

public:
    /// @p appearance outlives the menu.
    AppearanceMenu(Appearance& appearance, QWidget* parent);

protected:
    QString words() const override;
    QString name(const QString& code) const override;
    QString current() const override;
    QString choose(const QString& code) override;

private:
    Appearance& m_appearance;
};

} // namespace host::workbench::preferences

#endif
