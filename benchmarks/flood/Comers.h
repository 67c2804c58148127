// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_COMERS_H
#define QUANDREL_COMERS_H

#include <QString>
#include <QThread>

#include <atomic>

/// Clients of a robot that come, shake hands and go at once, from a thread of their own.
class Comers : public QThread
{
public:
    /// At most @p rate of them a second.
    Comers(const QString& address, int rate);
    ~Comers() override;

    int count() const { return m_count; } ///< that have come

protected:
    void run() override;

private:
    QString m_address;
    int m_rate;
    std::atomic<int> m_count = 0;
    std::atomic<bool> m_isOver = false;
};

#endif
