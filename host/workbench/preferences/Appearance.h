// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PREFERENCES_APPEARANCE_H
#define HOST_WORKBENCH_PREFERENCES_APPEARANCE_H

#include "host/workbench/preferences/Preference.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace host::workbench::preferences {

/// Whether everything on the screen is light, dark, or as the system has it. Light and dark are
/// the Fusion style with palettes of our own, since few of the systems' styles take a palette as
/// a whole; the system's own style and palette are left alone. Widgets are told of another one by
/// QEvent::PaletteChange, out of the event loop.
class Appearance : public Preference
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::preferences::Appearance)

public:
    /// As the system has it, until told otherwise.
    Appearance();

    /// As in "dark".
    static QStringList codes();

    QString title() const override;
    QString name(const QString& code) const override;

protected:
    void apply() override;

private:
    QString m_systemStyle; // its name; empty until it is replaced
};

} // namespace host::workbench::preferences

#endif
