// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PREFERENCES_OTHERNODES_H
#define HOST_WORKBENCH_PREFERENCES_OTHERNODES_H

#include "host/workbench/preferences/Preference.h"

#include <QObject>
#include <QString>

namespace host::workbench::preferences {

/// Which lines of a robot's log the base tab shows of nodes that no tab is about.
class OtherNodes : public QObject, public Preference
{
    Q_OBJECT

public:
    /// Warnings and what is worse, until told otherwise.
    OtherNodes();

    bool areAllShown() const;

    QString title() const override;
    QString name(const QString& code) const override;

Q_SIGNALS:
    void changed();

protected:
    void apply() override;
};

} // namespace host::workbench::preferences

#endif
