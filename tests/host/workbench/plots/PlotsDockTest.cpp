// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "PlotsFixture.h"
#include "TestCase.h"
#include "tests/host/workbench/robotview/DockOfRobot.h"

#include "host/workbench/EmbeddedRobot.h"
#include "host/workbench/plots/PlotView.h"
#include "host/workbench/plots/PlotsDock.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeWidget>

namespace plots_dock_test {

using namespace plots_fixture;
using host::device::variables::Variables;

namespace {

struct PlotsWorkbench : DockOfRobot<PlotsDock>
{
    using DockOfRobot::DockOfRobot;

    PlotView& view() const { return *part<PlotView>("plot"); }
    QTreeWidget& list() const { return *part<QTreeWidget>("lines"); }
    QPushButton& button(const char* name) const { return *part<QPushButton>(name); }

    void add(const QString& words) const
    {
        part<QComboBox>("chooser")->setEditText(words);
        QTRY_VERIFY_WITH_TIMEOUT(button("add").isEnabled(), patience);
        button("add").click();
    }

    QString value(int line) const { return list().topLevelItem(line)->text(1); }

    QStringList names() const
    {
        QStringList names;
        for (int i = 0; i < list().topLevelItemCount(); ++i)
            names << list().topLevelItem(i)->text(0);
        return names;
    }

    int pointCount(int line) const { return view().graph(line)->data()->size(); }
};

const QString placeInWords = QStringLiteral("/odom: pose.pose.position.x");

} // namespace

/// PlotsDock with a robot: choosing, looking, saving.
class PlotsDockTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_is_hidden_at_first_and_nothing_happens();
    void the_simulated_robots_numbers_are_plotted();
    void a_quantity_is_added_by_its_name_and_removed_again();
    void a_quantity_is_plotted_once();
    void no_more_lines_than_colours();
    void what_is_typed_stays_while_more_is_found();
    void hidden_it_follows_nothing_and_keeps_its_lines();
    void paused_it_records_on();
    void clearing_discards_the_values();
    void what_was_recorded_is_saved();
    void the_choice_is_remembered();
    void a_name_is_never_markup();
    void without_news_nothing_is_painted();
    void it_may_go_at_any_time();
};

void PlotsDockTest::it_is_hidden_at_first_and_nothing_happens()
{
    PlottedRobot robot;
    PlotsWorkbench workbench(robot.address());
    QVERIFY(!workbench.dock->isVisible());
    workbench.dock->choose({place.key()});
    workbench.join();
    workbench.waitForRobot();
    QCOMPARE(robot.followers(), 0);
    for (const QTimer* timer : workbench.dock->findChildren<QTimer*>())
        QVERIFY(!timer->isActive() || !timer->isSingleShot());
}

void PlotsDockTest::the_simulated_robots_numbers_are_plotted()
{
    const host::workbench::EmbeddedRobot robot(0);
    PlotsWorkbench workbench(robot.address());
    workbench.dock->show();
    workbench.join();
    workbench.add("Axis 1: current");
    workbench.add("/odom: rate");
    workbench.add("cameraFrequency");
    // Found by itself.
    const auto* const chooser = workbench.part<QComboBox>("chooser");
    QTRY_VERIFY_WITH_TIMEOUT(chooser->findText(placeInWords) >= 0, patience);
    workbench.add(placeInWords);
    for (int line = 0; line < 4; ++line)
        QTRY_VERIFY_WITH_TIMEOUT(workbench.pointCount(line) > 3, patience);
    QTRY_VERIFY_WITH_TIMEOUT(workbench.value(0).endsWith("°"), patience);
    QTRY_VERIFY_WITH_TIMEOUT(workbench.value(1).endsWith(" Hz"), patience);
    // Lines in their colours.
    const auto isSeen = [&](int line) {
        const QImage image = workbench.view().grab().toImage();
        const QRgb colour = PlotView::colour(line, workbench.view().palette()).rgb();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) == colour)
                    return true;
            }
        }
        return false;
    };
    QTRY_VERIFY_WITH_TIMEOUT(isSeen(0) && isSeen(3), patience);
}

void PlotsDockTest::a_quantity_is_added_by_its_name_and_removed_again()
{
    PlottedRobot robot;
    PlotsWorkbench workbench(robot.address());
    workbench.dock->show();
    workbench.join();
    auto* const chooser = workbench.part<QComboBox>("chooser");
    QVERIFY(!workbench.button("add").isEnabled());
    QVERIFY(!workbench.button("remove").isEnabled());
    chooser->setEditText("nothing of the kind");
    QVERIFY(!workbench.button("add").isEnabled());
    QTest::keyClick(chooser->lineEdit(), Qt::Key_Return);
    QCOMPARE(workbench.names(), QStringList());
    chooser->setEditText("Axis 2: target");
    QTest::keyClick(chooser->lineEdit(), Qt::Key_Return);
    QCOMPARE(chooser->currentText(), QString());
    workbench.add("Axis 3: target");
    QCOMPARE(workbench.names(), (QStringList{"Axis 2: target", "Axis 3: target"}));
    QCOMPARE(workbench.view().graphCount(), 2);
    workbench.list().setCurrentItem(workbench.list().topLevelItem(0));
    workbench.button("remove").click();
    QCOMPARE(workbench.names(), QStringList("Axis 3: target"));
    // The other keeps its colour, and the next one gets the one that is free.
    const QPalette palette = workbench.view().palette();
    QCOMPARE(workbench.view().graph(0)->pen().color(), PlotView::colour(1, palette));
    workbench.add("Axis 4: target");
    QCOMPARE(workbench.view().graph(1)->pen().color(), PlotView::colour(0, palette));
    workbench.list().setFocus();
    QTest::keyClick(&workbench.list(), Qt::Key_Delete);
    QTest::keyClick(&workbench.list(), Qt::Key_Delete);
    QTest::keyClick(&workbench.list(), Qt::Key_Delete);
    QCOMPARE(workbench.names(), QStringList());
}

void PlotsDockTest::a_quantity_is_plotted_once()
{
    PlottedRobot robot;
    PlotsWorkbench workbench(robot.address());
    workbench.dock->show();
    workbench.add("Axis 1: target");
    workbench.add("Axis 2: target");
    workbench.add("Axis 1: target");
    QCOMPARE(workbench.list().topLevelItemCount(), 2);
    QVERIFY(workbench.list().currentItem() == workbench.list().topLevelItem(0));
}

void PlotsDockTest::no_more_lines_than_colours()
{
    PlottedRobot robot;
    PlotsWorkbench workbench(robot.address());
    QStringList keys{"rubbish"};
    for (int i = 0; i < 12; ++i)
        keys << Quantity{Kind::Field, odometry, QString("x%1").arg(i), 0}.key();
    workbench.dock->choose(keys);
    QCOMPARE(workbench.list().topLevelItemCount(), PlotView::colourCount);
    workbench.part<QComboBox>("chooser")->setEditText("Axis 1: target");
    QVERIFY(!workbench.button("add").isEnabled());
}

void PlotsDockTest::what_is_typed_stays_while_more_is_found()
{
    PlottedRobot robot;
    PlotsWorkbench workbench(robot.address());
    workbench.dock->show();
    auto* const chooser = workbench.part<QComboBox>("chooser");
    QCOMPARE(chooser->currentText(), QString());
    chooser->setEditText("Axis 2: tar");
    const int before = chooser->count();
    workbench.device.variables().set(Variables::Kind::Input, "load", 5.0F);
    QTRY_VERIFY_WITH_TIMEOUT(chooser->count() > before, patience);
    QCOMPARE(chooser->currentText(), QString("Axis 2: tar"));
}

void PlotsDockTest::hidden_it_follows_nothing_and_keeps_its_lines()
{
    PlottedRobot robot;
    robot.offer({{odometry, odometryType}});
    PlotsWorkbench workbench(robot.address());
    workbench.dock->show();
    workbench.join();
    workbench.add(placeInWords);
    robot.driveTo(1);
    QTRY_VERIFY_WITH_TIMEOUT(workbench.pointCount(0) > 0, patience);
    QTRY_COMPARE_WITH_TIMEOUT(robot.followers(), 1, patience);
    workbench.dock->hide();
    QTRY_COMPARE_WITH_TIMEOUT(robot.followers(), 0, patience);
    workbench.dock->show();
    QTRY_COMPARE_WITH_TIMEOUT(robot.followers(), 1, patience);
    QCOMPARE(workbench.names(), QStringList(placeInWords));
}

void PlotsDockTest::paused_it_records_on()
{
    PlottedRobot robot;
    PlotsWorkbench workbench(robot.address());
    workbench.dock->show();
    workbench.join();
    workbench.device.variables().set(Variables::Kind::Input, "load", 5.0F);
    workbench.add("load");
    QTRY_VERIFY_WITH_TIMEOUT(workbench.pointCount(0) > 1, patience);
    workbench.button("pause").click();
    const QCPRange seen = workbench.view().xAxis->range();
    const int before = workbench.pointCount(0);
    QTRY_VERIFY_WITH_TIMEOUT(workbench.pointCount(0) > before + 1, patience);
    QCOMPARE(workbench.view().xAxis->range(), seen);
    workbench.button("pause").click();
    QVERIFY(workbench.view().xAxis->range().upper > seen.upper);
    // How much of it is in sight.
    workbench.part<QComboBox>("span")->setCurrentIndex(0);
    QCOMPARE(std::round(workbench.view().xAxis->range().size()), 10.0);
}

void PlotsDockTest::clearing_discards_the_values()
{
    PlottedRobot robot;
    PlotsWorkbench workbench(robot.address());
    workbench.dock->show();
    workbench.join();
    workbench.add(placeInWords);
    robot.driveTo(1);
    QTRY_VERIFY_WITH_TIMEOUT(workbench.pointCount(0) > 0, patience);
    workbench.button("clear").click();
    QCOMPARE(workbench.pointCount(0), 0);
    QCOMPARE(workbench.value(0), QString("–"));
    QCOMPARE(workbench.names(), QStringList(placeInWords));
}

void PlotsDockTest::what_was_recorded_is_saved()
{
    expectWarning("does not support propagateSizeHints");
    PlottedRobot robot;
    PlotsWorkbench workbench(robot.address());
    QVERIFY(!workbench.button("save").isEnabled());
    workbench.dock->show();
    workbench.join();
    workbench.add(placeInWords);
    QTRY_VERIFY_WITH_TIMEOUT(robot.followers() > 0, patience);
    const auto isThere = [&](double x) {
        robot.driveTo(x);
        return workbench.pointCount(0) > 0;
    };
    QTRY_VERIFY_WITH_TIMEOUT(isThere(-1.25), patience);

    const QSignalSpy problems(workbench.dock, &PlotsDock::problem);
    const auto saveAs = [&](const QString& name) {
        workbench.button("save").click();
        auto* const dialog = workbench.dock->findChild<QFileDialog*>();
        Q_EMIT dialog->fileSelected(name);
        delete dialog;
    };
    const QString name = workbench.folder.filePath("plot.csv");
    saveAs(name);
    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(file.readAll()).split("\r\n");
    QCOMPARE(lines.at(0), QString(R"("Time","Quantity","Value","Unit")"));
    const QStringList cells = lines.at(1).split(',');
    const QDateTime time = QDateTime::fromString(cells.at(0).mid(1).chopped(1), Qt::ISODateWithMs);
    QVERIFY2(qAbs(time.secsTo(QDateTime::currentDateTimeUtc())) < 3600, qPrintable(lines.at(1)));
    QCOMPARE(cells.at(1), '"' + placeInWords + '"');
    QCOMPARE(cells.at(2), QString(R"("-1.25")"));
    QCOMPARE(cells.at(3), QString(R"("")"));
    QVERIFY(problems.isEmpty());

    saveAs(workbench.folder.filePath("missing/plot.csv"));
    QCOMPARE(int(problems.size()), 1);
    QVERIFY(problems[0][0].toString().contains("missing/plot.csv"));
}

void PlotsDockTest::the_choice_is_remembered()
{
    PlottedRobot robot;
    PlotsWorkbench first(robot.address());
    first.dock->show();
    first.add("Axis 2: current");
    first.join();
    first.add(placeInWords);
    PlotsWorkbench second(robot.address());
    second.dock->choose(first.dock->chosen());
    QCOMPARE(second.names(), (QStringList{"Axis 2: current", placeInWords}));
    QCOMPARE(second.dock->chosen(), first.dock->chosen());
}

void PlotsDockTest::a_name_is_never_markup()
{
    PlottedRobot robot;
    PlotsWorkbench workbench(robot.address());
    const Quantity bold{Kind::Field, odometry, "<b>bold</b>", 0};
    workbench.dock->choose({bold.key()});
    QCOMPARE(workbench.names(), QStringList("/odom: <b>bold</b>"));
    const QString toolTip = workbench.list().topLevelItem(0)->toolTip(0);
    QVERIFY2(toolTip.contains("&lt;b&gt;bold"), qPrintable(toolTip));
}

void PlotsDockTest::without_news_nothing_is_painted()
{
    PlottedRobot robot;
    PlotsWorkbench workbench(robot.address());
    workbench.dock->show();
    workbench.join();
    workbench.add(placeInWords);
    robot.driveTo(1);
    QTRY_VERIFY_WITH_TIMEOUT(workbench.pointCount(0) > 0, patience);
    QTRY_COMPARE_WITH_TIMEOUT(workbench.value(0), QString("1"), patience);
    // The value's age is all that changes.
    QSignalSpy painted(&workbench.view(), &QCustomPlot::afterReplot);
    QTRY_COMPARE_WITH_TIMEOUT(workbench.value(0), QString("–"), patience);
    const int most = 1; // of what had come before
    QVERIFY2(painted.size() <= most, qPrintable(QString::number(painted.size())));
}

void PlotsDockTest::it_may_go_at_any_time()
{
    PlottedRobot robot;
    PlotsWorkbench workbench(robot.address());
    workbench.dock->show();
    workbench.join();
    workbench.add(placeInWords);
    QTRY_VERIFY_WITH_TIMEOUT(robot.followers() > 0, patience);
    delete workbench.dock;
    QTRY_COMPARE_WITH_TIMEOUT(robot.followers(), 0, patience);
}

TEST_WITH_WINDOWS(PlotsDockTest)

} // namespace plots_dock_test

#include "PlotsDockTest.moc"
