// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "LaserRangeFinderDialog.h"

#include "ContextMenu.h"
#include "Delivery.h"
#include "FakeHost.h"
#include "ForeignLocale.h"
#include "TestCase.h"
#include "olm/core/LaserScanMessage.h"

#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <QtTest>

#include <cmath>
#include <limits>
#include <sstream>

namespace laser_range_finder_dialog_test {

using olm::core::LaserScanMessage;
using olm::qt::log::Log;
using olm::qt::log::View;

namespace {

const QStringList captions{
    "Sequence number",
    "Time stamp",
    "Frame ID",
    "Minimum angle \\[deg]",
    "Maximum angle \\[deg]",
    "Angle increment \\[deg]",
    "Time increment \\[s]",
    "Scan time \\[s]",
    "Minimum range \\[m]",
    "Maximum range \\[m]",
    "Number of range measurements",
    "Number of intensity measurements",
};

LaserScanMessage example()
{
    LaserScanMessage scan;
    scan.sequenceNumber = 4294967295U;
    scan.timeStamp = 4000000000U;
    scan.frameId = "laser";
    scan.minimumAngle = -1.57079637F; // half of the single-precision pi
    scan.maximumAngle = 3.14159274F;
    scan.angleIncrement = 0.01F;
    scan.timeIncrement = 0.0001F;
    scan.scanTime = 0.1F;
    scan.minimumRange = 0.02F;
    scan.maximumRange = 12.3456789F;
    scan.ranges.resize(683);
    scan.intensities.resize(12345);
    return scan;
}

const QStringList exampleTexts{"4294967295", "4000000000", "laser", "-90",     "180", "0.572958",
                               "0.0001",     "0.1",        "0.02",  "12.3457", "683", "12345"};

const QStringList defaultTexts{"0", "0", "", "0", "0", "0", "0", "0", "0", "0", "0", "0"};

QLabel* label(const QFormLayout& form, int row, QFormLayout::ItemRole role)
{
    return qobject_cast<QLabel*>(form.itemAt(row, role)->widget());
}

QStringList texts(const QWidget& dialog, QFormLayout::ItemRole role)
{
    const auto* const form = dialog.findChild<QFormLayout*>();
    QStringList texts;
    for (int row = 0; row < form->rowCount(); ++row)
        texts.append(label(*form, row, role)->text());
    return texts;
}

QStringList values(const QWidget& dialog)
{
    return texts(dialog, QFormLayout::FieldRole);
}

QString log(const QWidget& dialog)
{
    return dialog.findChild<View*>()->toPlainText();
}

} // namespace

class LaserRangeFinderDialogTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_form_stands_above_the_log();
    void the_host_is_asked_in_order_at_construction();
    void a_new_tab_shows_zeros_without_captions();
    void the_start_text_is_posted_unless_it_is_empty_data();
    void the_start_text_is_posted_unless_it_is_empty();
    void every_caption_is_translated_and_gets_a_colon();
    void a_caption_keeps_its_backslash();
    void a_scan_fills_all_rows();
    void a_value_that_is_no_scan_shows_an_empty_one_data();
    void a_value_that_is_no_scan_shows_an_empty_one();
    void a_bundle_without_a_scan_changes_nothing();
    void the_last_scan_survives_connections();
    void a_number_has_six_digits_at_most_data();
    void a_number_has_six_digits_at_most();
    void an_angle_is_shown_in_degrees_data();
    void an_angle_is_shown_in_degrees();
    void a_frame_is_shown_as_its_bytes();
    void many_measurements_are_counted_in_full();
    void the_numbers_are_the_same_in_every_locale();
    void a_message_for_this_tab_is_posted_data();
    void a_message_for_this_tab_is_posted();
    void messages_of_other_roles_are_ignored();
    void the_menu_of_the_log_ends_with_the_help();
    void nothing_is_ever_written();
};

void LaserRangeFinderDialogTest::the_form_stands_above_the_log()
{
    FakeHost host;
    QWidget parent;
    const LaserRangeFinderDialog dialog(host, &parent);
    QCOMPARE(dialog.parentWidget(), &parent);

    const auto* const layout = qobject_cast<QVBoxLayout*>(dialog.layout());
    QVERIFY(layout);
    QCOMPARE(layout->count(), 2);
    const auto* const form = qobject_cast<QFormLayout*>(layout->itemAt(0)->layout());
    QVERIFY(form);
    auto* const view = qobject_cast<View*>(layout->itemAt(1)->widget());
    QVERIFY(view);
    QCOMPARE(layout->stretch(0), 0);
    QCOMPARE(layout->stretch(1), 0);
    QVERIFY(dynamic_cast<Log*>(view->document()));

    // The children in the order of their creation: the view, the values, the captions.
    QObjectList expected{view};
    QCOMPARE(form->rowCount(), 12);
    for (const auto role : {QFormLayout::FieldRole, QFormLayout::LabelRole}) {
        for (int row = 0; row < 12; ++row) {
            QVERIFY(label(*form, row, role));
            expected.append(label(*form, row, role));
        }
    }
    QObjectList widgets = dialog.children();
    QVERIFY(widgets.removeOne(dialog.layout()));
    QCOMPARE(widgets, expected);
}

void LaserRangeFinderDialogTest::the_host_is_asked_in_order_at_construction()
{
    FakeHost host;
    host.sent[LaserStartTextRole] = 1;
    const LaserRangeFinderDialog dialog(host, nullptr);
    const QStringList expected{"exec 1003", "help rangefinder", "register input scan true"};
    QCOMPARE(host.calls, expected);
    QVERIFY(host.sent[LaserStartTextRole].isEmpty());
}

void LaserRangeFinderDialogTest::a_new_tab_shows_zeros_without_captions()
{
    FakeHost host;
    host.set(Kind::Input, "scan", example()); // not read before it changes
    const LaserRangeFinderDialog dialog(host, nullptr);
    QCOMPARE(values(dialog).count("0"), 12);
    QCOMPARE(texts(dialog, QFormLayout::LabelRole).count(""), 12);
    QCOMPARE(log(dialog), QString());
}

void LaserRangeFinderDialogTest::the_start_text_is_posted_unless_it_is_empty_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a text") << 0 << "Ready.\nfirst message";
    QTest::newRow("an empty text") << 1 << "first message";
    QTest::newRow("no answer") << 2 << "first message";
    QTest::newRow("a byte string") << 3 << "first message";
    QTest::newRow("an empty any") << 4 << "first message";
}

void LaserRangeFinderDialogTest::the_start_text_is_posted_unless_it_is_empty()
{
    QFETCH(int, kind);
    QFETCH(QString, expected);
    const Variant answers[] = {QString("Ready."), QString(""), Variant(), std::string("Ready."),
                               boost::any()};
    FakeHost host;
    host.answers[LaserStartTextRole] = answers[kind];
    const LaserRangeFinderDialog dialog(host, nullptr);
    message(host, 1002, QString("first message"));
    QCOMPARE(log(dialog), expected);
}

void LaserRangeFinderDialogTest::every_caption_is_translated_and_gets_a_colon()
{
    FakeHost host;
    LaserRangeFinderDialog dialog(host, nullptr);
    dialog.translate();
    for (int row = 0; row < 12; ++row)
        QCOMPARE(texts(dialog, QFormLayout::LabelRole)[row], captions[row] + ":");

    for (const QString& caption : captions)
        host.dictionary[caption] = "Wort " + QString::number(caption.size());
    dialog.translate();
    for (int row = 0; row < 12; ++row)
        QCOMPARE(texts(dialog, QFormLayout::LabelRole)[row],
                 QString("Wort %1:").arg(captions[row].size()));
    QCOMPARE(values(dialog).count("0"), 12);
}

void LaserRangeFinderDialogTest::a_caption_keeps_its_backslash()
{
    QCOMPARE(captions[3].size(), 20);
    FakeHost host;
    LaserRangeFinderDialog dialog(host, nullptr);
    dialog.translate();
    const QString shown = texts(dialog, QFormLayout::LabelRole)[3];
    QCOMPARE(shown.size(), 21);
    QCOMPARE(shown.mid(14), QString("\\[deg]:"));
}

void LaserRangeFinderDialogTest::a_scan_fills_all_rows()
{
    FakeHost host;
    const LaserRangeFinderDialog dialog(host, nullptr);
    change(host, Kind::Input, "scan", example());
    QCOMPARE(values(dialog), exampleTexts);
    change(host, Kind::Input, "scan", LaserScanMessage());
    QCOMPARE(values(dialog), defaultTexts);
}

void LaserRangeFinderDialogTest::a_value_that_is_no_scan_shows_an_empty_one_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("empty") << 0;
    QTest::newRow("an empty any") << 1;
    QTest::newRow("a text") << 2;
    QTest::newRow("numbers") << 3;
    QTest::newRow("a pointer to a scan") << 4;
}

void LaserRangeFinderDialogTest::a_value_that_is_no_scan_shows_an_empty_one()
{
    QFETCH(int, kind);
    const LaserScanMessage scan = example();
    const Variant wrong[] = {Variant(), boost::any(), std::string("scan"),
                             olm::core::Vector<float>(3), &scan};
    FakeHost host;
    const LaserRangeFinderDialog dialog(host, nullptr);
    change(host, Kind::Input, "scan", scan);
    change(host, Kind::Input, "scan", wrong[kind]);
    QCOMPARE(values(dialog), defaultTexts);
}

void LaserRangeFinderDialogTest::a_bundle_without_a_scan_changes_nothing()
{
    FakeHost host;
    const LaserRangeFinderDialog dialog(host, nullptr);
    change(host, Kind::Input, "cameraFrequency", 30U);
    QCOMPARE(values(dialog).count("0"), 12);
    change(host, Kind::Input, "scan", example());
    deliver(host, plugin::gui::HistoryBundleContent());
    for (const Kind kind : {Kind::Output, Kind::State, Kind::Config})
        change(host, kind, "scan", LaserScanMessage());
    QCOMPARE(values(dialog), exampleTexts);
}

void LaserRangeFinderDialogTest::the_last_scan_survives_connections()
{
    FakeHost host;
    LaserRangeFinderDialog dialog(host, nullptr);
    change(host, Kind::Input, "scan", example());
    host.calls.clear();
    dialog.disconnected();
    dialog.connected();
    QCOMPARE(values(dialog), exampleTexts);
    QCOMPARE(log(dialog), QString());
    QVERIFY(host.calls.isEmpty());
}

void LaserRangeFinderDialogTest::a_number_has_six_digits_at_most_data()
{
    QTest::addColumn<float>("number");
    QTest::addColumn<QString>("expected");
    const auto row = [](float number, const char* text) { QTest::newRow(text) << number << text; };
    row(0.0F, "0");
    row(0.5F, "0.5");
    row(0.1F, "0.1");
    row(12.3456789F, "12.3457");
    row(-2.0F, "-2");
    row(123456, "123456");
    row(1234567, "1.23457e+06");
    row(0.0001F, "0.0001");
    row(0.00001F, "1e-05");
    row(std::numeric_limits<float>::max(), "3.40282e+38");
    row(std::numeric_limits<float>::denorm_min(), "1.4013e-45");
    row(std::numeric_limits<float>::infinity(), "inf");
    row(-std::numeric_limits<float>::infinity(), "-inf");
    row(std::numeric_limits<float>::quiet_NaN(), "nan");
}

void LaserRangeFinderDialogTest::a_number_has_six_digits_at_most()
{
    QFETCH(float, number);
    QFETCH(QString, expected);
    FakeHost host;
    const LaserRangeFinderDialog dialog(host, nullptr);
    LaserScanMessage scan;
    scan.timeIncrement = scan.scanTime = scan.minimumRange = scan.maximumRange = number;
    change(host, Kind::Input, "scan", scan);
    for (int row = 6; row < 10; ++row)
        QCOMPARE(values(dialog)[row], expected);
}

void LaserRangeFinderDialogTest::an_angle_is_shown_in_degrees_data()
{
    QTest::addColumn<float>("radians");
    QTest::addColumn<QString>("expected");
    const auto row = [](float number, const char* text) { QTest::newRow(text) << number << text; };
    const float pi = 3.14159274F;
    row(0, "0");
    row(pi, "180");
    row(-pi / 2, "-90");
    row(pi / 180, "1");
    row(1, "57.2958");
    row(1.00000823F, "57.2962"); // a more exact pi would round it to the next digit
    // Single precision would make an infinity of the product.
    row(std::numeric_limits<float>::max(), "1.94967e+40");
    row(std::numeric_limits<float>::infinity(), "inf");
    row(-std::numeric_limits<float>::infinity(), "-inf");
    row(std::numeric_limits<float>::quiet_NaN(), "nan");
}

void LaserRangeFinderDialogTest::an_angle_is_shown_in_degrees()
{
    QFETCH(float, radians);
    QFETCH(QString, expected);
    FakeHost host;
    const LaserRangeFinderDialog dialog(host, nullptr);
    LaserScanMessage scan;
    scan.minimumAngle = scan.maximumAngle = scan.angleIncrement = radians;
    change(host, Kind::Input, "scan", scan);
    for (int row = 3; row < 6; ++row)
        QCOMPARE(values(dialog)[row], expected);
}

void LaserRangeFinderDialogTest::a_frame_is_shown_as_its_bytes()
{
    FakeHost host;
    const LaserRangeFinderDialog dialog(host, nullptr);
    LaserScanMessage scan;
    scan.frameId = std::string("a\0\xe9 <b>&", 8) + std::string(300, 'x');
    change(host, Kind::Input, "scan", scan);
    const QString shown = values(dialog)[2];
    QCOMPARE(shown.size(), 308);
    QCOMPARE(shown, QString::fromLatin1("a\0\xe9 <b>&", 8) + QString(300, 'x'));
    // Markup is shown, not obeyed.
    const auto* const form = dialog.findChild<QFormLayout*>();
    QCOMPARE(label(*form, 2, QFormLayout::FieldRole)->textFormat(), Qt::PlainText);
}

void LaserRangeFinderDialogTest::many_measurements_are_counted_in_full()
{
    FakeHost host;
    const LaserRangeFinderDialog dialog(host, nullptr);
    LaserScanMessage scan;
    scan.ranges.resize(70000);
    scan.intensities.resize(1234567);
    change(host, Kind::Input, "scan", scan);
    QCOMPARE(values(dialog)[10], QString("70000"));
    QCOMPARE(values(dialog)[11], QString("1234567"));
}

void LaserRangeFinderDialogTest::the_numbers_are_the_same_in_every_locale()
{
    const ForeignLocale foreign;
    std::ostringstream stream;
    stream << 1234567 << ' ' << 0.5;
    QCOMPARE(QString::fromStdString(stream.str()), QString("1.234.567 0,5"));
    QCOMPARE(QString("%L1").arg(1234567), QString("1.234.567"));

    FakeHost host;
    const LaserRangeFinderDialog dialog(host, nullptr);
    QCOMPARE(values(dialog).count("0"), 12);
    change(host, Kind::Input, "scan", example());
    QCOMPARE(values(dialog), exampleTexts);
}

void LaserRangeFinderDialogTest::a_message_for_this_tab_is_posted_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a text") << 0 << "before\nscan <b>lost</b>\nafter";
    QTest::newRow("an empty text") << 1 << "before\n\nafter";
    QTest::newRow("empty") << 2 << "before\n\nafter";
    QTest::newRow("a byte string") << 3 << "before\n\nafter";
    QTest::newRow("a number") << 4 << "before\n\nafter";
}

void LaserRangeFinderDialogTest::a_message_for_this_tab_is_posted()
{
    QFETCH(int, kind);
    QFETCH(QString, expected);
    const Variant payloads[] = {QString("scan <b>lost</b>"), QString(), Variant(),
                                std::string("bytes"), 7};
    FakeHost host;
    const LaserRangeFinderDialog dialog(host, nullptr);
    message(host, 1002, QString("before"));
    message(host, 1002, payloads[kind]);
    message(host, 1002, QString("after"));
    QCOMPARE(log(dialog), expected);
}

void LaserRangeFinderDialogTest::messages_of_other_roles_are_ignored()
{
    FakeHost host;
    const LaserRangeFinderDialog dialog(host, nullptr);
    message(host, 1002, QString("before"));
    host.calls.clear();
    for (const int role : {-1, 0, 999, 1000, 1001, 1003, 1004, 1005, 1006, 2002,
                           std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        message(host, role, QString("other"));
    message(host, 1002, QString("after"));
    QCOMPARE(log(dialog), QString("before\nafter"));
    QVERIFY(host.calls.isEmpty());
}

void LaserRangeFinderDialogTest::the_menu_of_the_log_ends_with_the_help()
{
    FakeHost host;
    const LaserRangeFinderDialog dialog(host, nullptr);
    QString last;
    QVERIFY(withContextMenu(*dialog.findChild<View*>()->viewport(), [&last](const QMenu& menu) {
        last = menu.actions().constLast()->text();
    }));
    QCOMPARE(last, QString("Help on rangefinder"));
}

void LaserRangeFinderDialogTest::nothing_is_ever_written()
{
    FakeHost host;
    host.answers[LaserStartTextRole] = QString("Ready.");
    LaserRangeFinderDialog dialog(host, nullptr);
    dialog.translate();
    change(host, Kind::Input, "scan", example());
    message(host, 1002, QString("text"));
    QVERIFY(host.calls.filter("write").isEmpty());
    QCOMPARE(host.calls.filter("exec").size(), 1);
}

TEST_WITH_WINDOWS(LaserRangeFinderDialogTest)

} // namespace laser_range_finder_dialog_test

#include "LaserRangeFinderDialogTest.moc"
