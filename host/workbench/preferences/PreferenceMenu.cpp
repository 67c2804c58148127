// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/preferences/PreferenceMenu.h"

#include "host/workbench/preferences/Preference.h"

#include <QAction>
#include <QActionGroup>
#include <QEvent>

namespace host::workbench::preferences {

PreferenceMenu::PreferenceMenu(Preference& preference, QWidget* parent)
    : QMenu(parent),
      m_preference(preference)
{
    setObjectName(preference.key());
    auto* group = new QActionGroup(this);
    for (const QString& code : preference.choices()) {
        QAction* action = group->addAction(QString());
        action->setCheckable(true);
        action->setData(code);
        addAction(action);
    }
    connect(group, &QActionGroup::triggered, this, [this](const QAction* action) {
        const QString words = m_preference.choose(action->data().toString());
        if (!words.isEmpty())
            Q_EMIT problem(words);
    });
    translate();
}

void PreferenceMenu::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QMenu::changeEvent(event);
}

void PreferenceMenu::translate()
{
    setTitle(m_preference.title());
    for (QAction* action : actions()) {
        const QString code = action->data().toString();
        action->setText(m_preference.name(code));
        action->setChecked(code == m_preference.code());
    }
}

} // namespace host::workbench::preferences
