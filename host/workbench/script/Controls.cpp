// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/script/Controls.h"

#include "host/workbench/script/Scene.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/Window.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>
#include <QWindow>

#include <algorithm>
#include <functional>

namespace host::workbench::script {

namespace {

constexpr int mostRows = 1000; // of a table whose text is read
constexpr int mostNames = 40;  // in an error

/// Without those that are inside of another one, as the field of a combo box is.
QList<QWidget*> outermost(const QList<QWidget*>& widgets)
{
    QList<QWidget*> found;
    for (QWidget* each : widgets) {
        const bool isInside = std::any_of(widgets.begin(), widgets.end(), [&](QWidget* other) {
            return other != each && other->isAncestorOf(each);
        });
        if (!isInside)
            found << each;
    }
    return found;
}

/// A label has the name of the control that it labels.
QList<QWidget*> withoutLabels(const QList<QWidget*>& widgets)
{
    QList<QWidget*> found;
    for (QWidget* each : widgets) {
        if (!qobject_cast<QLabel*>(each))
            found << each;
    }
    return found.isEmpty() ? widgets : found;
}

bool isControl(QWidget& widget)
{
    return widget.focusPolicy() != Qt::NoFocus || qobject_cast<QAbstractButton*>(&widget);
}

QString tableText(const QAbstractItemView& view)
{
    const QAbstractItemModel* const model = view.model();
    if (!model)
        return {};
    QStringList lines;
    const int rows = model->rowCount(view.rootIndex());
    for (int row = std::max(0, rows - mostRows); row < rows; ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(view.rootIndex()); ++column)
            cells << model->index(row, column, view.rootIndex()).data().toString();
        lines << cells.join('\t');
    }
    return lines.join('\n');
}

/// Lines are in a log before they are on the screen.
QString shownText(const QTextEdit& edit)
{
    QStringList lines;
    for (QTextBlock block = edit.document()->begin(); block.isValid(); block = block.next()) {
        if (block.layout()->lineCount() > 0)
            lines << block.text();
    }
    return lines.join('\n');
}

} // namespace

QWidget* Controls::topmost()
{
    QWidget* const popup = QApplication::activePopupWidget();
    return qobject_cast<QMenu*>(popup) ? popup : QApplication::activeModalWidget();
}

QList<QWidget*> Controls::roots(const Scene& scene)
{
    if (QWidget* const top = topmost())
        return {top};
    QList<QWidget*> roots{&scene.view()};
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible())
            roots << window;
    }
    return roots;
}

bool Controls::isInSight(const QWidget& widget)
{
    if (!widget.isVisible())
        return false;
    // A dock that lies behind another is beside its window.
    const QWidget& window = *widget.window();
    return window.rect().intersects({widget.mapTo(&window, QPoint()), widget.size()});
}

bool Controls::isOnScreen(const QWidget& window)
{
    return window.windowHandle() && window.windowHandle()->isExposed();
}

QList<QWidget*> Controls::inSight(const QList<QWidget*>& roots)
{
    QList<QWidget*> widgets;
    for (QWidget* root : roots) {
        for (QWidget* widget : QList<QWidget*>{root} + root->findChildren<QWidget*>()) {
            if (isInSight(*widget) && !widgets.contains(widget))
                widgets << widget;
        }
    }
    return widgets;
}

QString Controls::accessibleName(QWidget& widget)
{
    const QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&widget);
    if (!interface)
        return {};
    if (!qobject_cast<QComboBox*>(&widget) || !widget.accessibleName().isEmpty())
        return interface->text(QAccessible::Name);
    // What a combo box calls its name is what it shows.
    const auto labels = interface->relations(QAccessible::Label);
    return labels.isEmpty() ? QString() : labels.first().first->text(QAccessible::Name);
}

/// In the first of @p roots that has any; without @p except.
QList<QWidget*> Controls::all(const QString& name, const QList<QWidget*>& roots,
                              const QWidget* except)
{
    const QList<std::function<bool(QWidget&)>> ways = {
        [&](QWidget& widget) { return plain(accessibleName(widget)) == plain(name); },
        [&](QWidget& widget) { return widget.objectName() == name; },
        [&](QWidget& widget) { return widget.inherits(name.toUtf8().constData()); },
    };
    for (QWidget* root : roots) {
        const QList<QWidget*> widgets = inSight({root});
        for (const auto& isMeant : ways) {
            QList<QWidget*> found;
            for (QWidget* widget : widgets) {
                if (widget != except && isMeant(*widget))
                    found << widget;
            }
            if (!found.isEmpty())
                return outermost(withoutLabels(found));
        }
    }
    return {};
}

QWidget* Controls::find(const Scene& scene, const QString& name, const QString& place,
                        QString* problem)
{
    QList<QWidget*> around = roots(scene);
    QWidget* const outer = place.isEmpty() ? nullptr : find(scene, place, {}, problem);
    if (outer)
        around = {outer};
    else if (!place.isEmpty())
        return nullptr;
    const QList<QWidget*> found = all(name, around, outer);
    if (found.size() == 1)
        return found.first();
    if (found.size() > 1) {
        *problem = tr("there are %1 controls \"%2\"; say in which control")
                       .arg(QString::number(found.size()), name);
        return nullptr;
    }
    QStringList names;
    for (QWidget* widget : inSight(around)) {
        if (isControl(*widget))
            names << plain(accessibleName(*widget));
    }
    names.removeAll(QString());
    names.removeDuplicates();
    *problem = tr("there is no control \"%1\" in sight; there are: %2")
                   .arg(name, names.mid(0, mostNames).join(", "));
    return nullptr;
}

bool Controls::isAny(const Scene& scene, const QString& name, const QString& place)
{
    if (place.isEmpty())
        return !all(name, roots(scene), nullptr).isEmpty();
    QString problem;
    QWidget* const outer = find(scene, place, {}, &problem);
    return outer && !all(name, {outer}, outer).isEmpty();
}

QString Controls::ownText(const QWidget& widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->text();
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget))
        return combo->currentText();
    if (const auto* field = qobject_cast<const QLineEdit*>(&widget))
        return field->displayText();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return plain(button->text());
    if (const auto* box = qobject_cast<const QGroupBox*>(&widget))
        return plain(box->title());
    if (const auto* edit = qobject_cast<const QTextEdit*>(&widget))
        return shownText(*edit);
    if (qobject_cast<const QHeaderView*>(&widget))
        return {};
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget))
        return tableText(*view);
    QStringList lines;
    if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
        for (int tab = 0; tab < tabs->count(); ++tab)
            lines << plain(tabs->tabText(tab));
    }
    if (const auto* menu = qobject_cast<const QMenu*>(&widget)) {
        for (const QAction* action : menu->actions())
            lines << plain(action->text());
    }
    if (widget.isWindow())
        lines << widget.windowTitle();
    return lines.join('\n');
}

QString Controls::text(const QWidget& widget)
{
    QStringList lines{ownText(widget)};
    for (const QWidget* part : widget.findChildren<const QWidget*>()) {
        if (isInSight(*part))
            lines << ownText(*part);
    }
    lines.removeAll(QString());
    return lines.join('\n');
}

QString Controls::text(const Scene& scene)
{
    QStringList lines;
    for (const QWidget* root : roots(scene)) {
        if (root->isWindow())
            lines << text(*root);
    }
    return lines.join('\n');
}

QString Controls::plain(const QString& text)
{
    QString plain = text.section('\t', 0, 0); // the key is behind it
    plain.remove('&');
    for (const QString& mark :
         {QString(QChar(0x2026)), QStringLiteral("..."), QStringLiteral(":")}) {
        if (plain.endsWith(mark))
            plain.chop(static_cast<int>(mark.size()));
    }
    return plain.trimmed();
}

} // namespace host::workbench::script
