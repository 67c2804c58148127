// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/tests/AccessTests.h"

#include "host/check/stage/Controls.h"
#include "host/check/stage/Failure.h"
#include "host/check/stage/Progress.h"
#include "host/check/stage/Stage.h"
#include "host/check/stage/Subject.h"
#include "host/input/Hand.h"
#include "host/workbench/preferences/Contrast.h"
#include "host/workbench/preferences/PseudoTranslator.h"

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QFont>
#include <QHash>
#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QRadioButton>

#include <algorithm>

namespace host::check::tests {

namespace {

using stage::fail;
using stage::Progress;
using stage::Stage;
using stage::Subject;

/// Each once.
void failWith(QStringList faults, const QString& what)
{
    faults.removeDuplicates();
    if (!faults.isEmpty())
        fail(what.arg(faults.join(", ")));
}

bool hasName(QWidget& control)
{
    QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(&control);
    return (access && !access->text(QAccessible::Name).isEmpty()) || !control.toolTip().isEmpty() ||
           !control.property("placeholderText").toString().isEmpty();
}

void namesItsControls(Subject& subject)
{
    Stage stage(subject);
    stage.host().welcome();
    stage.show();
    QStringList nameless;
    stage::forEachControl(*stage.widget(), [&](QWidget& control) {
        if (!hasName(control))
            nameless << stage::nameOf(control);
    });
    failWith(nameless, QStringLiteral("has controls that a screen reader cannot name: %1"));
}

/// A widget that has the focus after each of so many presses of Tab.
QList<const QWidget*> tabThrough(QWidget& root, int presses)
{
    QList<const QWidget*> way;
    for (int i = 0; i < presses; ++i) {
        input::hand::press(root, "Tab");
        way << QApplication::focusWidget();
    }
    return way;
}

bool isOnWay(const QWidget& control, const QList<const QWidget*>& way)
{
    return std::any_of(way.begin(), way.end(), [&](const QWidget* focus) {
        return focus == &control || (focus && control.isAncestorOf(focus));
    });
}

/// Of a group of radio buttons Tab reaches one; the arrow keys do the rest.
bool isReachedByArrows(const QWidget& control)
{
    const auto* const button = qobject_cast<const QRadioButton*>(&control);
    return button && !button->isChecked();
}

void isReachedByTab(Subject& subject)
{
    constexpr int presses = 60;
    constexpr int patience = 5; // presses until a control that keeps the focus counts as a trap
    Stage stage(subject);
    stage.host().welcome();
    stage.show();
    QStringList unreached;
    QStringList traps;
    stage::forEachPage(*stage.widget(), [&] {
        const QList<const QWidget*> way = tabThrough(*stage.widget(), presses);
        for (int i = patience; i < way.size(); ++i) {
            const QWidget* const focus = way.at(i);
            if (focus &&
                std::all_of(way.begin() + i - patience, way.begin() + i,
                            [&](const QWidget* before) { return before == focus; }) &&
                std::any_of(way.begin(), way.end(),
                            [&](const QWidget* other) { return other != focus; })) {
                traps << stage::nameOf(*focus);
                return; // and what lies behind it was not looked for
            }
        }
        for (const QWidget* control : stage::visibleControls(*stage.widget())) {
            if (!isOnWay(*control, way) && !isReachedByArrows(*control))
                unreached << stage::nameOf(*control);
        }
    });
    failWith(traps, QStringLiteral("has controls that Tab does not leave: %1"));
    failWith(unreached, QStringLiteral("has controls that Tab does not reach: %1"));
}

QStringList s_modelFaults;

void noteModelFault(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtWarningMsg && qstrcmp(context.category, "qt.modeltest") == 0)
        s_modelFaults << text;
}

void hasSoundModels(Subject& subject)
{
    Stage stage(subject);
    stage.host().welcome();
    stage.show();
    qInstallMessageHandler(noteModelFault);
    QList<QAbstractItemModel*> models;
    for (const QAbstractItemView* view : stage.widget()->findChildren<QAbstractItemView*>()) {
        if (view->model() && !models.contains(view->model()))
            models << view->model();
    }
    for (QAbstractItemModel* model : std::as_const(models)) {
        Progress::note(QStringLiteral("the test of the model %1")
                           .arg(QLatin1String(model->metaObject()->className())));
        new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::Warning,
                                     model);
    }
    stage.tellEverything();
    stage::forEachControl(*stage.widget(), [](QWidget& control) { stage::use(control); });
    qInstallMessageHandler(nullptr);
    failWith(s_modelFaults.mid(0, 3),
             QStringLiteral("has an item model that breaks Qt's rules: %1"));
}

/// The contrast of a text with its ground: of the colour that is most unlike the usual one.
double contrastIn(const QImage& image)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    }
    QRgb ground = 0;
    for (auto count = counts.begin(); count != counts.end(); ++count) {
        if (count.value() > counts.value(ground))
            ground = count.key();
    }
    double best = 1;
    for (auto count = counts.begin(); count != counts.end(); ++count)
        best =
            std::max(best, workbench::preferences::contrast(QColor(count.key()), QColor(ground)));
    return best;
}

/// Those that show words and are not disabled.
QList<QWidget*> visibleTexts(const QWidget& root)
{
    QList<QWidget*> found;
    for (QWidget* widget : root.findChildren<QWidget*>()) {
        const auto* const label = qobject_cast<QLabel*>(widget);
        const auto* const button = qobject_cast<QAbstractButton*>(widget);
        const QString text = label ? label->text() : button ? button->text() : QString();
        if (widget->isVisible() && widget->isEnabled() && !text.isEmpty())
            found << widget;
    }
    return found;
}

void isReadable(Subject& subject)
{
    Stage stage(subject);
    stage.host().welcome();
    stage.show();
    QStringList faint;
    stage::forEachPage(*stage.widget(), [&] {
        const QImage image = stage.widget()->grab().toImage();
        for (const QWidget* text : visibleTexts(*stage.widget())) {
            const QRect place(text->mapTo(stage.widget(), QPoint()), text->size());
            const double contrast = contrastIn(image.copy(place & image.rect()));
            if (contrast < workbench::preferences::contrastOfText)
                faint << QStringLiteral("%1 (%2 : 1)")
                             .arg(stage::nameOf(*text))
                             .arg(contrast, 0, 'f', 1);
        }
    });
    failWith(faint, QStringLiteral("has texts with too little contrast, 4.5 : 1 is the least: %1"));
}

/// With letters that are @p factor times as large as usual, in a language of long words.
void cutsNothing(Subject& subject, int factor)
{
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * factor);
    QApplication::setFont(font);
    Stage stage(subject);
    const workbench::preferences::PseudoTranslator pseudo;
    stage.host().setLanguage(QStringLiteral("pseudo"), [&pseudo](const QString& text) {
        return pseudo.translate("", text.toUtf8().constData(), nullptr, -1);
    });
    stage.host().welcome();
    stage.show();
    QStringList cut;
    stage::forEachPage(*stage.widget(), [&] {
        for (const QWidget* text : visibleTexts(*stage.widget())) {
            const auto* const label = qobject_cast<const QLabel*>(text);
            const bool mayWrap = label && label->wordWrap();
            const int missing = text->sizeHint().width() - text->width();
            if (missing > 0 && !mayWrap)
                cut << QStringLiteral("%1 (by %2 pixels)").arg(stage::nameOf(*text)).arg(missing);
        }
    });
    failWith(cut, QStringLiteral("cuts texts off where they are long: %1"));
}

} // namespace

Tests accessTests()
{
    constexpr auto widget = Test::Scope::Widget;
    return {
        {"names", 8, widget, namesItsControls, "has a name for each control"},
        {"tab-key", 8, widget, isReachedByTab, "can be used with Tab alone"},
        {"item-models", 8, widget, hasSoundModels, "has item models that keep Qt's rules"},
        {"contrast", 8, widget, isReadable, "shows texts with enough contrast"},
        {"clipping", 8, widget, [](Subject& subject) { cutsNothing(subject, 1); },
         "has room for long texts"},
        {"clipping-large", 8, widget, [](Subject& subject) { cutsNothing(subject, 2); },
         "has room for long texts in letters twice as large"},
        {"clipping-scale", 8, widget, [](Subject& subject) { cutsNothing(subject, 1); },
         "has room for long texts on a screen of twice as many pixels", 2},
    };
}

} // namespace host::check::tests
