// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/stage/Controls.h"

#include "host/check/stage/Stage.h"
#include "host/device/trace/CallUnderWay.h"
#include "host/input/Hand.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QScrollBar>
#include <QSet>
#include <QSpinBox>
#include <QTabBar>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTimer>

#include <utility>

namespace host::check::stage {

namespace hand = input::hand;

namespace {

bool isPartOfAnother(const QWidget& control)
{
    for (const QWidget* parent = control.parentWidget(); parent; parent = parent->parentWidget()) {
        if (qobject_cast<const QComboBox*>(parent) ||
            qobject_cast<const QAbstractSpinBox*>(parent) || qobject_cast<const QTabBar*>(parent) ||
            qobject_cast<const QLineEdit*>(parent) ||
            qobject_cast<const QAbstractItemView*>(parent))
            return true;
    }
    return false;
}

bool isControl(const QWidget& widget)
{
    const bool isOne =
        qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
        qobject_cast<const QAbstractSpinBox*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
        (qobject_cast<const QAbstractSlider*>(&widget) &&
         !qobject_cast<const QScrollBar*>(&widget));
    return isOne && !isPartOfAnother(widget);
}

/// Closes what opens, while it lives: a menu or a dialog would wait for a person.
class Closing
{
public:
    Closing()
    {
        constexpr int interval = 5; // ms
        QObject::connect(&m_timer, &QTimer::timeout, [] {
            if (QWidget* const popup = QApplication::activePopupWidget())
                popup->close();
            else if (QWidget* const dialog = QApplication::activeModalWidget())
                dialog->close();
        });
        m_timer.start(interval);
    }

private:
    QTimer m_timer;
};

class Texts
{
public:
    QList<ShownText> all;

    void addWidget(const QWidget& widget)
    {
        const QString where = nameOf(widget);
        add(where, "tool tip", widget.toolTip());
        add(where, "help text", widget.whatsThis());
        add(where, "status tip", widget.statusTip());
        add(where, "accessible name", widget.accessibleName());
        add(where, "window title", widget.windowTitle());
        for (const QAction* action : widget.actions())
            addAction(*action);
        if (const auto* label = qobject_cast<const QLabel*>(&widget))
            add(where, "text", label->text());
        else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
            add(where, "text", button->text());
        else if (const auto* box = qobject_cast<const QGroupBox*>(&widget))
            add(where, "title", box->title());
        else if (const auto* tabs = qobject_cast<const QTabBar*>(&widget))
            addTabs(where, *tabs);
        else if (const auto* line = qobject_cast<const QLineEdit*>(&widget))
            add(where, "placeholder", line->placeholderText());
        else if (const auto* choice = qobject_cast<const QComboBox*>(&widget))
            addItems(where, *choice);
        else if (const auto* header = qobject_cast<const QHeaderView*>(&widget))
            addSections(where, *header);
        else if (const auto* spin = qobject_cast<const QAbstractSpinBox*>(&widget))
            add(where, "special value", spin->specialValueText());
    }

private:
    void add(const QString& where, const char* what, const QString& text)
    {
        const QString plain =
            Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
        if (!plain.isEmpty())
            all.append({QStringLiteral("the %1 of the %2").arg(QLatin1String(what), where), plain});
    }

    void addAction(const QAction& action)
    {
        if (action.property(RecordingHost::isHosts).toBool())
            return;
        add(QStringLiteral("menu"), "entry", action.text());
    }

    void addTabs(const QString& where, const QTabBar& tabs)
    {
        for (int i = 0; i < tabs.count(); ++i) {
            add(where, "title of a tab", tabs.tabText(i));
            add(where, "tool tip of a tab", tabs.tabToolTip(i));
        }
    }

    void addItems(const QString& where, const QComboBox& choice)
    {
        if (choice.lineEdit())
            add(where, "placeholder", choice.lineEdit()->placeholderText());
        for (int i = 0; i < choice.count() && !choice.isEditable(); ++i)
            add(where, "choice", choice.itemText(i));
    }

    void addSections(const QString& where, const QHeaderView& header)
    {
        if (!header.model())
            return;
        for (int i = 0; i < header.count(); ++i)
            add(where, "heading", header.model()->headerData(i, header.orientation()).toString());
    }
};

/// Does to @p control what changes it.
QString change(QWidget& control)
{
    const QString name = nameOf(control);
    if (auto* const button = qobject_cast<QAbstractButton*>(&control)) {
        constexpr int indicator = 8; // pixels: where a box to check is
        hand::click(control, {button->isCheckable() ? indicator : button->width() / 2,
                              button->height() / 2});
        return QStringLiteral("a click on the %1").arg(name);
    }
    QWidget& window = *control.window();
    const QPointer<QWidget> guard(&control);
    control.setFocus(Qt::TabFocusReason);
    const auto* const choice = qobject_cast<QComboBox*>(&control);
    if (qobject_cast<QLineEdit*>(&control) || (choice && choice->isEditable())) {
        hand::press(window, "7");
        if (guard)
            hand::press(window, "Return");
        return QStringLiteral("\"7\" and Return in the %1").arg(name);
    }
    const QString key = choice ? QStringLiteral("Down") : QStringLiteral("Up");
    hand::press(window, key);
    return QStringLiteral("the key %1 in the %2").arg(key, name);
}

} // namespace

QString nameOf(const QWidget& control)
{
    const QString name = control.objectName();
    QString words = QString::fromLatin1(control.metaObject()->className());
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    if (!name.isEmpty() && !name.startsWith(QLatin1String("qt_")))
        words += QStringLiteral(" \"%1\"").arg(name);
    else if (button && !button->text().isEmpty())
        words += QStringLiteral(" \"%1\"").arg(button->text());
    return words;
}

QList<QWidget*> visibleControls(const QWidget& root)
{
    QList<QWidget*> found;
    for (QWidget* widget : root.findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->isEnabled() && isControl(*widget))
            found << widget;
    }
    return found;
}

void forEachPage(QWidget& root, const std::function<void()>& visit)
{
    const QPointer<QWidget> guard(&root);
    visit();
    if (!guard)
        return;
    QList<QPointer<QTabBar>> bars;
    for (QTabBar* bar : root.findChildren<QTabBar*>())
        bars << bar;
    for (const QPointer<QTabBar>& bar : std::as_const(bars)) {
        for (int i = 0; bar && i < bar->count(); ++i) {
            bar->setCurrentIndex(i);
            settle();
            visit();
        }
    }
}

void forEachControl(QWidget& root, const std::function<void(QWidget& control)>& visit)
{
    QSet<const QWidget*> visited;
    const QPointer<QWidget> guard(&root);
    forEachPage(root, [&] {
        if (!guard)
            return;
        QList<QPointer<QWidget>> controls; // some may go while others are visited
        for (QWidget* control : visibleControls(root))
            controls << control;
        for (const QPointer<QWidget>& control : std::as_const(controls)) {
            if (!control || !control->isVisible() || !control->isEnabled() ||
                visited.contains(control))
                continue;
            visited.insert(control);
            visit(*control);
        }
    });
}

QString use(QWidget& control)
{
    const device::trace::CallUnderWay call("reaction to a person's action");
    const Closing closing;
    QString what = change(control);
    settle();
    return what;
}

QList<ShownText> shownTexts(const QWidget& root)
{
    Texts texts;
    texts.addWidget(root);
    for (const QWidget* widget : root.findChildren<QWidget*>())
        texts.addWidget(*widget);
    return texts.all;
}

} // namespace host::check::stage
