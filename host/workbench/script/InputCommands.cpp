// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/script/InputCommands.h"

#include "host/input/Hand.h"
#include "host/workbench/script/Controls.h"
#include "host/workbench/script/Gesture.h"
#include "host/workbench/script/Scene.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/Window.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>

#include <memory>

namespace host::workbench::script {

namespace hand = input::hand;

namespace {

/// In the middle, or where it reacts.
QPoint placeOf(const QWidget& control)
{
    const bool isOption =
        qobject_cast<const QCheckBox*>(&control) || qobject_cast<const QRadioButton*>(&control);
    if (!isOption)
        return control.rect().center();
    const int middle = control.height() / 2;
    return {control.isRightToLeft() ? control.width() - middle : middle, middle};
}

/// Of @p count things named by @p text: that of the name, or of the number from 1. -1 for none.
template <class NameOf>
int indexOf(const QString& text, int count, const NameOf& nameOf)
{
    for (int i = 0; i < count; ++i) {
        if (Controls::plain(nameOf(i)) == Controls::plain(text))
            return i;
    }
    const int number = text.toInt();
    return number <= count ? number - 1 : -1;
}

} // namespace

Commands InputCommands::all()
{
    using Kind = Command::Kind;
    return {
        {"click CONTROL [in PLACE] [cell ROW COLUMN]", Kind::Act,
         [](Scene& scene, const Arguments& arguments) {
             return onControl(scene, arguments,
                              [](QWidget& target, QPoint place) { hand::click(target, place); });
         }},
        {"right-click CONTROL [in PLACE] [cell ROW COLUMN]", Kind::Act,
         [](Scene& scene, const Arguments& arguments) {
             return onControl(scene, arguments, [](QWidget& target, QPoint place) {
                 hand::click(target, place, Qt::RightButton);
             });
         }},
        {"type TEXT [into CONTROL] [in PLACE]", Kind::Act, type},
        {"press KEY", Kind::Act, press},
        {"hold CONTROL [in PLACE] [at ACROSS DOWN]", Kind::Act, hold},
        {"release", Kind::Act,
         [](Scene& scene, const Arguments&) -> Attempt {
             return Gesture([&scene] { release(scene); });
         }},
        {"select ITEM in CONTROL", Kind::Act, select},
        {"open tab TAB", Kind::Act, openTab},
        {"show dock DOCK", Kind::Act, showDock},
        {"hide dock DOCK", Kind::Act, showDock},
        {"stop", Kind::Act,
         [](Scene& scene, const Arguments&) -> Attempt {
             return Gesture([&scene] { hand::press(scene.window(), QStringLiteral("F12")); });
         }},
    };
}

QString InputCommands::expected(const QString& name, const QString& value)
{
    if (name == "KEY" && !hand::isKey(value))
        return tr("a key, as in Return or Ctrl+A");
    if ((name == "ROW" || name == "COLUMN") && value.toInt() < 1)
        return tr("a whole number from 1");
    bool isNumber = false;
    const double share = value.toDouble(&isNumber);
    if ((name == "ACROSS" || name == "DOWN") && !(isNumber && share >= 0 && share <= 100))
        return tr("a percentage from 0 to 100");
    return {};
}

/// @p act gets what was found, which can be used by then.
Attempt InputCommands::onControl(Scene& scene, const Arguments& arguments, const Act& act)
{
    auto begun = std::make_shared<Attempt>();
    return [&scene, arguments, act, begun] {
        if (*begun)
            return (*begun)();
        QString problem;
        QWidget* control =
            Controls::find(scene, arguments.value("CONTROL"), arguments.value("PLACE"), &problem);
        if (!control)
            return Progress::waiting(problem);
        if (!control->isEnabled())
            return Progress::waiting(tr("it is disabled"));
        QPoint place;
        control = cell(*control, arguments, &place, &problem);
        if (!control)
            return Progress::waiting(problem);
        *begun = Gesture([control = QPointer<QWidget>(control), place, act] {
            if (control)
                act(*control, place);
        });
        return (*begun)();
    };
}

/// The part of @p control that @p arguments are about, and the place in it.
QWidget* InputCommands::cell(QWidget& control, const Arguments& arguments, QPoint* place,
                             QString* problem)
{
    for (QWidget* outer = control.parentWidget(); outer; outer = outer->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(outer))
            area->ensureWidgetVisible(&control);
    }
    *place = placeOf(control);
    if (!arguments.has("cell"))
        return &control;
    auto* view = qobject_cast<QAbstractItemView*>(&control);
    if (!view || !view->model()) {
        *problem = tr("it is no table");
        return nullptr;
    }
    const QModelIndex index =
        view->model()->index(arguments.value("ROW").toInt() - 1,
                             arguments.value("COLUMN").toInt() - 1, view->rootIndex());
    if (!index.isValid()) {
        *problem = tr("it has %1 rows and %2 columns")
                       .arg(QString::number(view->model()->rowCount(view->rootIndex())),
                            QString::number(view->model()->columnCount(view->rootIndex())));
        return nullptr;
    }
    view->scrollTo(index);
    *place = view->visualRect(index).center();
    return view->viewport();
}

/// Where keys go.
QWidget* InputCommands::target()
{
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const modal = QApplication::activeModalWidget();
    return popup ? popup : modal ? modal : QApplication::activeWindow();
}

Attempt InputCommands::type(Scene& scene, const Arguments& arguments)
{
    const QString text = arguments.value("TEXT");
    if (!arguments.has("into")) {
        return Gesture([&scene, text] {
            QWidget* const window = target();
            hand::type(window ? *window : scene.window(), text);
        });
    }
    return onControl(scene, arguments, [text](QWidget& control, QPoint place) {
        QWidget& window = *control.window();
        hand::click(control, place);
        hand::press(window, QStringLiteral("Ctrl+A")); // to replace what is there
        hand::type(window, text);
    });
}

Attempt InputCommands::press(Scene& scene, const Arguments& arguments)
{
    return Gesture([&scene, key = arguments.value("KEY")] {
        QWidget* const window = target();
        hand::press(window ? *window : scene.window(), key);
    });
}

Attempt InputCommands::hold(Scene& scene, const Arguments& arguments)
{
    const bool isPlaced = arguments.has("at");
    const double across = arguments.value("ACROSS").toDouble();
    const double down = arguments.value("DOWN").toDouble();
    return onControl(scene, arguments,
                     [&scene, isPlaced, across, down](QWidget& target, QPoint place) {
                         if (isPlaced)
                             place = {static_cast<int>((target.width() - 1) * across / 100),
                                      static_cast<int>((target.height() - 1) * down / 100)};
                         release(scene);
                         scene.held = {&target, place};
                         hand::hold(target, place);
                     });
}

void InputCommands::release(Scene& scene)
{
    QWidget* const widget = scene.held.widget;
    scene.held.widget.clear();
    if (widget)
        hand::letGo(*widget, scene.held.place);
}

/// Opens the list with the mouse, and chooses with the keys.
Attempt InputCommands::select(Scene& scene, const Arguments& arguments)
{
    const auto box = std::make_shared<QPointer<QComboBox>>();
    const auto opening = std::make_shared<Attempt>(
        onControl(scene, arguments, [box](QWidget& control, QPoint place) {
            *box = qobject_cast<QComboBox*>(&control);
            if (*box)
                hand::click(control, place);
        }));
    const auto choosing = std::make_shared<Attempt>();
    return [opening, choosing, box, item = arguments.value("ITEM")] {
        if (*choosing)
            return (*choosing)();
        Progress opened = (*opening)();
        if (opened.state != Progress::State::Done)
            return opened;
        if (!*box)
            return Progress::failed(tr("it is no list to choose from"));
        QAbstractItemView& list = *(*box)->view();
        if (!Controls::isOnScreen(*list.window()) || !list.isVisible())
            return Progress::waiting(tr("its list does not open"));
        const int index =
            indexOf(item, (*box)->count(), [&](int i) { return (*box)->itemText(i); });
        if (index < 0)
            return Progress::failed(tr("it has: %1").arg(Controls::text(list)));
        *choosing = Gesture([list = QPointer<QAbstractItemView>(&list), index] {
            if (!list)
                return;
            list->setCurrentIndex(list->model()->index(index, 0, list->rootIndex()));
            hand::press(*list->window(), QStringLiteral("Return"));
        });
        return (*choosing)();
    };
}

/// By its title, wherever it is, or by its number in the plugin's dialog.
Attempt InputCommands::openTab(Scene& scene, const Arguments& arguments)
{
    const auto begun = std::make_shared<Attempt>();
    return [&scene, begun, tab = arguments.value("TAB")] {
        if (*begun)
            return (*begun)();
        QList<QTabBar*> bars;
        for (auto* tabs : scene.view().findChildren<QTabWidget*>())
            bars << tabs->tabBar();
        if (tab.toInt() == 0)
            bars << scene.view().findChildren<QTabBar*>();
        QStringList titles;
        for (QTabBar* bar : std::as_const(bars)) {
            if (!Controls::isInSight(*bar))
                continue;
            const int index = indexOf(tab, bar->count(), [&](int i) { return bar->tabText(i); });
            if (index >= 0) {
                *begun = Gesture([bar = QPointer<QTabBar>(bar), index] {
                    if (bar)
                        hand::click(*bar, bar->tabRect(index).center());
                });
                return (*begun)();
            }
            titles << Controls::text(*bar).split('\n');
        }
        titles.removeDuplicates();
        return Progress::waiting(
            tr("there is no tab \"%1\"; there are: %2").arg(tab, titles.join(", ")));
    };
}

/// As the menu "View" does.
Attempt InputCommands::showDock(Scene& scene, const Arguments& arguments)
{
    const auto begun = std::make_shared<Attempt>();
    return [&scene, begun, name = arguments.value("DOCK"), isShown = arguments.has("show")] {
        QStringList titles;
        for (auto* dock : scene.window().findChildren<QDockWidget*>()) {
            const bool isOfOther =
                !scene.view().isAncestorOf(dock) && dock->parentWidget() != &scene.window();
            if (isOfOther)
                continue;
            const QString title = Controls::plain(dock->windowTitle());
            titles << title;
            if (title != name && dock->objectName() != name)
                continue;
            if (dock->isVisible() == isShown) {
                if (isShown && !Controls::isInSight(*dock))
                    dock->raise();
                return !isShown || Controls::isInSight(*dock)
                           ? Progress::done()
                           : Progress::waiting(tr("it lies behind another dock"));
            }
            if (!*begun) {
                *begun = Gesture([dock = QPointer<QDockWidget>(dock)] {
                    if (dock)
                        dock->toggleViewAction()->trigger();
                });
            }
            (*begun)();
            return Progress::waiting(isShown ? tr("it does not open") : tr("it does not close"));
        }
        return Progress::waiting(
            tr("there is no dock \"%1\"; there are: %2").arg(name, titles.join(", ")));
    };
}

} // namespace host::workbench::script
