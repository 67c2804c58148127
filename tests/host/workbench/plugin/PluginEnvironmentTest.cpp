// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/workbench/plugin/PluginEnvironment.h"

#include <QAction>
#include <QSignalSpy>
#include <QtTest>

namespace plugin_environment_test {

using host::workbench::plugin::PluginEnvironment;

/// PluginEnvironment; that its texts follow the language is shown with it, in LanguageTest.
class PluginEnvironmentTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void there_is_one_help_action_for_each_context();
    void a_help_action_asks_for_help_on_its_context();
    void a_text_without_translation_stays_as_it_is();
};

void PluginEnvironmentTest::there_is_one_help_action_for_each_context()
{
    PluginEnvironment environment;
    QAction* action = environment.helpAction("toolbar");
    QVERIFY(action);
    QCOMPARE(action->text(), QString("Help: Connecting"));
    QCOMPARE(environment.helpAction("toolbar"), action);
    QVERIFY(environment.helpAction("") != action);
    QVERIFY(environment.helpAction("unheard of"));
}

void PluginEnvironmentTest::a_help_action_asks_for_help_on_its_context()
{
    PluginEnvironment environment;
    const QSignalSpy requests(&environment, &PluginEnvironment::helpRequested);
    environment.helpAction("toolbar")->trigger();
    QCOMPARE(requests.count(), 1);
    QCOMPARE(requests.at(0).at(0).toString(), QString("toolbar"));
}

void PluginEnvironmentTest::a_text_without_translation_stays_as_it_is()
{
    const PluginEnvironment environment;
    QCOMPARE(environment.translate("Connected to %1."), QString("Connected to %1."));
    QCOMPARE(environment.translate(QString::fromUtf8("Größe")), QString::fromUtf8("Größe"));
    QCOMPARE(environment.currentLanguage(), QString("en"));
}

TEST_WITH_WINDOWS(PluginEnvironmentTest)

} // namespace plugin_environment_test

#include "PluginEnvironmentTest.moc"
