// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/workbench/replay/RecordedPlugin.h"

#include "host/device/replay/Replay.h"
#include "host/workbench/replay/ReplayBar.h"
#include "host/workbench/replay/ReplayView.h"

#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QSlider>
#include <QToolButton>
#include <QtTest>

namespace replay_view_test {

using host::device::replay::Conversation;
using host::device::replay::Replay;
using host::workbench::replay::ReplayView;
using host::workbench::window::Window;

namespace {

/// The window in which a recording is played.
struct Fixture
{
    explicit Fixture(const RecordedPlugin& played) : recorded(played) {}

    /// False, with a warning, if it cannot be opened.
    bool open(const QString& language = "en")
    {
        QString error;
        environment.language().use(language);
        auto conversation = Conversation::open(recorded.file, &error);
        if (!conversation) {
            qWarning("%s", qPrintable(error));
            return false;
        }
        replay = std::make_unique<Replay>(std::move(conversation), environment);
        window = std::make_unique<Window>(recorded.plugin, environment);
        view = new ReplayView(recorded.plugin, *replay, recorded.file);
        window->add(view);
        window->show();
        window->activateWindow();
        return QTest::qWaitForWindowActive(window.get(), patience);
    }

    template <class Widget>
    Widget& control(const char* name) const
    {
        return *view->findChild<Widget*>(QLatin1String(name));
    }

    QString words() const { return control<QLabel>("present").text(); }

    void key(int key) const { QTest::keyClick(window.get(), Qt::Key(key)); }

    bool playToTheEnd() const
    {
        control<QComboBox>("speed").setCurrentIndex(control<QComboBox>("speed").count() - 1);
        replay->play();
        return QTest::qWaitFor([this] { return !replay->isPlaying(); }, patience);
    }

    /// Of the tab with the scan.
    QStringList labels() const
    {
        QStringList texts;
        for (const auto* label : view->centralWidget()->findChildren<QLabel*>())
            texts += label->text();
        return texts;
    }

    const RecordedPlugin& recorded;
    host::workbench::plugin::PluginEnvironment environment;
    std::unique_ptr<Replay> replay;
    std::unique_ptr<Window> window;
    ReplayView* view = nullptr;
};

} // namespace

/// A recording in the window: what plays it, and what it shows.
class ReplayViewTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void the_plugin_shows_what_was_recorded();
    void the_traffic_has_the_calls();
    void it_is_played_by_keys();
    void the_present_call_is_in_words();
    void without_a_long_call_it_says_so();
    void every_control_has_a_name_and_says_what_it_does();
    void nothing_in_it_wants_a_robot();
    void it_speaks_the_language_of_the_window();

private:
    RecordedPlugin m_recorded; // once for all of them
};

void ReplayViewTest::initTestCase()
{
    QVERIFY(m_recorded.record(true));
}

void ReplayViewTest::the_plugin_shows_what_was_recorded()
{
    Fixture f(m_recorded);
    QVERIFY(f.open());
    const QString frame = QStringLiteral("laser");
    QVERIFY(!f.labels().contains(frame));
    QVERIFY(f.playToTheEnd());
    QVERIFY2(f.labels().contains(frame), qPrintable(f.labels().join('\n')));
    auto& position = f.control<QSlider>("position");
    QTRY_COMPARE_WITH_TIMEOUT(position.value(), position.maximum(), patience);
    position.setValue(0);
    QVERIFY2(!f.labels().contains(frame), qPrintable(f.labels().join('\n')));
}

void ReplayViewTest::the_traffic_has_the_calls()
{
    Fixture f(m_recorded);
    QVERIFY(f.open());
    f.control<QDockWidget>("TrafficDock").show();
    const auto before = f.replay->traffic().end();
    QVERIFY(f.playToTheEnd());
    QVERIFY(f.replay->traffic().end() > before + 50);
    QVERIFY(f.control<QDockWidget>("TrafficDock").isVisible());
}

void ReplayViewTest::it_is_played_by_keys()
{
    Fixture f(m_recorded);
    QVERIFY(f.open());
    f.key(Qt::Key_F5);
    QVERIFY(f.replay->isPlaying());
    f.key(Qt::Key_F5);
    QVERIFY(!f.replay->isPlaying());
    auto& position = f.control<QSlider>("position");
    position.setFocus();
    QTest::keyClick(&position, Qt::Key_End);
    QVERIFY(f.replay->position() / std::chrono::milliseconds(1) == position.maximum());
    QTest::keyClick(&position, Qt::Key_Home);
    QVERIFY(f.replay->position() == Replay::Time(0));
    QVERIFY(!f.replay->present());
    f.key(Qt::Key_F6);
    QVERIFY(f.replay->present());
    auto& loop = f.control<QCheckBox>("loop");
    loop.setFocus();
    QTest::keyClick(&loop, Qt::Key_Space);
    QVERIFY(loop.isChecked());
}

void ReplayViewTest::the_present_call_is_in_words()
{
    Fixture f(m_recorded);
    QVERIFY(f.open());
    QCOMPARE(f.words(), QString("Before the first call"));
    f.control<QToolButton>("step").click();
    static const QRegularExpression load("^0:00:\\d\\d\\.\\d\\d\\d: loadDeviceWidget took "
                                         "[\\d,]+\\.\\d\\d\\d ms$");
    QTRY_VERIFY2_WITH_TIMEOUT(load.match(f.words()).hasMatch(), qPrintable(f.words()), patience);
    QVERIFY(f.playToTheEnd());
    static const QRegularExpression end("^0:00:\\d\\d\\.\\d\\d\\d: [A-Za-z]+::disconnected took");
    QTRY_VERIFY2_WITH_TIMEOUT(end.match(f.words()).hasMatch(), qPrintable(f.words()), patience);
}

void ReplayViewTest::without_a_long_call_it_says_so()
{
    Fixture f(m_recorded);
    QVERIFY(f.open());
    QVERIFY(f.playToTheEnd());
    f.key(Qt::Key_F7);
    const auto isSaid = [&] {
        const auto labels = f.view->findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
            return label->isVisible() &&
                   label->text().contains("No call after this one took more than 50 ms.");
        });
    };
    QTRY_VERIFY_WITH_TIMEOUT(isSaid(), patience);
}

void ReplayViewTest::every_control_has_a_name_and_says_what_it_does()
{
    Fixture f(m_recorded);
    QVERIFY(f.open());
    int controls = 0;
    for (auto* widget :
         f.view->findChild<host::workbench::replay::ReplayBar*>()->findChildren<QWidget*>(
             QString(), Qt::FindDirectChildrenOnly)) {
        if (!(widget->focusPolicy() & Qt::TabFocus))
            continue;
        ++controls;
        QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(widget);
        const bool isLabelled = !interface->relations(QAccessible::Label).isEmpty();
        QVERIFY2(isLabelled || !interface->text(QAccessible::Name).isEmpty(),
                 qPrintable(widget->objectName()));
        QVERIFY2(!widget->toolTip().isEmpty(), qPrintable(widget->objectName()));
    }
    QCOMPARE(controls, 6);
}

void ReplayViewTest::nothing_in_it_wants_a_robot()
{
    Fixture f(m_recorded);
    QVERIFY(f.open());
    QStringList menus;
    for (const QMenu* menu : f.view->menus())
        menus += menu->objectName();
    QCOMPARE(menus, (QStringList{"view", "replay"}));
    for (const char* name : {"operation", "stop", "record", "connect"})
        QVERIFY2(!f.view->findChild<QObject*>(QLatin1String(name)), name);
    QCOMPARE(f.control<QLabel>("note").text(), QString("Replay without a robot"));
    QVERIFY(f.control<QLabel>("note").toolTip().contains("nothing is sent or stored"));
}

void ReplayViewTest::it_speaks_the_language_of_the_window()
{
    Fixture f(m_recorded);
    QVERIFY(f.open("de"));
    QCOMPARE(f.control<QToolButton>("play").text(), QString("Wiedergeben"));
    const auto& tabs = *f.view->centralWidget()->findChild<QTabWidget*>();
    QVERIFY(f.playToTheEnd());
    QCOMPARE(tabs.tabText(0), QString("Basis")); // whatever was recorded
    f.environment.language().use("en");
    QTRY_COMPARE_WITH_TIMEOUT(f.control<QToolButton>("play").text(), QString("Play"), patience);
    QTRY_COMPARE_WITH_TIMEOUT(tabs.tabText(0), QString("Base"), patience);
}

TEST_WITH_WINDOWS(ReplayViewTest)

} // namespace replay_view_test

#include "ReplayViewTest.moc"
