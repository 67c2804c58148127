// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/plugin/FailureCard.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/preferences/Language.h"
#include "host/workbench/preferences/PreferenceMenu.h"
#include "host/workbench/preferences/PseudoTranslator.h"
#include "host/workbench/window/Notice.h"
#include "host/workbench/window/Window.h"

#include <QAbstractButton>
#include <QAction>
#include <QDialogButtonBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QToolBar>
#include <QXmlStreamReader>
#include <QtTest>

namespace language_test {

using host::loading::PluginLoader;
using namespace host::workbench::plugin;
using namespace host::workbench::preferences;
using namespace host::workbench::window;
using host::device::Device;

namespace {

/// A window with the plugin's dialog in it.
struct Workbench
{
    explicit Workbench(const QString& pluginFile = DEVICE_PLUGIN_FILE)
        : plugin(pluginFile),
          device("Quandrel", settings.path(), environment),
          window(plugin, environment)
    {
        window.add(device, "127.0.0.1:4711");
    }

    template <class Widget>
    Widget* find(const char* name = "") const
    {
        return window.findChild<Widget*>(QLatin1String(name));
    }

    PreferenceMenu* menu() const { return find<PreferenceMenu>("language"); }

    /// As a person would: out of the menu.
    void choose(const QString& code) const
    {
        for (QAction* action : menu()->actions()) {
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

bool isWords(const QString& text)
{
    static const QRegularExpression word("\\p{L}{3}");
    return text.contains(word) && !text.startsWith('/') /* a robot's name */ &&
           !Language::codes().contains(text.toLower()) && text != "English" && text != "Deutsch" &&
           text != "Quandrel";
}

/// Every text that the window shows.
QStringList textsIn(const QWidget& window)
{
    QStringList texts;
    for (const auto* label : window.findChildren<QLabel*>())
        texts << label->text();
    for (const auto* button : window.findChildren<QAbstractButton*>())
        texts << button->text() << button->toolTip();
    for (const auto* box : window.findChildren<QGroupBox*>())
        texts << box->title();
    for (const auto* action : window.findChildren<QAction*>())
        texts << action->text();
    for (const auto* tabs : window.findChildren<QTabWidget*>()) {
        for (int tab = 0; tab < tabs->count(); ++tab)
            texts << tabs->tabText(tab);
    }
    for (const auto* table : window.findChildren<QTableView*>()) {
        for (int column = 0; column < table->model()->columnCount(); ++column)
            texts << table->model()->headerData(column, Qt::Horizontal).toString();
    }
    return texts;
}

QString pseudo(const char* text)
{
    return PseudoTranslator().translate("", text, "", -1);
}

} // namespace

/// Language, its menu and the pseudo-language, with a window that shows the real plugin.
class LanguageTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everything_in_the_window_follows_the_menu();
    void every_text_of_the_pseudo_language_is_in_brackets();
    void a_card_and_a_strip_follow_the_language();
    void qts_own_texts_follow_the_language();
    void every_text_of_the_plugin_is_found_without_its_context();
    void the_menu_shows_which_language_is_used();
    void a_choice_is_kept_for_the_next_start();
    void a_choice_that_cannot_be_kept_is_told();
    void what_is_kept_is_used_only_if_it_is_a_language();
    void a_damaged_file_of_choices_is_told();
    void the_pseudo_language_keeps_what_is_not_words_data();
    void the_pseudo_language_keeps_what_is_not_words();
    void the_pseudo_language_is_about_two_fifths_longer();
};

void LanguageTest::everything_in_the_window_follows_the_menu()
{
    Workbench workbench;
    const auto* tabs = workbench.find<QTabWidget>();
    QAction* help = workbench.environment.helpAction("toolbar");
    QCOMPARE(tabs->tabText(2), QString("Laser rangefinder"));
    QCOMPARE(workbench.environment.currentLanguage(), QString("en"));

    workbench.choose("de");
    QCOMPARE(workbench.environment.currentLanguage(), QString("de"));
    QCOMPARE(help->text(), QString("Hilfe: Verbinden"));
    QTRY_COMPARE_WITH_TIMEOUT(tabs->tabText(2), QString("Laserscanner"), patience);
    const QStringList texts = textsIn(workbench.window);
    for (const char* text :
         {"Basis", "Antrieb abschalten", "Leitung 1 eingeschaltet", "Kamera", "Name", "Achse1",
          "Kleinster Winkel \\[Grad]:", "&Datei", "&Beenden", "&Sprache", "&Hilfe",
          "Simulierter Roboter: 127.0.0.1:4711", "Nicht verbunden."})
        QVERIFY2(texts.contains(text), text);
    QVERIFY(workbench.window.windowTitle().contains("Werkbank"));
    QCOMPARE(workbench.find<QToolBar>("toolBar")->windowTitle(), QString::fromUtf8("Gerät"));

    workbench.choose("en");
    QTRY_COMPARE_WITH_TIMEOUT(tabs->tabText(2), QString("Laser rangefinder"), patience);
    QCOMPARE(help->text(), QString("Help: Connecting"));
    QVERIFY(textsIn(workbench.window).contains("Disable drive system"));
}

void LanguageTest::every_text_of_the_pseudo_language_is_in_brackets()
{
    Workbench workbench;
    workbench.choose("pseudo");
    QCOMPARE(workbench.environment.currentLanguage(), QString("en"));
    QTRY_VERIFY_WITH_TIMEOUT(workbench.window.windowTitle().startsWith('['), patience);
    int words = 0;
    for (const QString& text : textsIn(workbench.window)) {
        if (!isWords(text))
            continue;
        ++words;
        QVERIFY2(text.contains('[') && text.contains(']'), qPrintable(text));
    }
    QVERIFY2(words > 40, qPrintable(QString::number(words)));
    QVERIFY(workbench.environment.helpAction("toolbar")->text().startsWith('['));
}

void LanguageTest::a_card_and_a_strip_follow_the_language()
{
    Workbench workbench(TEST_PLUGIN_FOLDER "/no_such_file.so");
    const auto* card = workbench.find<FailureCard>("FailureCard");
    const auto* title = card->findChild<QLabel*>("title");
    QCOMPARE(title->text(), QString("The plugin was not found"));

    workbench.choose("de");
    QTRY_COMPARE_WITH_TIMEOUT(title->text(), QString("Das Plugin wurde nicht gefunden"), patience);
    QCOMPARE(card->accessibleName(), title->text());
    QCOMPARE(workbench.window.failures().first().title, title->text());
    QCOMPARE(workbench.find<Notice>("Notice")->findChild<QAbstractButton*>()->toolTip(),
             QString::fromUtf8("Schließen"));
}

void LanguageTest::qts_own_texts_follow_the_language()
{
    Language language;
    language.use("de");
    QDialogButtonBox box(QDialogButtonBox::Cancel);
    QCOMPARE(box.button(QDialogButtonBox::Cancel)->text().remove('&'), QString("Abbrechen"));
}

void LanguageTest::every_text_of_the_plugin_is_found_without_its_context()
{
    PluginEnvironment environment;
    environment.language().addPlugin(DEVICE_PLUGIN_FILE);
    environment.language().use("de");
    QFile file(TRANSLATIONS_FOLDER "/device_quandrel_gui_de.ts");
    QVERIFY(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    QString context;
    QString source;
    int texts = 0;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QLatin1String("source")) {
            source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            const QString translation = xml.readElementText();
            QCOMPARE(environment.translate(source), translation);
            QCOMPARE(QCoreApplication::translate(context.toUtf8(), source.toUtf8()), translation);
            ++texts;
        }
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QVERIFY(texts > 0);
}

void LanguageTest::the_menu_shows_which_language_is_used()
{
    Workbench workbench;
    const auto isChecked = [&](const char* code) {
        for (const QAction* action : workbench.menu()->actions()) {
            if (action->isChecked() != (action->data() == QLatin1String(code)))
                return false;
        }
        return true;
    };
    QVERIFY(isChecked("en"));
    workbench.environment.language().use("de");
    QTRY_VERIFY_WITH_TIMEOUT(isChecked("de"), patience);
    workbench.choose("pseudo");
    QVERIFY(isChecked("pseudo"));
}

void LanguageTest::a_choice_is_kept_for_the_next_start()
{
    const QTemporaryDir folder;
    {
        Language language;
        QCOMPARE(language.restore(folder.path()), QString());
        QCOMPARE(language.code(), QString("en"));
        language.use("pseudo"); // not chosen by a person
        QCOMPARE(language.choose("de"), QString());
    }
    const char* const context = "host::workbench::window::Window";
    QCOMPARE(QCoreApplication::translate(context, "&File"), QString("&File"));
    Language language;
    QCOMPARE(language.restore(folder.path()), QString());
    QCOMPARE(language.code(), QString("de"));
    QCOMPARE(QCoreApplication::translate(context, "&File"), QString("&Datei"));
}

void LanguageTest::a_choice_that_cannot_be_kept_is_told()
{
    Workbench workbench;
    QFile notAFolder(workbench.settings.filePath("file"));
    QVERIFY(notAFolder.open(QIODevice::WriteOnly));
    workbench.environment.language().restore(notAFolder.fileName());
    workbench.choose("de");
    QCOMPARE(workbench.environment.currentLanguage(), QString("de"));
    const QString words = workbench.find<Notice>("Notice")->findChild<QLabel*>()->text();
    QVERIFY2(words.contains(notAFolder.fileName()), qPrintable(words));
}

void LanguageTest::what_is_kept_is_used_only_if_it_is_a_language()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("workbench.preferences"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"language": "fr"})");
    file.close();
    Language language;
    QCOMPARE(language.restore(folder.path()), QString());
    QCOMPARE(language.code(), QString("en"));
}

void LanguageTest::a_damaged_file_of_choices_is_told()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("workbench.preferences"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("language=de");
    file.close();
    Language language;
    const QString words = language.restore(folder.path());
    QVERIFY2(words.contains(file.fileName()), qPrintable(words));
    QCOMPARE(language.choose("de"), QString());
}

void LanguageTest::the_pseudo_language_keeps_what_is_not_words_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("result");
    const auto row = [](const char* source, const char* result) {
        QTest::newRow(source) << QString(source) << QString::fromUtf8(result);
    };
    row("Camera", "[Ćáámééŕáá]");
    row("%1 of %2, %L3, %n", "[%1 óóf %2, %L3, %n]");
    row("&File", "[&Fííĺéé]");
    row("C&ontents && more", "[Ć&oñťééñťś && móóŕéé]");
    row("<p>A <b>bold</b> word</p><p>%1</p>", "<p>[ÁÁ <b>bóóĺď</b> wóóŕď</p><p>%1]</p>");
    row("1 &lt; 2", "[1 &lt; 2]");
    row("Text (*.txt);;All (*)", "[Ťééxť (*.txt);;ÁÁĺĺ] (*)");
    row("", "");
}

void LanguageTest::the_pseudo_language_keeps_what_is_not_words()
{
    QFETCH(QString, source);
    QFETCH(QString, result);
    QCOMPARE(pseudo(source.toUtf8()), result);
}

void LanguageTest::the_pseudo_language_is_about_two_fifths_longer()
{
    const QString source = "Number of range measurements of the laser rangefinder";
    const auto length = pseudo(source.toUtf8()).length();
    QVERIFY2(length >= 1.3 * source.length(), qPrintable(QString::number(length)));
    QVERIFY2(length <= 1.6 * source.length(), qPrintable(QString::number(length)));
}

TEST_WITH_WINDOWS(LanguageTest)

} // namespace language_test

#include "LanguageTest.moc"
