// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_BUGREPORT_PRIVACY_H
#define HOST_WORKBENCH_BUGREPORT_PRIVACY_H

#include <QJsonObject>
#include <QString>
#include <QStringList>

namespace host::workbench::bugreport {

/// Takes out of texts what is nobody else's business: addresses of robots, and where a person's
/// files are. What is taken out leaves a word in brackets.
class Privacy
{
public:
    /// @p addresses are those that are known, in any form that robots are entered in. Others are
    /// recognised where they are numbers or begin with "ws".
    explicit Privacy(const QStringList& addresses);

    QString clean(const QString& text) const;

    /// Without the values of what is called an address, a history, a certificate or a password.
    QJsonObject clean(const QJsonObject& settings) const;

private:
    QStringList m_hosts;
};

} // namespace host::workbench::bugreport

#endif
