#include "TestCase.h"

#include "host/workbench/HelpTopics.h"
#include "host/workbench/Services.h"

#include <QAction>
#include <QSignalSpy>
#include <QtTest>

using host::workbench::helpTopic;
using host::workbench::Services;

/// Services and the help topics behind its actions.
class ServicesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void there_is_one_help_action_for_each_context();
    void a_help_action_asks_for_help_on_its_context();
    void a_text_without_translation_stays_as_it_is();
    void a_known_context_has_help_of_its_own();
    void an_unknown_context_gets_the_general_help();
};

void ServicesTest::there_is_one_help_action_for_each_context()
{
    Services services;
    QAction* action = services.helpAction("toolbar");
    QVERIFY(action);
    QVERIFY(action->text().contains(helpTopic("toolbar").title));
    QCOMPARE(services.helpAction("toolbar"), action);
    QVERIFY(services.helpAction("") != action);
    QVERIFY(services.helpAction("unheard of"));
}

void ServicesTest::a_help_action_asks_for_help_on_its_context()
{
    Services services;
    const QSignalSpy requests(&services, &Services::helpRequested);
    services.helpAction("toolbar")->trigger();
    QCOMPARE(requests.count(), 1);
    QCOMPARE(requests.at(0).at(0).toString(), QString("toolbar"));
}

void ServicesTest::a_text_without_translation_stays_as_it_is()
{
    const Services services;
    QCOMPARE(services.translate("Connected to %1."), QString("Connected to %1."));
    QCOMPARE(services.translate(QString::fromUtf8("Größe")), QString::fromUtf8("Größe"));
    QCOMPARE(services.currentLanguage(), QString("en"));
}

void ServicesTest::a_known_context_has_help_of_its_own()
{
    QVERIFY(helpTopic("toolbar").title != helpTopic("").title);
    QVERIFY(helpTopic("toolbar").text.contains("address"));
}

void ServicesTest::an_unknown_context_gets_the_general_help()
{
    QCOMPARE(helpTopic("unheard of").text, helpTopic("").text);
    QVERIFY(!helpTopic("").text.isEmpty());
}

QTEST_MAIN(ServicesTest)
#include "ServicesTest.moc"
