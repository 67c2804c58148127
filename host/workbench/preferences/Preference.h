// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PREFERENCES_PREFERENCE_H
#define HOST_WORKBENCH_PREFERENCES_PREFERENCE_H

#include "host/device/variables/SettingsFile.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace host::workbench::preferences {

/// What a person chooses for the whole program out of a few possibilities, such as its language,
/// and finds again at the next start.
class Preference
{
public:
    /// @p key names it in the file. The first of @p choices is the choice until told otherwise.
    Preference(const char* key, const QStringList& choices);
    virtual ~Preference() = default;
    Preference(const Preference&) = delete;
    Preference& operator=(const Preference&) = delete;

    const QString& key() const { return m_key; }
    /// What there is, in the order to offer it.
    const QStringList& choices() const { return m_choices; }
    /// One of choices().
    const QString& code() const { return m_code; }

    /// What it is about, and one of choices(), in the language of the moment.
    virtual QString title() const = 0;
    virtual QString name(const QString& code) const = 0;

    /// @p code is one of choices().
    void use(const QString& code);
    /// Uses what choose() kept in @p folder, where there is such a thing, and has choose() keep
    /// it there from now on. Returns the problem, or nothing.
    QString restore(const QString& folder);
    /// use(), and again at the next start. Returns why the choice could not be kept and what to
    /// do about it, or nothing.
    QString choose(const QString& code);

protected:
    /// Another code is used.
    virtual void apply() = 0;

private:
    QString m_key;
    QStringList m_choices;
    QString m_code;
    std::optional<device::variables::SettingsFile> m_file; // none until restore()
};

} // namespace host::workbench::preferences

#endif
