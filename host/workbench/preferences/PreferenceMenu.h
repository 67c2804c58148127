#ifndef HOST_WORKBENCH_PREFERENCES_PREFERENCEMENU_H
#define HOST_WORKBENCH_PREFERENCES_PREFERENCEMENU_H

#include <QMenu>

namespace host::workbench::preferences {

/// What there is to choose from for the whole program, the present choice checked. What it is
/// about is said by the menus derived from it.
class PreferenceMenu : public QMenu
{
    Q_OBJECT

public:
    /// @p codes are the choices in their order, each the data of its action.
    PreferenceMenu(const QStringList& codes, QWidget* parent);

Q_SIGNALS:
    /// A choice could not be kept: why, and what to do.
    void problem(const QString& words);

protected:
    /// In the language of the moment.
    virtual QString words() const = 0;
    virtual QString name(const QString& code) const = 0;
    virtual QString current() const = 0;
    /// Empty, or why the choice could not be kept.
    virtual QString choose(const QString& code) = 0;

    /// To be called once the derived menu is there.
    void translate();
    void changeEvent(QEvent* event) override;
};

} // namespace host::workbench::preferences

#endif
