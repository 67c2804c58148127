#ifndef HOST_WORKBENCH_PREFERENCES_APPEARANCE_H
#define HOST_WORKBENCH_PREFERENCES_APPEARANCE_H

#include "host/workbench/preferences/Preference.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace host::workbench::preferences {

/// Whether everything on the screen is light, dark, or as the system has it. Light and dark are
/// the Fusion style with palettes of our own, since few of the systems' styles take a palette as
/// a whole; the system's own style and palette are left alone.
class Appearance
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::preferences::Appearance)

public:
    /// As the system has it, until told otherwise.
    Appearance();

    /// What there is, as in "dark", in the order to offer it.
    static QStringList codes();
    static QString name(const QString& code);

    /// One of codes().
    const QString& code() const { return m_code; }

    /// @p code is one of codes(). Widgets are told by QEvent::PaletteChange, out of the event loop.
    void use(const QString& code);
    /// Uses what choose() kept in @p folder, where there is such a thing, and has choose() keep
    /// it there from now on.
    void restore(const QString& folder);
    /// use(), and again at the next start. Empty, or why the choice could not be kept and what
    /// to do about it.
    QString choose(const QString& code);

private:
    QString m_code;
    QString m_systemStyle; // its name; empty until it is replaced
    Preference m_choice{"appearance"};
};

} // namespace host::workbench::preferences

#endif
