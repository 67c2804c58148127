// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PREFERENCES_LOSTLINKS_H
#define HOST_WORKBENCH_PREFERENCES_LOSTLINKS_H

#include "host/workbench/preferences/Preference.h"

#include <QObject>
#include <QString>

namespace host::workbench::preferences {

/// What becomes of a link to a robot that was lost.
class LostLinks : public QObject, public Preference
{
    Q_OBJECT

public:
    /// They are joined again, until told otherwise.
    LostLinks();

    bool areJoinedAgain() const;

    QString title() const override;
    QString name(const QString& code) const override;

Q_SIGNALS:
    void changed();

protected:
    void apply() override;
};

} // namespace host::workbench::preferences

#endif
