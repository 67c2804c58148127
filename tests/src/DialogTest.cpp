// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Dialog.h"
#include "AddressInput.h"
#include "BaseDialog.h"
#include "Delivery.h"
#include "FakeHost.h"
#include "LaserRangeFinderDialog.h"
#include "ManipulatorDialog.h"
#include "PositionModel.h"
#include "TestCase.h"
#include "Throws.h"
#include "olm/core/LaserScanMessage.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPointer>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QVBoxLayout>
#include <QtTest>

#include <dlfcn.h>
#include <memory>
#include <stdexcept>

static QList<int> postedLevels;

/// Comes before the framework's own, which shows every level alike.
void olm::qt::log::Log::postLog(const QString& text, int level)
{
    postedLevels.append(level);
    using Function = void (*)(Log*, const QString&, int);
    static const auto next =
        reinterpret_cast<Function>(dlsym(RTLD_NEXT, "_ZN3olm2qt3log3Log7postLogERK7QStringi"));
    next(this, text, level);
}

namespace dialog_test {

namespace {

std::unique_ptr<Dialog> build(FakeHost& host)
{
    return std::make_unique<Dialog>(static_cast<plugin::gui::DeviceDelegate&>(host));
}

QTabWidget* tabsOf(const Dialog& dialog)
{
    return dialog.findChild<QTabWidget*>(QString(), Qt::FindDirectChildrenOnly);
}

QStringList labelsOf(const Dialog& dialog)
{
    QStringList labels;
    const QTabWidget* const tabs = tabsOf(dialog);
    for (int i = 0; i < tabs->count(); ++i)
        labels.append(tabs->tabText(i));
    return labels;
}

} // namespace

class DialogTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_tabs_are_base_manipulator_and_laser_without_labels();
    void translating_labels_the_tabs_and_nothing_in_them();
    void the_tabs_are_at_the_bottom_and_fill_the_dialog();
    void it_has_no_parent_and_its_tabs_are_its_own();
    void the_tabs_are_built_in_order();
    void messages_and_changes_reach_the_tabs_and_not_through_the_dialog();
    void every_tab_posts_with_the_highest_level();
    void nothing_is_left_of_a_dialog_whose_tab_throws();
    void nothing_is_written_while_it_lives_and_dies();
};

void DialogTest::the_tabs_are_base_manipulator_and_laser_without_labels()
{
    FakeHost host;
    const auto dialog = build(host);
    const QTabWidget* const tabs = tabsOf(*dialog);
    QVERIFY(tabs);
    QCOMPARE(labelsOf(*dialog), QStringList({"", "", ""}));
    QVERIFY(qobject_cast<BaseDialog*>(tabs->widget(0)));
    QVERIFY(qobject_cast<ManipulatorDialog*>(tabs->widget(1)));
    QVERIFY(qobject_cast<LaserRangeFinderDialog*>(tabs->widget(2)));
    QCOMPARE(tabs->currentIndex(), 0);
}

void DialogTest::translating_labels_the_tabs_and_nothing_in_them()
{
    FakeHost host;
    host.dictionary = {{"Manipulator", "Arm"}, {"Camera", "Kamera"}};
    const auto dialog = build(host);
    dialog->translate();
    QCOMPARE(labelsOf(*dialog), QStringList({"Base", "Arm", "Laser rangefinder"}));
    QVERIFY(dialog->findChild<QGroupBox*>()->title().isEmpty());
}

void DialogTest::the_tabs_are_at_the_bottom_and_fill_the_dialog()
{
    FakeHost host;
    const auto dialog = build(host);
    const QTabWidget* const tabs = tabsOf(*dialog);
    QCOMPARE(tabs->tabPosition(), QTabWidget::South);
    QCOMPARE(tabs->tabShape(), QTabWidget::Triangular);
    const auto* const layout = qobject_cast<QVBoxLayout*>(dialog->layout());
    QVERIFY(layout);
    QCOMPARE(layout->count(), 1);
    QCOMPARE(layout->stretch(0), 0);
    QVERIFY(!layout->itemAt(0)->alignment());
    dialog->resize(700, 600);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    QCOMPARE(tabs->geometry(), dialog->rect());
    QVERIFY(tabs->tabBar()->geometry().top() > tabs->currentWidget()->geometry().bottom());
}

void DialogTest::it_has_no_parent_and_its_tabs_are_its_own()
{
    FakeHost host;
    auto dialog = build(host);
    QVERIFY(!dialog->parent());
    QList<QPointer<QWidget>> tabs;
    for (int i = 0; i < 3; ++i)
        tabs.append(tabsOf(*dialog)->widget(i));
    QVERIFY(host.widgets.size() > 3);
    dialog.reset();
    for (const QPointer<QWidget>& tab : tabs)
        QVERIFY(!tab);
    QVERIFY(host.widgets.isEmpty());
}

void DialogTest::the_tabs_are_built_in_order()
{
    FakeHost host;
    const auto dialog = build(host);
    const QStringList registrations = host.calls.filter("register");
    const int base = registrations.indexOf("register state connectedToSimulator true");
    const int manipulator = registrations.indexOf("register config num_pos true");
    const int laser = registrations.indexOf("register input scan true");
    QVERIFY(base >= 0);
    QVERIFY(manipulator > base);
    QVERIFY(laser > manipulator);
}

void DialogTest::messages_and_changes_reach_the_tabs_and_not_through_the_dialog()
{
    FakeHost host;
    const auto dialog = build(host);
    const auto logs = [&dialog] {
        QStringList texts;
        for (int i = 0; i < 3; ++i)
            texts.append(
                tabsOf(*dialog)->widget(i)->findChild<QTextEdit*>()->toPlainText().trimmed());
        return texts;
    };
    for (int role : {0, 1000, 1001, 1002, 1003, 1004, 1005}) {
        dialog->on_messageReceived(static_cast<plugin::plugin::DataRole>(role), QString("text"));
        QCOMPARE(logs(), QStringList({"", "", ""}));
    }
    dialog->connected();
    dialog->disconnected();
    plugin::gui::HistoryBundleContent content;
    content.insert(Kind::Config, "disableDriveSystem", true);
    content.insert(Kind::Config, "ipAddress", std::string("10.0.0.1"));
    content.insert(Kind::Config, "num_pos", 3);
    content.insert(Kind::Input, "scan", olm::core::LaserScanMessage());
    const QWidget* const base = tabsOf(*dialog)->widget(0);
    const QSignalSpy reset(dialog->findChild<PositionModel*>(), &PositionModel::modelReset);
    dialog->update(plugin::gui::DeviceHistoryBundle(content));
    QVERIFY(!base->findChild<QCheckBox*>()->isChecked());
    QCOMPARE(base->findChild<AddressInput*>()->text(), QString());
    QCOMPARE(reset.size(), 0);
    for (const QWidget* widget : dialog->findChildren<QWidget*>())
        QVERIFY(widget->isEnabled());

    message(host, 1000, QString("base"));
    message(host, 1001, QString("arm"));
    message(host, 1002, QString("laser"));
    QCOMPARE(logs(), QStringList({"base", "arm", "laser"}));
}

void DialogTest::every_tab_posts_with_the_highest_level()
{
    FakeHost host;
    host.answers[LaserStartTextRole] = QString("Ready.");
    postedLevels.clear();
    const auto dialog = build(host);
    for (const int role : {1000, 1001, 1002})
        message(host, role, QString("text"));
    QCOMPARE(postedLevels, QList<int>({255, 255, 255, 255})); // the start text's too
    postedLevels.clear();
    message(host, 1004, QString("text"));
    QVERIFY(postedLevels.contains(255)); // between empty lines
}

void DialogTest::nothing_is_left_of_a_dialog_whose_tab_throws()
{
    for (const char* call : {"register state connectedToSimulator true",
                             "register config num_pos true", "register input scan true"}) {
        FakeHost host;
        host.throwAt = call;
        QVERIFY(throws<std::runtime_error>([&] { build(host); }));
        QVERIFY(host.widgets.isEmpty());
    }
}

void DialogTest::nothing_is_written_while_it_lives_and_dies()
{
    FakeHost host;
    {
        const auto dialog = build(host);
        dialog->translate();
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    }
    QCOMPARE(host.calls.filter("write"), QStringList());
}

TEST_WITH_WINDOWS(DialogTest)

} // namespace dialog_test

#include "DialogTest.moc"
