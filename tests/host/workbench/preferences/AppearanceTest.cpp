// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/preferences/Appearance.h"
#include "host/workbench/preferences/Contrast.h"
#include "host/workbench/preferences/PreferenceMenu.h"
#include "host/workbench/window/Notice.h"
#include "host/workbench/window/StartPage.h"
#include "host/workbench/window/Window.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStyle>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <QtTest>

#include <algorithm>

namespace appearance_test {

using host::loading::PluginLoader;
using namespace host::workbench::plugin;
using namespace host::workbench::preferences;
using namespace host::workbench::window;
using host::device::Device;

namespace {

/// A window whose plugin brings no dialog, so that the page with a style sheet stands in for it.
struct Workbench
{
    Workbench()
        : plugin(TEST_PLUGIN_FOLDER "/OnlyToolbar.so"),
          device("Quandrel", settings.path(), environment),
          window(plugin, environment)
    {
        window.add(device, QString());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window, patience));
    }

    void choose(const QString& code) const
    {
        for (QAction* action : window.findChild<PreferenceMenu*>("appearance")->actions()) {
            if (action->data() == code)
                action->trigger();
        }
    }

    const QTemporaryDir settings;
    const PluginLoader plugin;
    PluginEnvironment environment;
    Device device;
    Window window;
};

/// The colour that most of the widget has.
QColor background(QWidget& widget)
{
    const QImage image = widget.grab().toImage();
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    }
    QRgb most = 0;
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        if (entry.value() > counts.value(most))
            most = entry.key();
    }
    return QColor(most);
}

bool isDark(QWidget& widget)
{
    return contrast(Qt::white, background(widget)) > contrast(Qt::black, background(widget));
}

} // namespace

/// Appearance and its menu.
class AppearanceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void every_text_is_legible_on_its_ground_data();
    void every_text_is_legible_on_its_ground();
    void every_control_has_an_edge_in_sight_data();
    void every_control_has_an_edge_in_sight();
    void a_choice_takes_effect_at_once_in_all_widgets();
    void links_in_the_help_follow();
    void the_systems_style_and_palette_come_back();
    void the_menu_shows_which_appearance_is_used();
    void a_choice_is_kept_for_the_next_start();
    void what_is_kept_is_used_only_if_it_is_an_appearance();
};

void AppearanceTest::every_text_is_legible_on_its_ground_data()
{
    QTest::addColumn<QString>("code");
    for (const QString& code : Appearance::codes())
        QTest::addRow("%s", qPrintable(code)) << code;
}

void AppearanceTest::every_text_is_legible_on_its_ground()
{
    QFETCH(const QString, code);
    Appearance appearance;
    appearance.use(code);
    const QPalette palette = QApplication::palette();
    const auto compare = [&](QPalette::ColorGroup group, QPalette::ColorRole text,
                             QPalette::ColorRole ground, double least) {
        const double found = contrast(palette.color(group, text), palette.color(group, ground));
        QVERIFY2(
            found >= least,
            qPrintable(
                QString("%1 on %2, group %3: %4").arg(text).arg(ground).arg(group).arg(found)));
    };
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        for (const auto ground : {QPalette::Window, QPalette::Base, QPalette::AlternateBase}) {
            compare(group, QPalette::WindowText, ground, 7);
            compare(group, QPalette::Text, ground, 7);
            compare(group, QPalette::Link, ground, 4.5);
            compare(group, QPalette::LinkVisited, ground, 4.5);
        }
        compare(group, QPalette::ButtonText, QPalette::Button, 7);
        compare(group, QPalette::HighlightedText, QPalette::Highlight, 4.5);
        compare(group, QPalette::ToolTipText, QPalette::ToolTipBase, 7);
        compare(group, QPalette::PlaceholderText, QPalette::Base, 4.5);
    }
    // What is disabled, and old values, which have its colour, are fainter and still want reading.
    compare(QPalette::Disabled, QPalette::WindowText, QPalette::Window, contrastOfText);
    compare(QPalette::Disabled, QPalette::Text, QPalette::Base, contrastOfText);
    compare(QPalette::Disabled, QPalette::ButtonText, QPalette::Button, contrastOfText);
}

void AppearanceTest::every_control_has_an_edge_in_sight_data()
{
    every_text_is_legible_on_its_ground_data();
}

void AppearanceTest::every_control_has_an_edge_in_sight()
{
    QFETCH(const QString, code);
    Appearance appearance;
    appearance.use(code);
    QWidget window;
    auto* const column = new QVBoxLayout(&window);
    column->addWidget(new QLineEdit); // the focus is in here
    const QList<QWidget*> controls{new QLineEdit, new QSpinBox,     new QComboBox,
                                   new QCheckBox, new QRadioButton, new QPushButton("Text")};
    for (QWidget* control : controls)
        column->addWidget(control);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window, patience));
    const QImage picture = window.grab().toImage();
    const auto bestEdge = [&](const QWidget& control) {
        double best = 1;
        for (int x = 0; x < 8; ++x) { // fields have a margin around their frame
            const QPoint place = control.mapTo(&window, QPoint(x, control.height() / 2));
            best = std::max(best, contrast(picture.pixelColor(place),
                                           window.palette().color(QPalette::Window)));
        }
        return best;
    };
    for (const QWidget* control : controls) {
        const double found = bestEdge(*control);
        QVERIFY2(found >= contrastOfControls,
                 qPrintable(QString("%1: %2").arg(control->metaObject()->className()).arg(found)));
    }

    QMenu menu;
    menu.addAction("Text");
    menu.resize(menu.sizeHint());
    const QImage popup = menu.grab().toImage();
    QVERIFY(contrast(popup.pixelColor(0, popup.height() / 2),
                     popup.pixelColor(3, popup.height() / 2)) >= contrastOfControls);
}

void AppearanceTest::a_choice_takes_effect_at_once_in_all_widgets()
{
    expectWarning("does not support propagateSizeHints");
    Workbench workbench;
    auto* const page = workbench.window.findChild<StartPage*>();
    auto* const sheet = page->findChild<QWidget*>("sheet"); // has a style sheet
    auto* const toolBar = workbench.window.findChild<QWidget*>("toolBar");
    for (const char* code : {"dark", "light", "dark"}) {
        const bool dark = QString(code) == "dark";
        workbench.choose(code);
        for (QWidget* widget : {static_cast<QWidget*>(page), sheet, toolBar})
            QTRY_COMPARE_WITH_TIMEOUT(isDark(*widget), dark, patience);
        for (const auto* label : sheet->findChildren<QLabel*>()) {
            const QColor text = label->palette().color(label->foregroundRole());
            QVERIFY2(contrast(text, background(*sheet)) > 7, qPrintable(label->text()));
        }
    }
}

void AppearanceTest::links_in_the_help_follow()
{
    expectWarning("does not support propagateSizeHints");
    Workbench workbench;
    workbench.environment.helpAction("toolbar")->trigger();
    const auto* const browser = workbench.window.findChild<QTextBrowser*>();
    const auto linkColours = [browser] {
        QSet<QRgb> colours;
        for (auto block = browser->document()->begin(); block.isValid(); block = block.next()) {
            for (auto part = block.begin(); part != block.end(); ++part) {
                const QTextCharFormat format = part.fragment().charFormat();
                if (format.isAnchor())
                    colours << format.foreground().color().rgb();
            }
        }
        return colours;
    };
    workbench.choose("dark");
    const QRgb dark = QApplication::palette().color(QPalette::Link).rgb();
    QTRY_COMPARE_WITH_TIMEOUT(linkColours(), QSet<QRgb>{dark}, patience);
    workbench.choose("light");
    const QRgb light = QApplication::palette().color(QPalette::Link).rgb();
    QVERIFY(light != dark);
    QTRY_COMPARE_WITH_TIMEOUT(linkColours(), QSet<QRgb>{light}, patience);
}

void AppearanceTest::the_systems_style_and_palette_come_back()
{
    QApplication::setPalette(QPalette()); // of the tests before
    QApplication::setStyle("windows");
    const QPalette system = QApplication::palette();
    Appearance appearance;
    appearance.use("system");
    const QPalette before = QApplication::palette();
    for (const auto role :
         {QPalette::Window, QPalette::Base, QPalette::WindowText, QPalette::Highlight})
        QCOMPARE(before.color(role), system.color(role));
    appearance.use("dark");
    QCOMPARE(QApplication::style()->objectName(), QString("fusion"));
    QVERIFY(QApplication::palette() != before);
    appearance.use("light");
    appearance.use("system");
    QCOMPARE(QApplication::style()->objectName(), QString("windows"));
    QCOMPARE(QApplication::palette(), before);
}

void AppearanceTest::the_menu_shows_which_appearance_is_used()
{
    Appearance appearance;
    appearance.use("dark");
    const PreferenceMenu menu(appearance, nullptr);
    QStringList checked;
    for (const QAction* action : menu.actions()) {
        if (action->isChecked())
            checked << action->data().toString();
    }
    QCOMPARE(checked, QStringList("dark"));
    menu.actions().first()->trigger();
    QCOMPARE(appearance.code(), QString("system"));
    QVERIFY(menu.actions().first()->isChecked());
}

void AppearanceTest::a_choice_is_kept_for_the_next_start()
{
    const QTemporaryDir folder;
    PluginEnvironment environment;
    environment.language().restore(folder.path());
    environment.appearance().restore(folder.path());
    QCOMPARE(environment.appearance().code(), QString("system"));
    QCOMPARE(environment.appearance().choose("dark"), QString());
    QCOMPARE(environment.language().choose("de"), QString()); // in the same file

    PluginEnvironment next;
    next.language().restore(folder.path());
    next.appearance().restore(folder.path());
    QCOMPARE(next.appearance().code(), QString("dark"));
    QCOMPARE(next.language().code(), QString("de"));
    // Used for once, as from the command line, is not kept.
    next.appearance().use("light");
    Appearance third;
    third.restore(folder.path());
    QCOMPARE(third.code(), QString("dark"));
}

void AppearanceTest::what_is_kept_is_used_only_if_it_is_an_appearance()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("workbench.preferences"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"appearance": "mauve"})");
    file.close();
    Appearance appearance;
    appearance.restore(folder.path());
    QCOMPARE(appearance.code(), QString("system"));

    const QString missing =
        folder.filePath("workbench.preferences/below"); // no folder can be made there
    appearance.restore(missing);
    const QString words = appearance.choose("dark");
    QVERIFY2(words.contains(missing), qPrintable(words));
    QCOMPARE(appearance.code(), QString("dark"));
}

TEST_WITH_WINDOWS(AppearanceTest)

} // namespace appearance_test

#include "AppearanceTest.moc"
