// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PREFERENCES_LANGUAGE_H
#define HOST_WORKBENCH_PREFERENCES_LANGUAGE_H

#include "host/workbench/preferences/Preference.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class QTranslator;

namespace host::workbench::preferences {

/// The language of all texts: the program's own, its plugin's and Qt's. English is what the
/// sources say and needs no translation; the pseudo-language shows developers which texts
/// cannot be translated, or have no room to grow. Widgets are told of another one by
/// QEvent::LanguageChange, out of the event loop.
class Language : public QObject, public Preference
{
    Q_OBJECT

public:
    /// English, until told otherwise.
    Language();
    ~Language() override;

    /// As in "de".
    static QStringList codes();
    /// The system's language if it is one of ours, English otherwise.
    static QString system();

    QString title() const override;
    /// As those who speak it call it.
    QString name(const QString& code) const override;
    /// The language that texts without translation are written in: "en" for the
    /// pseudo-language, otherwise as code().
    QString written() const;

    /// Has the texts of a plugin's library follow the language too: their translation lies beside
    /// the library or comes with this program, and is named as in "device_quandrel_gui_de.qm".
    void addPlugin(const QString& file);

Q_SIGNALS:
    void changed();

protected:
    void apply() override;

private:
    void installAll();
    void install(std::unique_ptr<QTranslator> translator);

    QStringList m_plugins; // their libraries
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};

} // namespace host::workbench::preferences

#endif
