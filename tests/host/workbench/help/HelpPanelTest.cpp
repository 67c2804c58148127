// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/workbench/help/HelpPages.h"
#include "host/workbench/help/HelpPanel.h"
#include "host/workbench/preferences/Language.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMainWindow>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QtTest>

namespace help_panel_test {

using namespace host::workbench::help;
using namespace host::workbench::preferences;

namespace {

const QStringList languages = {"en", "de"};

QString textOf(const QString& file)
{
    QFile page(file);
    return page.open(QIODevice::ReadOnly) ? QString::fromUtf8(page.readAll()) : QString();
}

struct Panel
{
    Panel() : help(new HelpPanel(language, &window)) {}

    QTextBrowser* browser() const { return help->findChild<QTextBrowser*>(); }
    QLabel* outside() const { return help->findChild<QLabel*>("outside"); }
    void click(const QUrl& link) const { Q_EMIT browser()->anchorClicked(link); }

    Language language;
    QMainWindow window;
    HelpPanel* help;
};

} // namespace

/// HelpPanel and the pages of docs/help.
class HelpPanelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void every_context_has_a_page_in_every_language_data();
    void every_context_has_a_page_in_every_language();
    void an_unknown_context_gets_the_main_page();
    void all_languages_have_the_same_pages_and_the_program_has_them_all();
    void all_links_and_pictures_are_there();
    void every_page_can_be_reached_from_the_main_one();
    void a_page_is_shown_as_rich_text_under_its_title();
    void a_link_opens_the_other_page();
    void a_link_out_of_the_program_shows_its_address_and_opens_nothing();
    void the_page_follows_the_language();
};

void HelpPanelTest::every_context_has_a_page_in_every_language_data()
{
    QTest::addColumn<QString>("context");
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("german");
    QTest::newRow("base") << QString() << "The base tab" << QString::fromUtf8("Der Reiter „Basis“");
    QTest::newRow("toolbar") << "toolbar"
                             << "Connecting"
                             << "Verbinden";
    QTest::newRow("manipulator") << "manipulator"
                                 << "The manipulator tab"
                                 << QString::fromUtf8("Der Reiter „Manipulator“");
    QTest::newRow("rangefinder") << "rangefinder"
                                 << "The laser rangefinder tab"
                                 << QString::fromUtf8("Der Reiter „Laserscanner“");
}

void HelpPanelTest::every_context_has_a_page_in_every_language()
{
    QFETCH(QString, context);
    QTEST(helpTitle(helpUrl(helpPage(context), "en")), "english");
    QTEST(helpTitle(helpUrl(helpPage(context), "de")), "german");
}

void HelpPanelTest::an_unknown_context_gets_the_main_page()
{
    QCOMPARE(helpPage("unheard of"), QString(mainHelpPage));
    QCOMPARE(helpTitle(helpUrl(mainHelpPage, "en")), QString("The workbench"));
    QCOMPARE(helpTitle(helpUrl(mainHelpPage, "de")), QString("Die Werkbank"));
}

void HelpPanelTest::all_languages_have_the_same_pages_and_the_program_has_them_all()
{
    const QStringList pages = QDir(HELP_FOLDER "/en").entryList({"*.md"}, QDir::Files, QDir::Name);
    QVERIFY(pages.contains(QString(mainHelpPage) + ".md"));
    for (const QString& language : languages) {
        QCOMPARE(QDir(HELP_FOLDER "/" + language).entryList({"*.md"}, QDir::Files, QDir::Name),
                 pages);
        QCOMPARE(QDir(":/docs/help/" + language).entryList({"*.md"}, QDir::Files, QDir::Name),
                 pages);
        for (const QString& page : pages)
            QVERIFY2(textOf(":/docs/help/" + language + '/' + page).startsWith("# "),
                     qPrintable(language + '/' + page));
    }
}

void HelpPanelTest::all_links_and_pictures_are_there()
{
    static const QRegularExpression link("\\]\\(([^)]*)\\)");
    // In the program and in the repository, whose paths are the same.
    for (const QString& root : {QString(":/docs/help/"), QString(HELP_FOLDER "/")}) {
        for (const QString& language : languages) {
            const QDir folder(root + language);
            int links = 0;
            for (const QString& page : folder.entryList({"*.md"})) {
                auto matches = link.globalMatch(textOf(folder.filePath(page)));
                while (matches.hasNext()) {
                    const QString target = matches.next().captured(1);
                    const QString file =
                        QDir::cleanPath(folder.filePath(target.section('#', 0, 0)));
                    QVERIFY2(QFileInfo::exists(file), qPrintable(page + " -> " + file));
                    ++links;
                }
            }
            QVERIFY2(links > 0, qPrintable(folder.path()));
        }
    }
}

void HelpPanelTest::every_page_can_be_reached_from_the_main_one()
{
    for (const QString& language : languages) {
        const QDir folder(":/docs/help/" + language);
        const QString main = QString(mainHelpPage) + ".md";
        const QStringList pages = folder.entryList({"*.md"});
        QVERIFY2(pages.size() > 1, qPrintable(folder.path()));
        for (const QString& page : pages) {
            QVERIFY2(page == main || textOf(folder.filePath(main)).contains("](" + page + ')'),
                     qPrintable(page));
        }
    }
}

void HelpPanelTest::a_page_is_shown_as_rich_text_under_its_title()
{
    const Panel panel;
    QVERIFY(panel.help->isHidden());
    panel.help->openPage("toolbar");
    QVERIFY(!panel.help->isHidden());
    QCOMPARE(panel.help->windowTitle(), QString("Connecting"));
    const QTextBlock first = panel.browser()->document()->begin();
    QCOMPARE(first.text(), QString("Connecting"));
    QCOMPARE(first.blockFormat().headingLevel(), 1);

    int pictures = 0;
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextCharFormat format = part.fragment().charFormat();
            if (!format.isImageFormat())
                continue;
            const QUrl file(format.toImageFormat().name());
            const QVariant data = panel.browser()->loadResource(QTextDocument::ImageResource, file);
            QVERIFY2(!QImage::fromData(data.toByteArray()).isNull(), qPrintable(file.toString()));
            pictures += part.fragment().length();
        }
    }
    QCOMPARE(pictures, 6);
}

void HelpPanelTest::a_link_opens_the_other_page()
{
    const Panel panel;
    panel.help->openPage("workbench");
    panel.click(panel.browser()->source().resolved(QUrl("base.md")));
    QCOMPARE(panel.help->windowTitle(), QString("The base tab"));
    QVERIFY(panel.outside()->isHidden());
}

void HelpPanelTest::a_link_out_of_the_program_shows_its_address_and_opens_nothing()
{
    const Panel panel;
    panel.help->openPage("workbench");
    panel.click(QUrl("https://example.org/a?b=c"));
    QVERIFY(!panel.outside()->isHidden());
    QVERIFY(panel.outside()->text().contains("https://example.org/a?b=c"));
    QVERIFY(panel.outside()->textInteractionFlags() & Qt::TextSelectableByMouse);
    QCOMPARE(panel.help->windowTitle(), QString("The workbench"));
    panel.help->openPage("base");
    QVERIFY(panel.outside()->isHidden());
}

void HelpPanelTest::the_page_follows_the_language()
{
    Panel panel;
    panel.help->openPage("rangefinder");
    panel.language.use("de");
    QCOMPARE(panel.help->windowTitle(), QString::fromUtf8("Der Reiter „Laserscanner“"));
    QVERIFY(panel.browser()->toPlainText().contains("Sequenznummer"));
}

TEST_WITH_WINDOWS(HelpPanelTest)

} // namespace help_panel_test

#include "HelpPanelTest.moc"
