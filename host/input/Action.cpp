// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/input/Action.h"

#include "host/input/ControlPath.h"
#include "host/input/Hand.h"

#include <QApplication>
#include <QHash>
#include <QStringList>
#include <QWidget>

namespace host::input {

namespace {

QPoint placeIn(const QString& value, int number)
{
    const QString place = value.section(' ', number, number);
    return {place.section(',', 0, 0).toInt(), place.section(',', 1, 1).toInt()};
}

using Deed = void (*)(QWidget& control, const QString& value);

const QHash<QString, Deed>& deeds()
{
    static const QHash<QString, Deed> all{
        {"click",
         [](QWidget& control, const QString& value) { hand::click(control, placeIn(value, 0)); }},
        {"right-click",
         [](QWidget& control, const QString& value) {
             hand::click(control, placeIn(value, 0), Qt::RightButton);
         }},
        {"double-click",
         [](QWidget& control, const QString& value) {
             hand::doubleClick(control, placeIn(value, 0));
         }},
        {"drag",
         [](QWidget& control, const QString& value) {
             hand::drag(control, placeIn(value, 0), placeIn(value, 1));
         }},
        {"press",
         [](QWidget& control, const QString& value) { hand::press(*control.window(), value); }},
    };
    return all;
}

} // namespace

QString Action::inWords() const
{
    return QStringList{verb, target, value}.join(' ').simplified();
}

QWidget* screenAbove(QWidget* widget)
{
    if (QWidget* const popup = QApplication::activePopupWidget())
        return popup;
    QWidget* const dialog = QApplication::activeModalWidget();
    return dialog ? dialog : widget;
}

QWidget* controlOf(const Action& action, QWidget& screen)
{
    QWidget* const control = atPath(screen, action.target);
    return control && control->isVisible() && control->window()->windowHandle() ? control : nullptr;
}

bool perform(const Action& action, QWidget& control)
{
    const Deed deed = deeds().value(action.verb);
    if (deed)
        deed(control, action.value);
    return deed != nullptr;
}

} // namespace host::input
