// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/loading/Failure.h"
#include "host/workbench/plugin/FailureCard.h"

#include <QLabel>
#include <QLineEdit>
#include <QtTest>

namespace failure_card_test {

using host::loading::Failure;
using host::workbench::plugin::FailureCard;

/// FailureCard: every word of the failure can be read and copied.
class FailureCardTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_card_shows_what_happened_why_what_to_do_and_the_file();
    void text_that_looks_like_markup_is_shown_as_it_is();
    void the_card_is_announced_to_those_who_cannot_see_it();
};

void FailureCardTest::the_card_shows_what_happened_why_what_to_do_and_the_file()
{
    const FailureCard card([] {
        return Failure{"It broke", "It was old.", "Buy a new one.", "/a/b/c.so"};
    });

    QStringList shown;
    for (const QLabel* label : card.findChildren<QLabel*>()) {
        shown << label->text();
        QVERIFY(label->textInteractionFlags() & Qt::TextSelectableByMouse);
    }
    QCOMPARE(shown, QStringList({"It broke", "It was old.", "Buy a new one."}));
    const auto* file = card.findChild<QLineEdit*>("file");
    QCOMPARE(file->text(), QString("/a/b/c.so"));
    QVERIFY(file->isReadOnly());
}

void FailureCardTest::text_that_looks_like_markup_is_shown_as_it_is()
{
    const FailureCard card([] { return Failure{"t", "std::vector<int> & <b>", "a", "f"}; });
    QCOMPARE(card.findChild<QLabel*>("reason")->textFormat(), Qt::PlainText);
}

void FailureCardTest::the_card_is_announced_to_those_who_cannot_see_it()
{
    const Failure failure{"It broke", "It was old.", "Buy a new one.", "/a/b/c.so"};
    const FailureCard card([failure] { return failure; });
    QCOMPARE(card.accessibleName(), failure.title);
    QCOMPARE(card.accessibleDescription(), failure.text());
}

TEST_WITH_WINDOWS(FailureCardTest)

} // namespace failure_card_test

#include "FailureCardTest.moc"
