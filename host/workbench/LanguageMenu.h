#ifndef HOST_WORKBENCH_LANGUAGEMENU_H
#define HOST_WORKBENCH_LANGUAGEMENU_H

#include <QMenu>

namespace host::workbench {

class Language;

/// The languages to choose from, the present one checked.
class LanguageMenu : public QMenu
{
    Q_OBJECT

public:
    /// @p language outlives the menu.
    LanguageMenu(Language& language, QWidget* parent);

Q_SIGNALS:
    /// A choice could not be kept: why, and what to do.
    void problem(const QString& words);

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void choose(const QAction& action);

    Language& m_language;
};

} // namespace host::workbench

#endif
