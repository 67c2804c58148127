// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "plugin/gui/HistoryBundle.h"

#include "TestCase.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/HistoryBundleContent.h"

#include <QtTest>

namespace history_bundle_test {

using plugin::gui::DeviceHistoryBundle;
using plugin::gui::HistoryBundleContent;
using plugin::gui::VariableHistoryBuffer;
using plugin::gui::VariableKind;

class HistoryBundleTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_variable_that_did_not_change_has_no_history();
    void each_kind_has_names_of_its_own();
    void the_newest_value_is_the_last();
    void an_empty_value_is_a_change_too();
    void the_host_can_go_through_its_content();
};

void HistoryBundleTest::a_variable_that_did_not_change_has_no_history()
{
    HistoryBundleContent content;
    QVERIFY(content.isEmpty());
    QVERIFY(!DeviceHistoryBundle(content).getConfigVariableHistory("name"));
    content.insert(VariableKind::Config, "name", 1);
    QVERIFY(!content.isEmpty());
    const DeviceHistoryBundle bundle(content);
    QVERIFY(bundle.getConfigVariableHistory("name"));
    for (const char* other : {"Name", "nam", "name ", "names", ""})
        QVERIFY(!bundle.getConfigVariableHistory(other));
}

void HistoryBundleTest::each_kind_has_names_of_its_own()
{
    using Getter =
        const VariableHistoryBuffer* (plugin::gui::HistoryBundle::*)(const char* name) const;
    const std::pair<VariableKind, Getter> kinds[] = {
        {VariableKind::Input, &plugin::gui::HistoryBundle::getInputHistory},
        {VariableKind::Output, &plugin::gui::HistoryBundle::getOutputHistory},
        {VariableKind::State, &plugin::gui::HistoryBundle::getStateVariableHistory},
        {VariableKind::Config, &plugin::gui::HistoryBundle::getConfigVariableHistory}};
    for (const auto& [filled, ignored] : kinds) {
        HistoryBundleContent content;
        content.insert(filled, "name", static_cast<int>(filled));
        const DeviceHistoryBundle bundle(content);
        for (const auto& [kind, getter] : kinds) {
            const VariableHistoryBuffer* const history = (bundle.*getter)("name");
            QCOMPARE(history != nullptr, kind == filled);
            if (history)
                QCOMPARE(history->last().toInt(), static_cast<int>(kind));
        }
    }
}

void HistoryBundleTest::the_newest_value_is_the_last()
{
    HistoryBundleContent content;
    content.insert(VariableKind::State, "name", 1);
    const olm::core::variant::Variant newest(std::string("two"));
    content.insert(VariableKind::State, "name", newest);
    const DeviceHistoryBundle bundle(content);
    const VariableHistoryBuffer* const history = bundle.getStateVariableHistory("name");
    QCOMPARE(history->last().toString(), std::string("two"));
    QCOMPARE(history->last().id(), newest.id()); // the value as it was put in
}

void HistoryBundleTest::an_empty_value_is_a_change_too()
{
    HistoryBundleContent content;
    content.insert(VariableKind::Input, "name", olm::core::variant::Variant());
    QVERIFY(!content.isEmpty());
    const DeviceHistoryBundle bundle(content);
    QVERIFY(bundle.getInputHistory("name"));
    QVERIFY(bundle.getInputHistory("name")->last().isEmpty());
}

void HistoryBundleTest::the_host_can_go_through_its_content()
{
    HistoryBundleContent content;
    content.insert(VariableKind::Config, "b", 1);
    content.insert(VariableKind::Input, "z", 2);
    content.insert(VariableKind::Config, "a", 3);
    QStringList visited;
    content.forEach([&](VariableKind kind, const std::string& name, const auto& value) {
        visited << QString::number(static_cast<int>(kind)) + QString::fromStdString(name) +
                       QString::number(value.toInt());
    });
    QCOMPARE(visited, QStringList({"0z2", "3a3", "3b1"}));
}

TEST_WITHOUT_WINDOWS(HistoryBundleTest)

} // namespace history_bundle_test

#include "HistoryBundleTest.moc"
