// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/workbench/window/ElidedLabel.h"

#include <QtTest>

namespace elided_label_test {

using host::workbench::window::ElidedLabel;

namespace {

const char* const sentence =
    "Nobody listens at 127.0.0.1:9090: start the robot, or check the port.";

/// As wide as @p share of the sentence on one line.
void resize(ElidedLabel& label, double share, int lines)
{
    label.resize(static_cast<int>(label.fontMetrics().horizontalAdvance(sentence) * share),
                 label.fontMetrics().lineSpacing() * lines);
}

} // namespace

/// ElidedLabel: text in the room there is.
class ElidedLabelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void what_has_room_is_on_one_line();
    void a_long_text_takes_the_lines_there_are();
    void what_has_no_room_ends_in_an_ellipsis();
    void it_asks_for_one_line_however_long_the_text();
    void its_text_is_painted_and_never_markup();
};

void ElidedLabelTest::what_has_room_is_on_one_line()
{
    ElidedLabel label;
    label.setText(sentence);
    resize(label, 1.1, 3);
    QCOMPARE(label.lines(), QStringList(sentence));
}

void ElidedLabelTest::a_long_text_takes_the_lines_there_are()
{
    ElidedLabel label;
    label.setText(sentence);
    resize(label, 0.6, 3);
    QCOMPARE(int(label.lines().size()), 2);
    QCOMPARE(label.lines().join(' ').simplified(), QString(sentence));
}

void ElidedLabelTest::what_has_no_room_ends_in_an_ellipsis()
{
    ElidedLabel label;
    label.setText(sentence);
    resize(label, 0.3, 2);
    QCOMPARE(int(label.lines().size()), 2);
    QVERIFY(label.lines().last().endsWith(QChar(0x2026)));
    QCOMPARE(label.text(), QString(sentence)); // for screen readers
}

void ElidedLabelTest::it_asks_for_one_line_however_long_the_text()
{
    ElidedLabel label;
    const QSize smallest = label.minimumSizeHint();
    label.setText(QString(sentence) + '\n' + sentence);
    QCOMPARE(label.minimumSizeHint(), smallest);
    QCOMPARE(label.sizeHint().height(), smallest.height());
}

void ElidedLabelTest::its_text_is_painted_and_never_markup()
{
    ElidedLabel label;
    label.setText("<b></b>"); // nothing to see, if it were markup
    label.resize(label.sizeHint());
    const QImage text = label.grab().toImage();
    label.setText({});
    QVERIFY(text != label.grab().toImage());
}

TEST_WITH_WINDOWS(ElidedLabelTest)

} // namespace elided_label_test

#include "ElidedLabelTest.moc"
