// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_LEDGER_H
#define HOST_CHECK_STAGE_LEDGER_H

#include <QMap>
#include <QString>
#include <QStringList>

namespace host::check::stage {

/// What is there at a moment: two ledgers tell what was left behind between them.
class Ledger
{
public:
    /// From now on it is known which objects there are, for the whole process.
    static void watchObjects();

    /// As things are now. @p connections are those that others have with the host's own objects.
    explicit Ledger(int connections);

    /// What there is more of than @p before, in words: "3 QTimer objects". Empty: nothing.
    QStringList growthSince(const Ledger& before) const;

    /// In use on the heap; 0 where that is not known.
    qint64 heapBytes() const { return m_heapBytes; }

private:
    QMap<QString, int> m_counts; // by what is counted
    qint64 m_heapBytes;
};

} // namespace host::check::stage

#endif
