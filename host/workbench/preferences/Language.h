#ifndef HOST_WORKBENCH_PREFERENCES_LANGUAGE_H
#define HOST_WORKBENCH_PREFERENCES_LANGUAGE_H

#include "host/workbench/preferences/Preference.h"

#include <QCoreApplication>
#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class QTranslator;

namespace host::workbench::preferences {

/// The language of all texts: the program's own, its plugin's and Qt's. English is what the
/// sources say and needs no translation; the pseudo-language shows developers which texts
/// cannot be translated, or have no room to grow.
class Language : public QObject
{
    Q_OBJECT

public:
    /// English, until told otherwise.
    Language();
    ~Language() override;

    /// What there is, as in "de", in the order to offer it.
    static QStringList codes();
    /// The system's language if it is one of ours, English otherwise.
    static QString system();
    /// As those who speak it call it.
    static QString name(const QString& code);

    /// One of codes().
    const QString& code() const { return m_code; }
    /// The language that texts without translation are written in: "en" for the
    /// pseudo-language, otherwise as code().
    QString written() const;

    /// @p code is one of codes(). Widgets are told by QEvent::LanguageChange, out of the event
    /// loop.
    void use(const QString& code);
    /// Uses what choose() kept in @p folder, where there is such a thing, and has choose() keep
    /// it there from now on.
    void restore(const QString& folder);
    /// use(), and again at the next start. Empty, or why the choice could not be kept and what
    /// to do about it.
    QString choose(const QString& code);

Q_SIGNALS:
    void changed();

private:
    QString m_code;
    Preference m_choice{"language"};
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};

} // namespace host::workbench::preferences

#endif
