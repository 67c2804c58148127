#ifndef HOST_WORKBENCH_CHOICE_H
#define HOST_WORKBENCH_CHOICE_H

#include <QString>

namespace host::workbench {

/// Keeps what a person chose for the whole program, such as its language, for the next start.
class Choice
{
public:
    /// @p key names it in the file.
    explicit Choice(const char* key) : m_key(key) {}

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

} // namespace host::workbench

#endif
