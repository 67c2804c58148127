#ifndef HOST_WORKBENCH_PREFERENCES_LANGUAGEMENU_H
#define HOST_WORKBENCH_PREFERENCES_LANGUAGEMENU_H

#include "host/workbench/preferences/PreferenceMenu.h"

namespace host::workbench::preferences {

class Language;

/// The languages to choose from.
class LanguageMenu : public PreferenceMenu
{
    Q_OBJECT

public:
    /// @p language outlives the menu.
    LanguageMenu(Language& language, QWidget* parent);

protected:
    QString words() const override;
    QString name(const QString& code) const override;
    QString current() const override;
    QString choose(const QString& code) override;

private:
    Language& m_language;
};

} // namespace host::workbench::preferences

#endif
