#ifndef HOST_WORKBENCH_PREFERENCES_PREFERENCE_H
#define HOST_WORKBENCH_PREFERENCES_PREFERENCE_H

#include <QString>

namespace host::workbench::preferences {

/// Keeps what a person chose for the whole program, such as its language, for the next start.
class Preference
{
public:
    /// @p key names it in the file.
    explicit Preference(const char* key) : m_key(key) {}

    /// What is kept in @p folder, empty where there is nothing. keep() keeps it there from now on,
    /// and nowhere before.
    QString restore(const QString& folder);
    /// False if it could not be written to file().
    bool keep(const QString& value) const;
    /// For people.
    QString file() const;

private:
    QString m_key;
    QString m_file;
};

} // namespace host::workbench::preferences

#endif
