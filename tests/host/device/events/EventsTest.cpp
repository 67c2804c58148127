// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/device/events/Events.h"

#include <QtTest>

namespace events_test {

using host::device::events::Event;
using host::device::events::Events;
using host::device::events::Level;

/// Events: what is kept of what happened.
class EventsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_newest_are_kept_under_their_numbers();
    void a_long_line_is_cut();
    void what_is_cleared_is_gone_and_its_numbers_too();
};

void EventsTest::the_newest_are_kept_under_their_numbers()
{
    Events events;
    for (std::size_t i = 0; i < Events::capacity + 3; ++i)
        events.add({Level::Info, "base", QString::number(i)});
    QCOMPARE(events.begin(), Events::Number(3));
    QCOMPARE(events.end(), Events::Number(Events::capacity + 3));
    QCOMPARE(events.at(events.begin()).text, QString("3"));
    QCOMPARE(events.at(events.end() - 1).text, QString::number(Events::capacity + 2));
}

void EventsTest::a_long_line_is_cut()
{
    Events events;
    events.add({Level::Error, QString(100000, 's'), QString(100000, 't')});
    QCOMPARE(int(events.at(0).text.size()), Events::longestText + 1);
    QVERIFY(events.at(0).text.endsWith(QChar(0x2026)));
    QCOMPARE(int(events.at(0).source.size()), Events::longestText + 1);
}

void EventsTest::what_is_cleared_is_gone_and_its_numbers_too()
{
    Events events;
    events.add({Level::Info, "base", "one"});
    QSignalSpy changes(&events, &Events::changed);
    events.clear();
    QCOMPARE(int(changes.count()), 1);
    QCOMPARE(events.begin(), events.end());
    events.add({Level::Info, "base", "two"});
    QCOMPARE(events.at(1).text, QString("two"));
}

TEST_WITHOUT_WINDOWS(EventsTest)

} // namespace events_test

#include "EventsTest.moc"
