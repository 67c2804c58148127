#include "host/workbench/preferences/LanguageMenu.h"

#include "host/workbench/preferences/Language.h"

namespace host::workbench::preferences {

LanguageMenu::LanguageMenu(Language& language, QWidget* parent)
    : PreferenceMenu(Language::codes(), parent),
      m_language(language)
{
    translate();
}

QString LanguageMenu::words() const
{
    return tr("&Language");
}

QString LanguageMenu::name(const QString& code) const
{
    return Language::name(code);
}

QString LanguageMenu::current() const
{
    return m_language.code();
}

QString LanguageMenu::choose(const QString& code)
{
    return m_language.choose(code);
}

} // namespace host::workbench::preferences
