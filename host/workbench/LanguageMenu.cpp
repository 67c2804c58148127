#include "host/workbench/LanguageMenu.h"

#include "host/workbench/Language.h"

#include <QAction>
#include <QActionGroup>
#include <QEvent>

namespace host::workbench {

LanguageMenu::LanguageMenu(Language& language, QWidget* parent)
    : QMenu(parent),
      m_language(language)
{
    auto* group = new QActionGroup(this);
    for (const QString& code : Language::codes()) {
        QAction* action = group->addAction(QString());
        action->setCheckable(true);
        action->setData(code);
        addAction(action);
    }
    connect(group, &QActionGroup::triggered, this,
            [this](const QAction* action) { choose(*action); });
    translate();
}

void LanguageMenu::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QMenu::changeEvent(event);
}

void LanguageMenu::translate()
{
    setTitle(tr("&Language"));
    for (QAction* action : actions()) {
        const QString code = action->data().toString();
        action->setText(Language::name(code));
        action->setChecked(code == m_language.code());
    }
}

void LanguageMenu::choose(const QAction& action)
{
    const QString words = m_language.choose(action.data().toString());
    if (!words.isEmpty())
        Q_EMIT problem(words);
}

} // namespace host::workbench
