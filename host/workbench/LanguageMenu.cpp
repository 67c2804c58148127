#include "host/workbench/LanguageMenu.h"

#include "host/workbench/Language.h"

namespace host::workbench {

LanguageMenu::LanguageMenu(Language& language, QWidget* parent)
    : ChoiceMenu(Language::codes(), parent),
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

} // namespace host::workbench
