// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_COMPLAINTS_H
#define HOST_CHECK_STAGE_COMPLAINTS_H

#include <QString>
#include <QStringList>

namespace host::check::stage {

/// What a plugin did wrong while a test was looking elsewhere: the test fails with it at its end.
class Complaints
{
public:
    /// The same one counts once.
    void add(const QString& what)
    {
        if (!m_all.contains(what))
            m_all << what;
    }

    const QStringList& all() const { return m_all; }

private:
    QStringList m_all;
};

} // namespace host::check::stage

#endif
