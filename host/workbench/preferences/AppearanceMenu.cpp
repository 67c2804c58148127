#include "host/workbench/preferences/AppearanceMenu.h"

#include "host/workbench/preferences/Appearance.h"

namespace host::workbench::preferences {

AppearanceMenu::AppearanceMenu(Appearance& appearance, QWidget* parent)
    : PreferenceMenu(Appearance::codes(), parent),
      m_appearance(appearance)
{
    translate();
}

QString AppearanceMenu::words() const
{
    return tr("&Appearance");
}

QString AppearanceMenu::name(const QString& code) const
{
    return Appearance::name(code);
}

QString AppearanceMenu::current() const
{
    return m_appearance.code();
}

QString AppearanceMenu::choose(const QString& code)
{
    return m_appearance.choose(code);
}

} // namespace host::workbench::preferences
