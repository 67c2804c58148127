#include "host/workbench/FailureCard.h"

#include "host/workbench/Failure.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace host::workbench {

namespace {

QLabel* textLabel(const QString& text, const char* name)
{
    auto* label = new QLabel(text);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    return label;
}

} // namespace

FailureCard::FailureCard(const Failure& failure, QWidget* parent) : QFrame(parent)
{
    setObjectName("FailureCard");
    setAccessibleName(failure.title);
    setAccessibleDescription(failure.text());
    // Text and background together, so that the card is legible whatever the desktop's colours.
    setStyleSheet("#FailureCard { background: #fcefed; border: 1px solid #e0a8a1;"
                  " border-left: 5px solid #b3261e; }"
                  "#FailureCard QLabel, #FailureCard QLineEdit { color: #33100d; }"
                  "#FailureCard QLineEdit { background: transparent; border: none; }");

    QLabel* title = textLabel(failure.title, "title");
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 1.25);
    font.setBold(true);
    title->setFont(font);

    // A line edit, since a path has no blanks to wrap at and must still be readable as a whole.
    auto* file = new QLineEdit(failure.file);
    file->setObjectName("file");
    file->setReadOnly(true);
    file->setToolTip(failure.file);
    file->setCursorPosition(0);
    file->setTextMargins(-2, 0, 0, 0); // in line with the labels

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 14, 18, 14);
    layout->setSpacing(8);
    layout->addWidget(title);
    layout->addWidget(textLabel(failure.reason, "reason"));
    layout->addWidget(textLabel(failure.advice, "advice"));
    layout->addWidget(file);
}

} // namespace host::workbench
