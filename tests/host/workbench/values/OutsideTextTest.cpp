// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/workbench/values/OutsideText.h"

#include <QTextDocument>
#include <QtTest>

namespace outside_text_test {

using namespace host::workbench::values;

/// Texts that others wrote, as the window shows them.
class OutsideTextTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_tool_tip_shows_what_was_written_data();
    void a_tool_tip_shows_what_was_written();
    void long_texts_are_cut();
};

void OutsideTextTest::a_tool_tip_shows_what_was_written_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << "";
    QTest::newRow("words") << "Connected.";
    QTest::newRow("markup") << "<b>bold</b>";
    QTest::newRow("an image") << "<img src=\"/dev/zero\">";
    QTest::newRow("markup of ours") << "a</qt><b>";
    QTest::newRow("an entity") << "a &lt; b && c";
    QTest::newRow("lines") << "first\n<b>second</b>";
}

void OutsideTextTest::a_tool_tip_shows_what_was_written()
{
    QFETCH(const QString, text);
    const QString tip = plainToolTip(text);
    QVERIFY(text.isEmpty() || Qt::mightBeRichText(tip)); // or it would show the tags around it
    QTextDocument shown;
    shown.setHtml(tip);
    QCOMPARE(shown.toPlainText(), text);
    QVERIFY(!tip.contains("<img") && !tip.contains("<b>"));
}

void OutsideTextTest::long_texts_are_cut()
{
    QCOMPARE(shortened("short\nand to the point"), QString("short\nand to the point"));
    QVERIFY(shortened(QString(100000, 'x')).size() <= 1001);
    QVERIFY(shortened(QString(20000, '\n')).count('\n') < 10);
    QVERIFY(shortened(QString(20000, '\n')).endsWith(QChar(0x2026)));
    QVERIFY(plainToolTip(QString(100000, '<')).size() < 10000);
}

TEST_WITHOUT_WINDOWS(OutsideTextTest)

} // namespace outside_text_test

#include "OutsideTextTest.moc"
