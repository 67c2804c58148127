// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "olm/qt/log/View.h"

#include "TestCase.h"
#include "olm/qt/log/Log.h"
#include "tests/src/ContextMenu.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <memory>

namespace view_test {

using olm::qt::log::Log;
using olm::qt::log::View;

class ViewTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_shows_the_log_and_cannot_be_typed_into();
    void the_context_menu_clears_saves_and_helps();
    void an_empty_log_can_be_neither_cleared_nor_saved();
    void clear_empties_the_log();
    void save_writes_the_log_of_that_moment_to_the_chosen_file();
    void a_file_that_cannot_be_written_is_reported();
    void the_help_action_may_go_before_the_view();
    void the_view_can_die_while_its_menu_is_open();
    void the_view_can_die_while_it_asks_for_a_file();
    void the_log_may_go_before_the_view();
    void the_view_may_go_before_the_log();
    void the_newest_line_stays_in_sight();
    void who_scrolled_up_stays_there_until_the_end_is_reached_again();
    void a_hidden_view_shows_the_newest_line_when_it_is_back();
};

namespace {

struct Fixture
{
    Fixture()
    {
        log.postLog("one", 255);
        log.postLog(QString::fromUtf8("zwölf"), 255);
        view.setDocument(&log);
        view.setHelpAction(&help);
        view.resize(300, 200);
        view.show();
    }
    bool waitUntilActive() { return QTest::qWaitForWindowActive(&view); }
    /// Chooses an entry of the context menu; false where it is not there or disabled.
    bool choose(const QString& entry)
    {
        bool chosen = false;
        withContextMenu(*view.viewport(), [&](const QMenu& menu) {
            for (QAction* action : menu.actions()) {
                if (action->text() == entry && action->isEnabled()) {
                    chosen = true;
                    action->trigger();
                }
            }
        });
        return chosen;
    }

    Log log;
    QAction help{"Help on logs"};
    View view{nullptr};
};

const QString clearEntry("Clear");
const QString saveEntry = QString::fromUtf8("Save as…");

} // namespace

void ViewTest::it_shows_the_log_and_cannot_be_typed_into()
{
    Fixture fixture;
    QVERIFY(fixture.waitUntilActive());
    QVERIFY(fixture.view.isReadOnly());
    QTest::keyClicks(&fixture.view, "typed");
    QTest::keyClick(&fixture.view, Qt::Key_Delete);
    QCOMPARE(fixture.view.toPlainText(), QString::fromUtf8("one\nzwölf"));
    fixture.log.postLog("three", 255);
    QCOMPARE(fixture.view.toPlainText(), QString::fromUtf8("one\nzwölf\nthree"));
}

void ViewTest::the_context_menu_clears_saves_and_helps()
{
    Fixture fixture;
    QVERIFY(fixture.waitUntilActive());
    const std::unique_ptr<QMenu> standard(fixture.view.createStandardContextMenu());
    QVERIFY(!standard->actions().isEmpty());
    QStringList found;
    const QAction* last = nullptr;
    const auto inspect = [&](const QMenu& menu) {
        found = entries(menu);
        last = menu.actions().constLast();
    };
    QVERIFY(withContextMenu(*fixture.view.viewport(), inspect));
    QCOMPARE(found,
             entries(*standard) + QStringList({"-", clearEntry, saveEntry, "-", "Help on logs"}));
    QCOMPARE(last, &fixture.help);

    fixture.view.setHelpAction(nullptr);
    QVERIFY(withContextMenu(*fixture.view.viewport(), inspect));
    QCOMPARE(found, entries(*standard) + QStringList({"-", clearEntry, saveEntry}));
}

void ViewTest::an_empty_log_can_be_neither_cleared_nor_saved()
{
    Fixture fixture;
    QVERIFY(fixture.waitUntilActive());
    fixture.log.clear();
    QVERIFY(!fixture.choose(clearEntry));
    QVERIFY(!fixture.choose(saveEntry));
    fixture.log.postEmptyLine();
    fixture.log.postEmptyLine(); // two empty lines are something
    QVERIFY(fixture.choose(clearEntry));
}

void ViewTest::clear_empties_the_log()
{
    Fixture fixture;
    QVERIFY(fixture.waitUntilActive());
    QVERIFY(fixture.choose(clearEntry));
    QVERIFY(fixture.log.isEmpty());
    fixture.log.postLog("new", 255);
    QCOMPARE(fixture.view.toPlainText(), QString("new"));
}

void ViewTest::save_writes_the_log_of_that_moment_to_the_chosen_file()
{
    const QTemporaryDir folder;
    QVERIFY(folder.isValid());
    Fixture fixture;
    QVERIFY(fixture.waitUntilActive());
    QVERIFY(fixture.choose(saveEntry));
    QPointer<QFileDialog> dialog = fixture.view.findChild<QFileDialog*>();
    QVERIFY(dialog);
    QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
    fixture.log.postLog("while the user chooses", 255);
    auto* const fileName = dialog->findChild<QLineEdit*>("fileNameEdit");
    QVERIFY(fileName);
    fileName->setText(folder.filePath("robot")); // the ending is added
    static_cast<QDialog*>(dialog)->accept();
    QFile file(folder.filePath("robot.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("one\nzw\xc3\xb6lf\nwhile the user chooses\n"));
    QTRY_VERIFY(!dialog);
    QVERIFY(!fixture.view.findChild<QMessageBox*>());
}

void ViewTest::a_file_that_cannot_be_written_is_reported()
{
    const QTemporaryDir folder;
    Fixture fixture;
    QVERIFY(fixture.waitUntilActive());
    QVERIFY(fixture.choose(saveEntry));
    auto* const dialog = fixture.view.findChild<QFileDialog*>();
    QVERIFY(dialog);
    // As when the folder goes between the choice and the writing.
    const QString fileName = folder.filePath("gone/log.txt");
    Q_EMIT dialog->fileSelected(fileName);
    dialog->close();
    const QPointer<QMessageBox> message = fixture.view.findChild<QMessageBox*>();
    QVERIFY(message);
    QVERIFY(message->isVisible());
    QCOMPARE(message->icon(), QMessageBox::Warning);
    QVERIFY2(message->text().contains(fileName), qPrintable(message->text()));
    QVERIFY(message->text().contains("Choose another folder"));
    message->button(QMessageBox::Ok)->click();
    QTRY_VERIFY(!message);
    QCOMPARE(fixture.view.toPlainText(), QString::fromUtf8("one\nzwölf"));
}

void ViewTest::the_help_action_may_go_before_the_view()
{
    Fixture fixture;
    QVERIFY(fixture.waitUntilActive());
    auto help = std::make_unique<QAction>("Another help");
    fixture.view.setHelpAction(help.get());
    help.reset();
    QStringList found;
    QVERIFY(withContextMenu(*fixture.view.viewport(),
                            [&](const QMenu& menu) { found = entries(menu); }));
    QCOMPARE(found.last(), saveEntry);
}

void ViewTest::the_view_can_die_while_its_menu_is_open()
{
    Log log;
    log.postLog("one", 255);
    QAction help("Help");
    QPointer<View> view = new View(nullptr);
    view->setDocument(&log);
    view->setHelpAction(&help);
    view->show();
    QVERIFY(QTest::qWaitForWindowActive(view));
    QVERIFY(withContextMenu(*view->viewport(), [&](const QMenu&) { delete view; }));
    QVERIFY(!view);
    QVERIFY(!QApplication::activePopupWidget());
    log.postLog("two", 255);
}

void ViewTest::the_view_can_die_while_it_asks_for_a_file()
{
    const auto widgets = QApplication::allWidgets().size();
    {
        Fixture fixture;
        QVERIFY(fixture.waitUntilActive());
        QVERIFY(fixture.choose(saveEntry));
        QVERIFY(fixture.view.findChild<QFileDialog*>());
    }
    QCOMPARE(QApplication::allWidgets().size(), widgets);
}

void ViewTest::the_log_may_go_before_the_view()
{
    // A widget that holds its log by value and the view as a child loses the log first.
    auto log = std::make_unique<Log>();
    log->postLog("one", 255);
    auto view = std::make_unique<View>(nullptr);
    view->setDocument(log.get());
    view->show();
    QVERIFY(QTest::qWaitForWindowActive(view.get()));
    view->selectAll();
    log.reset();
    view.reset();
}

void ViewTest::the_view_may_go_before_the_log()
{
    Log log;
    for (int i = 0; i < 3; ++i) {
        View view(nullptr);
        view.setDocument(&log);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        log.postLog("shown", 255);
    }
    log.postLog("alone", 255);
    QCOMPARE(log.toPlainText(), QString("shown\nshown\nshown\nalone"));
}

namespace {

void postLines(Log& log, int count)
{
    for (int i = 0; i < count; ++i)
        log.postLog(QString("line %1").arg(i), 255);
}

bool isAtEnd(const View& view)
{
    const QScrollBar& bar = *view.verticalScrollBar();
    return bar.value() == bar.maximum() && bar.maximum() > 0;
}

} // namespace

void ViewTest::the_newest_line_stays_in_sight()
{
    Fixture fixture;
    QVERIFY(fixture.waitUntilActive());
    int range = 0;
    for (int i = 0; i < 5; ++i) {
        postLines(fixture.log, 50);
        QTRY_VERIFY(fixture.view.verticalScrollBar()->maximum() > range);
        range = fixture.view.verticalScrollBar()->maximum();
        QVERIFY(isAtEnd(fixture.view));
    }
    fixture.view.resize(150, 100);
    QTRY_VERIFY(fixture.view.verticalScrollBar()->maximum() != range);
    QVERIFY(isAtEnd(fixture.view));
    fixture.log.clear();
    postLines(fixture.log, 50);
    QTRY_VERIFY(isAtEnd(fixture.view));
}

void ViewTest::who_scrolled_up_stays_there_until_the_end_is_reached_again()
{
    Fixture fixture;
    QVERIFY(fixture.waitUntilActive());
    QScrollBar& bar = *fixture.view.verticalScrollBar();
    postLines(fixture.log, 100);
    QTRY_VERIFY(isAtEnd(fixture.view));
    const int read = bar.maximum() / 2;
    bar.setValue(read);

    int range = bar.maximum();
    postLines(fixture.log, 100);
    QTRY_VERIFY(bar.maximum() > range);
    QCOMPARE(bar.value(), read);
    fixture.view.hide();
    fixture.view.show();
    QCOMPARE(bar.value(), read);

    bar.triggerAction(QAbstractSlider::SliderToMaximum);
    range = bar.maximum();
    postLines(fixture.log, 100);
    QTRY_VERIFY(bar.maximum() > range);
    QVERIFY(isAtEnd(fixture.view));
}

void ViewTest::a_hidden_view_shows_the_newest_line_when_it_is_back()
{
    Log log;
    QTabWidget tabs;
    auto* const view = new View(nullptr);
    view->setDocument(&log);
    tabs.addTab(new QWidget, "first");
    tabs.addTab(view, "log");
    tabs.resize(300, 200);
    tabs.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tabs));
    for (int visit = 0; visit < 3; ++visit) {
        postLines(log, 100);
        tabs.setCurrentIndex(1);
        QTRY_VERIFY(isAtEnd(*view));
        QTRY_VERIFY(!log.findChild<QTimer*>()->isActive());
        QVERIFY(isAtEnd(*view));
        tabs.setCurrentIndex(0);
    }
}

TEST_WITH_WINDOWS(ViewTest)

} // namespace view_test

#include "ViewTest.moc"
