#include "host/workbench/preferences/PreferenceMenu.h"

#include <QAction>
#include <QActionGroup>
#include <QEvent>

namespace host::workbench::preferences {

PreferenceMenu::PreferenceMenu(const QStringList& codes, QWidget* parent) : QMenu(parent)
{
    auto* group = new QActionGroup(this);
    for (const QString& code : codes) {
        QAction* action = group->addAction(QString());
        action->setCheckable(true);
        action->setData(code);
        addAction(action);
    }
    connect(group, &QActionGroup::triggered, this, [this](const QAction* action) {
        const QString words = choose(action->data().toString());
        if (!words.isEmpty())
            Q_EMIT problem(words);
    });
}

void PreferenceMenu::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QMenu::changeEvent(event);
}

void PreferenceMenu::translate()
{
    setTitle(words());
    for (QAction* action : actions()) {
        const QString code = action->data().toString();
        action->setText(name(code));
        action->setChecked(code == current());
    }
}

} // namespace host::workbench::preferences
