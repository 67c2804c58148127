// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PREFERENCES_PREFERENCEMENU_H
#define HOST_WORKBENCH_PREFERENCES_PREFERENCEMENU_H

#include <QMenu>

namespace host::workbench::preferences {

class Preference;

/// What there is to choose from, the present choice checked. Named after the preference's key.
class PreferenceMenu : public QMenu
{
    Q_OBJECT

public:
    /// @p preference outlives the menu.
    PreferenceMenu(Preference& preference, QWidget* parent);

Q_SIGNALS:
    /// A choice could not be kept: why, and what to do.
    void problem(const QString& words);

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();

    Preference& m_preference;
};

} // namespace host::workbench::preferences

#endif
