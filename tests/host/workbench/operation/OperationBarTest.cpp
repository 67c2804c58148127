// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/workbench/window/FullWindow.h"

#include "host/workbench/operation/OperationBar.h"
#include "host/workbench/operation/StopButton.h"

#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <QtTest>

#include <cmath>

namespace operation_bar_test {

using full_window::FullWindow;
using host::workbench::operation::OperationBar;
using host::workbench::operation::StopButton;

namespace {

struct Fixture : FullWindow
{
    explicit Fixture(const QString& language = "en")
    {
        use(language);
        robot.obey();
        robot.answerTrigger("/stop", true);
        robot.answerTrigger("/stop/release", true);
        device.overrideAddress(robot.address());
    }

    bool connect(int state = 3)
    {
        return device.connectDevice() &&
               QTest::qWaitFor([&] { return device.connectionState() == state; }, patience);
    }

    void tellStopped(bool isStopped) { robot.publish("/stopped", {{"data", isStopped}}); }

    bool isAsked(const QString& call) const
    {
        return QTest::qWaitFor([&] { return robot.calls().contains(call); }, patience);
    }

    QAction& action(const char* name) const { return *bar.findChild<QAction*>(name); }

    FakeRobot robot;
    OperationBar& bar = *view().findChild<OperationBar*>();
    StopButton& stop = *bar.findChild<StopButton*>();
    QPushButton& release = *bar.findChild<QPushButton*>("releaseStop");
    QToolButton& control = *bar.findChild<QToolButton*>("control");
};

double luminance(const QColor& color)
{
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) +
           0.0722 * part(color.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// Between the commonest colour of @p widget as it is painted, its ground, and the colour that
/// contrasts most with that.
double contrastOf(QWidget& widget)
{
    const QImage picture = widget.grab().toImage();
    QHash<QRgb, int> counts;
    QRgb ground = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (++counts[pixel] > counts.value(ground))
                ground = pixel;
        }
    }
    double most = 0;
    // In the middle, away from borders and the window around it.
    for (int y = picture.height() / 4; y < 3 * picture.height() / 4; ++y) {
        for (int x = picture.width() / 8; x < 7 * picture.width() / 8; ++x)
            most = std::max(most, contrast(picture.pixel(x, y), ground));
    }
    return most;
}

} // namespace

/// The buttons that are always in sight.
class OperationBarTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void stop_is_in_sight_in_the_smallest_window_data();
    void stop_is_in_sight_in_the_smallest_window();
    void stop_can_be_read_in_every_appearance_data();
    void stop_can_be_read_in_every_appearance();
    void a_press_stops_without_waiting_for_the_release();
    void stopped_is_shown_and_released_by_hand_only();
    void a_stop_that_fails_is_shown_in_the_window();
    void control_is_taken_and_released_with_the_menu();
};

void OperationBarTest::stop_is_in_sight_in_the_smallest_window_data()
{
    full_window::addLanguages();
}

void OperationBarTest::stop_is_in_sight_in_the_smallest_window()
{
    expectWarning("does not support propagateSizeHints");
    QFETCH(const QString, language);
    Fixture f(language);
    QVERIFY(f.connect());
    f.tellStopped(true);
    QTRY_VERIFY_WITH_TIMEOUT(f.release.isVisible(), patience);
    f.settle();
    f.window.resize(f.window.minimumSizeHint());
    f.settle();
    const QRect place(f.stop.mapTo(&f.view(), QPoint()), f.stop.size());
    QVERIFY(f.stop.isVisible());
    QVERIFY(f.view().rect().contains(place));
    QVERIFY(f.stop.width() >= f.stop.sizeHint().width());
    QVERIFY(place.right() > f.view().width() * 3 / 4);
    QVERIFY(f.control.isVisible());
    QVERIFY(f.stop.text().contains("F12") || f.stop.toolTip().contains("F12"));
}

void OperationBarTest::stop_can_be_read_in_every_appearance_data()
{
    QTest::addColumn<QString>("appearance");
    for (const char* code : {"light", "dark"})
        QTest::newRow(code) << code;
}

void OperationBarTest::stop_can_be_read_in_every_appearance()
{
    expectWarning("does not support propagateSizeHints");
    QFETCH(const QString, appearance);
    Fixture f;
    f.environment.appearance().use(appearance);
    QVERIFY(f.connect());
    QCoreApplication::processEvents();
    constexpr double least = 4.5;
    QVERIFY2(contrastOf(f.stop) >= least, qPrintable(QString::number(contrastOf(f.stop))));
    f.tellStopped(true);
    QTRY_COMPARE_WITH_TIMEOUT(f.stop.text(), QString("Stopped"), patience);
    QCoreApplication::processEvents();
    QVERIFY2(contrastOf(f.stop) >= least, qPrintable(QString::number(contrastOf(f.stop))));
    f.environment.appearance().use("system");
}

void OperationBarTest::a_press_stops_without_waiting_for_the_release()
{
    expectWarning("does not support propagateSizeHints");
    Fixture f;
    QVERIFY(f.connect());
    QTest::mousePress(&f.stop, Qt::LeftButton);
    QVERIFY(f.isAsked("/stop {}"));
    QTest::mouseRelease(&f.stop, Qt::LeftButton);
    QCOMPARE(int(f.robot.calls().count("/stop {}")), 1);
}

void OperationBarTest::stopped_is_shown_and_released_by_hand_only()
{
    expectWarning("does not support propagateSizeHints");
    Fixture f;
    f.robot.answerTrigger("/control/acquire", false, "somebody");
    QVERIFY(f.connect(4));
    QVERIFY(!f.release.isVisible());
    f.tellStopped(true);
    QTRY_COMPARE_WITH_TIMEOUT(f.stop.text(), QString("Stopped"), patience);
    QTRY_VERIFY_WITH_TIMEOUT(f.release.isVisible(), patience);
    QVERIFY(!f.release.isEnabled());
    QVERIFY(f.release.toolTip().contains("take control first"));
    f.robot.answerTrigger("/control/acquire", true);
    f.action("take").trigger();
    QTRY_VERIFY_WITH_TIMEOUT(f.release.isEnabled(), patience);
    QVERIFY(!f.robot.calls().contains("/stop/release {}"));
    QTest::mouseClick(&f.release, Qt::LeftButton);
    QVERIFY(f.isAsked("/stop/release {}"));
    f.tellStopped(false);
    QTRY_VERIFY_WITH_TIMEOUT(!f.release.isVisible(), patience);
    QCOMPARE(f.stop.text(), QString("Stop (F12)"));
}

void OperationBarTest::a_stop_that_fails_is_shown_in_the_window()
{
    expectWarning("does not support propagateSizeHints");
    Fixture f;
    f.robot.answerTrigger("/stop", false, "the brake is broken");
    QVERIFY(f.connect());
    QTest::mouseClick(&f.stop, Qt::LeftButton);
    const auto isShown = [&] {
        const auto labels = f.view().findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
            return label->isVisible() && label->text().contains("the brake is broken");
        });
    };
    QTRY_VERIFY_WITH_TIMEOUT(isShown(), patience);
}

void OperationBarTest::control_is_taken_and_released_with_the_menu()
{
    expectWarning("does not support propagateSizeHints");
    Fixture f;
    QVERIFY(!f.control.isEnabled());
    QVERIFY(f.connect());
    QCOMPARE(f.control.text(), QString("In control"));
    QVERIFY(f.control.isEnabled() && !f.action("take").isEnabled());
    f.action("release").trigger();
    QTRY_COMPARE_WITH_TIMEOUT(f.control.text(), QString("Not in control"), patience);
    QCOMPARE(f.device.connectionState(), 4);
    f.robot.answerTrigger("/control/acquire", false, "somebody");
    f.action("takeWhenFree").trigger();
    QTRY_COMPARE_WITH_TIMEOUT(f.control.text(), QString("Waiting for control"), patience);
    QVERIFY(f.action("takeWhenFree").isChecked());
    f.action("takeWhenFree").trigger();
    QCOMPARE(f.control.text(), QString("Not in control"));
    f.robot.answerTrigger("/control/acquire", true);
    f.action("take").trigger();
    QTRY_COMPARE_WITH_TIMEOUT(f.control.text(), QString("In control"), patience);
}

TEST_WITH_WINDOWS(OperationBarTest)

} // namespace operation_bar_test

#include "OperationBarTest.moc"
