// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_SURROUNDINGS_H
#define HOST_CHECK_STAGE_SURROUNDINGS_H

#include <QPair>
#include <QString>
#include <QStringList>

#include <vector>

namespace host::check::stage {

/// All of its process that a plugin shares with its host and must leave as it is.
class Surroundings
{
public:
    /// As they are now.
    Surroundings();

    /// What is not as @p before, in words; empty where all is.
    QStringList changesSince(const Surroundings& before) const;

private:
    void noteLocale();
    void noteProcess();
    void noteNumbers();
    void noteApplication();
    void note(const char* what, const QString& value);

    std::vector<QPair<QString, QString>> m_values; // in the same order each time
};

} // namespace host::check::stage

#endif
