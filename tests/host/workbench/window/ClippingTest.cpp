// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "FullWindow.h"

#include "host/workbench/window/ElidedLabel.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QHostAddress>
#include <QLabel>
#include <QScrollArea>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTcpSocket>
#include <QtTest>

namespace clipping_test {

using namespace full_window;
using host::workbench::window::ElidedLabel;

namespace {

/// Empty if all of the text has room.
QString clipped(const QWidget& widget)
{
    const QSize hint = widget.sizeHint();
    const QSize size = widget.size();
    constexpr int leading = 1; // what lies between lines may be missing
    QString text;
    bool fits = true;
    if (const auto* elided = qobject_cast<const ElidedLabel*>(&widget)) {
        text = elided->text();
        fits = !elided->toolTip().isEmpty() && hint.height() <= size.height();
    } else if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        text = label->text();
        fits = label->wordWrap()
                   ? label->heightForWidth(size.width()) <= size.height() &&
                         label->minimumSizeHint().width() <= size.width()
                   : hint.width() <= size.width() && hint.height() <= size.height() + leading;
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        text = button->text();
        fits = hint.width() <= size.width() && hint.height() <= size.height();
    } else if (const auto* box = qobject_cast<const QGroupBox*>(&widget)) {
        text = box->title();
        fits = box->minimumSizeHint().width() <= size.width();
    } else if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        text = combo->currentText();
        QStyleOptionComboBox option;
        option.initFrom(combo);
        option.editable = combo->isEditable();
        const QRect field = combo->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                           QStyle::SC_ComboBoxEditField, combo);
        fits = combo->isEditable() || combo->fontMetrics().horizontalAdvance(text) <= field.width();
    } else if (const auto* bar = qobject_cast<const QTabBar*>(&widget)) {
        for (int tab = 0; tab < bar->count(); ++tab) {
            text += bar->tabText(tab) + ' ';
            fits =
                fits && bar->rect().contains(bar->tabRect(tab)) &&
                bar->fontMetrics().horizontalAdvance(bar->tabText(tab)) < bar->tabRect(tab).width();
        }
    }
    if (fits || text.isEmpty())
        return {};
    return QString("%1: \"%2\" has %3 x %4 of %5 x %6")
        .arg(describe(widget), text)
        .arg(size.width())
        .arg(size.height())
        .arg(hint.width())
        .arg(hint.height());
}

/// Whether something around it cuts it off, where it could not be scrolled to either.
bool isCutOff(const QWidget& widget)
{
    QRect rect = widget.rect();
    for (const QWidget* each = &widget; !each->isWindow(); each = each->parentWidget()) {
        const QWidget* const parent = each->parentWidget();
        if (const auto* area = qobject_cast<const QScrollArea*>(parent->parentWidget())) {
            if (area->viewport() == parent)
                return false;
        }
        rect.translate(each->pos());
        if (!parent->rect().contains(rect))
            return true;
    }
    return false;
}

QStringList clippedTexts(const QWidget& window)
{
    QStringList found;
    for (const auto* widget : window.findChildren<QWidget*>()) {
        if (isOutOfSight(*widget))
            continue;
        const QString words = clipped(*widget);
        if (!words.isEmpty())
            found << words;
        else if (widget->focusPolicy() != Qt::NoFocus && isCutOff(*widget))
            found << describe(*widget) + " is cut off";
    }
    return found;
}

} // namespace

/// All texts have room on small screens.
class ClippingTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void nothing_is_clipped_in_the_smallest_window_data();
    void nothing_is_clipped_in_the_smallest_window();
};

void ClippingTest::nothing_is_clipped_in_the_smallest_window_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("plugin");
    for (const QString& code : host::workbench::preferences::Language::codes()) {
        QTest::addRow("%s", qPrintable(code)) << code << DEVICE_PLUGIN_FILE;
        QTest::addRow("%s, without dialog", qPrintable(code))
            << code << TEST_PLUGIN_FOLDER "/OnlyToolbar.so";
        QTest::addRow("%s, without plugin", qPrintable(code))
            << code << TEST_PLUGIN_FOLDER "/no_such_file.so";
    }
}

void ClippingTest::nothing_is_clipped_in_the_smallest_window()
{
    expectWarning("does not support propagateSizeHints");
    QFETCH(const QString, language);
    QFETCH(const QString, plugin);
    // Bound and not listening: this port refuses as long as the socket lives. That leaves the
    // longest of all words about a connection.
    QTcpSocket closedPort;
    QVERIFY(closedPort.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress));
    FullWindow workbench(plugin);
    workbench.use(language);
    workbench.device.overrideAddress("127.0.0.1:" + QString::number(closedPort.localPort()));
    workbench.device.connectDevice();
    QTRY_VERIFY_WITH_TIMEOUT(!workbench.device.connection().lastFailure().words.isEmpty(),
                             patience);

    workbench.settle();
    workbench.window.resize(workbench.window.minimumSizeHint());
    QVERIFY(isEmpty(workbench.find(clippedTexts)));
}

TEST_WITH_WINDOWS(ClippingTest)

} // namespace clipping_test

#include "ClippingTest.moc"
