// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/workbench/script/Player.h"
#include "host/workbench/script/text/ScriptText.h"

#include <QFile>
#include <QtTest>

namespace script_text_test {

using host::workbench::script::Player;
using host::workbench::script::text::Grammar;
using host::workbench::script::text::ScriptText;
using host::workbench::script::text::Statement;

namespace {

QString noCheck(const QString&, const QString&)
{
    return {};
}

/// The statements of @p text in forms of our own: "form: NAME=value, …".
QStringList understood(const QString& text, const QStringList& forms)
{
    Grammar grammar{{}, noCheck};
    for (const QString& form : forms)
        grammar.forms.emplace_back(form);
    const ScriptText script(text, grammar);
    QStringList all = script.problems();
    for (const Statement& statement : script.statements()) {
        QStringList words;
        const auto arguments = statement.arguments.all();
        for (auto each = arguments.begin(); each != arguments.end(); ++each) {
            if (each.key() == each.key().toUpper())
                words << each.key() + '=' + each.value().join('+');
        }
        all << QString("%1/%2 ").arg(QString::number(statement.line),
                                     QString::number(statement.form)) +
                   words.join(' ');
    }
    return all;
}

QStringList problems(const QString& text)
{
    return ScriptText(text, Player::grammar()).problems();
}

} // namespace

/// ScriptText: how lines become statements, and what is said of those that do not.
class ScriptTextTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void blank_lines_and_comments_say_nothing();
    void words_in_quotes_are_one_word_and_no_keyword();
    void a_form_may_have_options_choices_and_lists();
    void an_option_is_found_even_where_a_value_is_spelt_like_it();
    void a_mistake_is_named_with_its_line_data();
    void a_mistake_is_named_with_its_line();
    void every_mistake_is_named();
    void the_page_lists_every_statement_and_no_other();
};

void ScriptTextTest::blank_lines_and_comments_say_nothing()
{
    QCOMPARE(understood("\n  # go\n\tgo # now\r\n", {"go"}), QStringList("3/0 "));
}

void ScriptTextTest::words_in_quotes_are_one_word_and_no_keyword()
{
    const QStringList forms{"say TEXT [in PLACE]"};
    QCOMPARE(understood("say \"a # b\"", forms), QStringList("1/0 TEXT=a # b"));
    QCOMPARE(understood("say \"a \\\"b\\\" \\\\ \\d\\nc\"", forms),
             QStringList("1/0 TEXT=a \"b\" \\ \\d\nc"));
    QCOMPARE(understood("say \"in\" in \"in\"", forms), QStringList("1/0 PLACE=in TEXT=in"));
    QCOMPARE(understood("say \"\"", forms), QStringList("1/0 TEXT="));
    QCOMPARE(understood("\"say\" a", forms), QStringList("1: expected: say TEXT [in PLACE]"));
}

void ScriptTextTest::a_form_may_have_options_choices_and_lists()
{
    const QStringList forms{"go WAY=left|right [at SPEED [of UNIT]]", "call NAME…"};
    QCOMPARE(understood("go left", forms), QStringList("1/0 WAY=left"));
    QCOMPARE(understood("go right at 3 of m", forms), QStringList("1/0 SPEED=3 UNIT=m WAY=right"));
    QCOMPARE(understood("call a b c", forms), QStringList("1/1 NAME=a+b+c"));
    QCOMPARE(understood("go up", forms),
             QStringList("1: expected: go left|right [at SPEED [of UNIT]]"));
    QCOMPARE(understood("call", forms), QStringList("1: expected: call NAME…"));
}

void ScriptTextTest::an_option_is_found_even_where_a_value_is_spelt_like_it()
{
    const QStringList forms{"expect NAME [VALUE] [within SECONDS]", "choose ENTRY… [within TIME]"};
    QCOMPARE(understood("expect a within 3", forms), QStringList("1/0 NAME=a SECONDS=3"));
    QCOMPARE(understood("expect a 1 within 3", forms), QStringList("1/0 NAME=a SECONDS=3 VALUE=1"));
    QCOMPARE(understood("choose a b within 3", forms), QStringList("1/1 ENTRY=a+b TIME=3"));
    QCOMPARE(understood("expect within", forms),
             QStringList("1: expected: expect NAME [VALUE] [within SECONDS]"));
    QCOMPARE(understood("choose a b \"within\" c", forms), QStringList("1/1 ENTRY=a+b+within+c"));
}

void ScriptTextTest::a_mistake_is_named_with_its_line_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("problem");
    QTest::newRow("command") << "jump"
                             << "\"jump\" is not a command; expected one of: step, restart, ";
    QTest::newRow("form") << "press"
                          << "expected: press KEY [within SECONDS]";
    QTest::newRow("forms") << "wait for it"
                           << "expected: wait for disconnected [within SECONDS], or: wait for ";
    QTest::newRow("quote") << "type \"abc"
                           << "the quote that begins with \"abc\" is not closed";
    QTest::newRow("seconds") << "stop within 0"
                             << "SECONDS: expected a number of seconds above 0, not \"0\"";
    QTest::newRow("key") << "press Shout"
                         << "KEY: expected a key, as in Return or Ctrl+A, not \"Shout\"";
    QTest::newRow("state") << "wait for state 5"
                           << "STATE: expected a number from -1 to 4, not \"5\"";
    QTest::newRow("row") << "click table cell 0 1"
                         << "ROW: expected a whole number from 1, not \"0\"";
    QTest::newRow("pattern") << "expect match ("
                             << "PATTERN: expected a regular expression, not \"(\"";
    QTest::newRow("type") << "set config a 1 as long"
                          << "TYPE: expected empty, bool, int, ";
    QTest::newRow("fault") << "fault fire"
                           << "expected: fault drop [within SECONDS], or: fault refuse|";
    QTest::newRow("share") << "hold pad at 50 101"
                           << "DOWN: expected a percentage from 0 to 100, not \"101\"";
    QTest::newRow("delay") << "fault delay -1"
                           << "DELAY: expected a number of seconds from 0 to 60, not \"-1\"";
}

void ScriptTextTest::a_mistake_is_named_with_its_line()
{
    QFETCH(QString, line);
    QFETCH(QString, problem);
    const QStringList found = problems("connect\n" + line + '\n');
    QCOMPARE(found.size(), 1);
    QVERIFY2(found.first().startsWith("2: " + problem), qPrintable(found.first()));
}

void ScriptTextTest::every_mistake_is_named()
{
    const QStringList found = problems("jump\nconnect\nhop\n");
    QCOMPARE(found.size(), 2);
    QVERIFY(found.at(0).startsWith("1: ") && found.at(1).startsWith("3: "));
}

void ScriptTextTest::the_page_lists_every_statement_and_no_other()
{
    QFile page(HELP_FOLDER "/../scripts.md");
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll()).replace("\\|", "|");
    QStringList listed;
    auto rows = QRegularExpression("^\\| `([a-z][^`]*)` \\|", QRegularExpression::MultilineOption)
                    .globalMatch(text);
    while (rows.hasNext())
        listed << rows.next().captured(1);
    QStringList forms;
    for (const auto& form : Player::grammar().forms)
        forms << form.inWords().remove(" [within SECONDS]");
    listed.sort();
    forms.sort();
    QCOMPARE(listed, forms);
}

TEST_WITHOUT_WINDOWS(ScriptTextTest)

} // namespace script_text_test

#include "ScriptTextTest.moc"
