// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"
#include "tests/host/device/DeviceFixture.h"
#include "tests/host/device/readers/ScanMessage.h"

#include "host/device/recording/DeviceState.h"
#include "host/device/recording/PluginTopics.h"
#include "rosbridge/bag/BagReader.h"
#include "rosbridge/serialization/MessageReader.h"

#include <QCborArray>
#include <QJsonDocument>
#include <QtTest>

namespace device_recorder_test {

using host::device::recording::DeviceState;
using host::device::recording::Recorder;
using host::device::recording::stateInterval;
using rosbridge::bag::BagReader;
using rosbridge::serialization::MessageDefinition;
using rosbridge::serialization::MessageReader;
using Kind = plugin::gui::VariableKind;

namespace {

QCborMap wholeScan()
{
    QCborMap scan = scanMessage(1);
    scan.insert(QStringLiteral("intensities"), QCborArray());
    return scan;
}

struct RecordedMessage
{
    QString topic;
    QString type;
    QCborMap content;
};

/// A device that is recorded.
struct Fixture : DeviceFixture
{
    bool start(qint64 most = Recorder::mostBytes)
    {
        QString error;
        const bool isStarted = device.recorder().start(file, &error, most);
        if (!isStarted)
            qWarning("%s", qPrintable(error));
        return isStarted;
    }

    /// All that is in the bag, which is finished for it.
    QList<RecordedMessage> stop()
    {
        device.recorder().stop();
        QList<RecordedMessage> messages;
        QString error;
        for (auto reader = BagReader::open(file, &error); reader && !reader->isAtEnd();
             reader->advance()) {
            const BagReader::Topic& topic = reader->topics().at(reader->topic());
            const auto definition = MessageDefinition::parse(topic.type, topic.definition, &error);
            const auto content = MessageReader::read(
                *definition, reader->bytes(&error).value_or(QByteArray()), &error);
            messages.append({topic.name, topic.type, content.value_or(QCborMap())});
        }
        if (!error.isEmpty())
            qWarning("%s", qPrintable(error));
        return messages;
    }

    /// The messages about the plugin.
    static QList<QJsonObject> calls(const QList<RecordedMessage>& messages)
    {
        QList<QJsonObject> calls;
        for (const RecordedMessage& message : messages) {
            const QString text = message.content.value("data").toString();
            if (message.topic == QLatin1String("/plugin/calls"))
                calls.append(QJsonDocument::fromJson(text.toUtf8()).object());
        }
        return calls;
    }

    const QString file = folder.filePath("device.bag");
};

/// As in "update(scan)", "readInput(a)" or "end", of those from @p first on.
QStringList inWords(const QList<QJsonObject>& calls, int first)
{
    QStringList words;
    for (const QJsonObject& call : calls.mid(first)) {
        QStringList arguments;
        for (const QJsonValue argument : call.value("arguments").toArray()) {
            const QJsonObject object = argument.toObject();
            arguments += object.value(object.contains("name") ? "name" : "value").toString();
        }
        words += call.contains("end")
                     ? QStringLiteral("end")
                     : call.value("function").toString() + '(' + arguments.join(", ") + ')';
    }
    return words;
}

} // namespace

/// A device's recorder: what of a device is in its bag.
class DeviceRecorderTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void what_is_followed_is_recorded_in_its_own_type();
    void a_message_is_there_once_however_many_follow_its_topic();
    void topics_have_the_robots_names();
    void what_the_robot_tells_once_is_asked_for_again();
    void a_type_without_a_definition_is_left_out_and_said_once();
    void the_first_message_tells_what_the_device_was();
    void the_conversation_is_recorded_in_order();
    void widgets_that_get_the_same_share_it();
    void the_state_is_told_from_time_to_time_before_a_call();
    void a_long_call_is_told_once_more();
    void a_recording_that_is_cut_off_has_all_but_the_last_seconds();
    void at_its_bound_the_recording_ends_with_words();
    void a_file_that_cannot_be_made_is_named();
};

void DeviceRecorderTest::what_is_followed_is_recorded_in_its_own_type()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QVERIFY(f.start());
    f.robot.publish("/scan", wholeScan());
    QTRY_VERIFY_WITH_TIMEOUT(f.scan().ranges.size() > 0, patience);
    const QList<RecordedMessage> messages = f.stop();
    const auto scan = std::find_if(messages.begin(), messages.end(),
                                   [](const auto& message) { return message.topic == "/scan"; });
    QVERIFY(scan != messages.end());
    QCOMPARE(scan->type, QString("sensor_msgs/LaserScan"));
    QCOMPARE(scan->content.value("angle_min").toDouble(),
             static_cast<double>(f.scan().minimumAngle));
}

void DeviceRecorderTest::a_message_is_there_once_however_many_follow_its_topic()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    int heard = 0;
    for (int i = 0; i < 2; ++i) {
        f.device.connection().follow("scan", "sensor_msgs/LaserScan",
                                     [&](const QCborMap&) { ++heard; });
    }
    QVERIFY(f.start());
    f.robot.publish("/scan", wholeScan());
    QTRY_COMPARE_WITH_TIMEOUT(heard, 2, patience);
    const QList<RecordedMessage> messages = f.stop();
    QCOMPARE(std::count_if(messages.begin(), messages.end(),
                           [](const auto& message) { return message.topic == "/scan"; }),
             1);
}

void DeviceRecorderTest::topics_have_the_robots_names()
{
    Fixture f;
    f.robot.obey();
    f.device.remappings().set("/scan", "/base_scan");
    QVERIFY(f.connect());
    QVERIFY(f.start());
    f.robot.publish("/base_scan", wholeScan());
    QTRY_VERIFY_WITH_TIMEOUT(f.scan().ranges.size() > 0, patience);
    const QList<RecordedMessage> messages = f.stop();
    QVERIFY(std::any_of(messages.begin(), messages.end(),
                        [](const auto& message) { return message.topic == "/base_scan"; }));
}

void DeviceRecorderTest::what_the_robot_tells_once_is_asked_for_again()
{
    Fixture f;
    f.robot.obey();
    f.robot.latch("/drive/disabled", {{QStringLiteral("data"), true}});
    QVERIFY(f.connect());
    QVERIFY(f.settle());
    QVERIFY(f.start());
    QVERIFY(f.settle());
    const QList<RecordedMessage> messages = f.stop();
    QVERIFY(std::any_of(messages.begin(), messages.end(), [](const auto& message) {
        return message.topic == "/drive/disabled" && message.content.value("data").toBool();
    }));
}

void DeviceRecorderTest::a_type_without_a_definition_is_left_out_and_said_once()
{
    Fixture f;
    QStringList problems;
    QObject::connect(&f.device, &host::device::Device::problem, &f.device,
                     [&](const QString& words) { problems += words; });
    f.robot.obey();
    QVERIFY(f.connect());
    int heard = 0;
    f.device.connection().follow("/what", "secret_msgs/What", [&](const QCborMap&) { ++heard; });
    QVERIFY(f.start());
    for (int i = 0; i < 3; ++i)
        f.robot.publish("/what", {{QStringLiteral("data"), i}});
    QTRY_COMPARE_WITH_TIMEOUT(heard, 3, patience);
    QTRY_COMPARE_WITH_TIMEOUT(problems.size(), 1, patience);
    QCOMPARE(problems.first(), QString("/what is not recorded: this program has no definition of "
                                       "its type, secret_msgs/What."));
    QVERIFY(!f.stop().isEmpty());
}

void DeviceRecorderTest::the_first_message_tells_what_the_device_was()
{
    Fixture f;
    f.device.registerInput("scan", true);
    QVERIFY(f.start());
    const QList<QJsonObject> calls = Fixture::calls(f.stop());
    QString error;
    const auto state = DeviceState::read(calls.value(0), &error);
    QVERIFY2(state, qPrintable(error));
    QCOMPARE(state->device, QString("robot"));
    QCOMPARE(state->connectionState, -1);
    const auto find = [&](const char* name) {
        return *std::find_if(state->variables.begin(), state->variables.end(),
                             [&](const auto& variable) { return variable.name == name; });
    };
    QVERIFY(find("scan").isRegistered);
    QVERIFY(find("scan").value.isEmpty());
    QVERIFY(find("pos0_name").kind == Kind::Config);
    QCOMPARE(find("pos0_name").value.get<std::string>(), std::string("Pos1"));
}

void DeviceRecorderTest::the_conversation_is_recorded_in_order()
{
    Fixture f;
    QVERIFY(f.hears("translate"));
    QVERIFY(f.start());
    f.device.registerConfigVariable("line0_enabled", true);
    f.probe->onUpdate = [&](const auto&) { f.probe->readConfigVariable("line0_enabled"); };
    f.probe->writeConfigVariable("line0_enabled", false);
    QTRY_VERIFY_WITH_TIMEOUT(f.count("update") > 0, patience);
    f.device.sendMessage(plugin::plugin::DataRole(1000), QString("line"));
    QVERIFY(f.hears("1000 line"));
    const QList<QJsonObject> calls = Fixture::calls(f.stop());
    QStringList words = inWords(calls, 1);
    words.removeAll("trans()");
    QCOMPARE(words, (QStringList{"writeConfigVariable(line0_enabled, )", "update(line0_enabled)",
                                 "readConfigVariable(line0_enabled)", "end",
                                 "on_messageReceived(role, value)", "end"}));
    const QJsonObject read = calls.at(3);
    QCOMPARE(read.value("result"), QJsonValue(QJsonObject{{"type", "bool"}, {"value", false}}));
    QCOMPARE(read.value("depth").toInt(), 1);
    QCOMPARE(read.value("widget").toString(), QString("Probe"));
    QVERIFY(read.value("ns").toDouble() > 0);
    QCOMPARE(calls.at(2).value("arguments").toArray().at(0).toObject().value("kind").toString(),
             QString("config"));
    QCOMPARE(calls.at(4).value("end"), calls.at(2).value("call"));
}

void DeviceRecorderTest::widgets_that_get_the_same_share_it()
{
    Fixture f;
    const std::unique_ptr<plugin::gui::DeviceWidget> second(
        f.device.loadWidget(f.factory, "second"));
    QVERIFY(f.hears("translate"));
    QVERIFY(f.start());
    f.device.sendMessage(plugin::plugin::DataRole(1000), QString("line"));
    QVERIFY(f.hears("1000 line"));
    const QList<QJsonObject> calls = Fixture::calls(f.stop());
    QCOMPARE(calls.size(), 5);
    QVERIFY(calls.at(1).value("arguments").isArray());
    QCOMPARE(calls.at(3).value("arguments"), calls.at(1).value("call"));
}

void DeviceRecorderTest::the_state_is_told_from_time_to_time_before_a_call()
{
    Fixture f;
    const std::unique_ptr<plugin::gui::DeviceWidget> second(
        f.device.loadWidget(f.factory, "second"));
    QVERIFY(f.hears("translate"));
    QVERIFY(f.start());
    f.probe->writeInput("count", 1);
    QTRY_VERIFY_WITH_TIMEOUT(f.device.recorder().elapsed() > stateInterval, patience);
    f.device.sendMessage(plugin::plugin::DataRole(1000), QString("line"));
    QVERIFY(f.hears("1000 line"));
    f.device.sendMessage(plugin::plugin::DataRole(1000), QString("other"));
    QVERIFY(f.hears("1000 other"));
    const QList<RecordedMessage> messages = f.stop();
    const auto isState = [](const RecordedMessage& message) {
        return message.topic == QLatin1String("/plugin/state");
    };
    QCOMPARE(std::count_if(messages.begin(), messages.end(), isState), 1);
    const auto state = std::find_if(messages.begin(), messages.end(), isState);
    QString error;
    const auto told = DeviceState::read(
        QJsonDocument::fromJson(state->content.value("data").toString().toUtf8()).object(), &error);
    QVERIFY2(told, qPrintable(error));
    QVERIFY(std::any_of(told->variables.begin(), told->variables.end(), [](const auto& variable) {
        return variable.name == "count" && variable.value.template get<int>() == 1;
    }));
    // What comes after it stands by itself.
    const QList<QJsonObject> calls = Fixture::calls(messages.mid(int(state - messages.begin())));
    QVERIFY(!calls.isEmpty());
    QCOMPARE(calls.first().value("depth").toInt(), 0);
    QVERIFY(calls.first().value("arguments").isArray());
}

void DeviceRecorderTest::a_long_call_is_told_once_more()
{
    Fixture f;
    QVERIFY(f.hears("translate"));
    QVERIFY(f.start());
    f.device.sendMessage(plugin::plugin::DataRole(1000), QString("short"));
    QVERIFY(f.hears("1000 short"));
    f.probe->onMessage = [] { QThread::msleep(60); };
    f.device.sendMessage(plugin::plugin::DataRole(1000), QString("long"));
    QVERIFY(f.hears("1000 long"));
    const QList<RecordedMessage> messages = f.stop();
    const auto found = std::find_if(messages.rbegin(), messages.rend(), [](const auto& message) {
        return message.topic == QLatin1String("/plugin/long_calls");
    });
    QVERIFY(found != messages.rend());
    const auto text = [](const RecordedMessage& message) {
        return message.content.value("data").toString();
    };
    QVERIFY(text(*found).startsWith("{\"end\":"));
    QCOMPARE(text(*std::next(found)), text(*found)); // right after it
}

void DeviceRecorderTest::a_recording_that_is_cut_off_has_all_but_the_last_seconds()
{
    Fixture f;
    QVERIFY(f.start());
    f.probe->readInput("first");
    QString error;
    const auto isOnDisk = [&] {
        QFile active(f.file + ".active");
        return active.open(QIODevice::ReadOnly) && active.readAll().contains("readInput");
    };
    QTRY_VERIFY_WITH_TIMEOUT(isOnDisk(), patience);
    const QString killed = f.folder.filePath("killed.bag");
    QVERIFY(QFile::copy(f.file + ".active", killed));
    const auto reader = BagReader::open(killed, &error);
    QVERIFY2(reader, qPrintable(error));
    QCOMPARE(reader->topics().at(0).name, QString("/plugin/calls"));
}

void DeviceRecorderTest::at_its_bound_the_recording_ends_with_words()
{
    Fixture f;
    QStringList problems;
    QObject::connect(&f.device, &host::device::Device::problem, &f.device,
                     [&](const QString& words) { problems += words; });
    QVERIFY(f.start(100000));
    const auto isOver = [&] {
        for (int i = 0; i < 100; ++i)
            f.probe->readInput("scan");
        return !f.device.recorder().isRecording();
    };
    QTRY_VERIFY_WITH_TIMEOUT(isOver(), patience);
    QTRY_COMPARE_WITH_TIMEOUT(problems.size(), 1, patience);
    QCOMPARE(problems.first(),
             QStringLiteral("The recording has ended: %1 has reached the largest size of a "
                            "recording, 97.66 KiB. All that was recorded until then is in %1.")
                 .arg(f.file));
    QVERIFY(QFile::exists(f.file));
    QVERIFY(Fixture::calls(f.stop()).size() > 100);
}

void DeviceRecorderTest::a_file_that_cannot_be_made_is_named()
{
    Fixture f;
    QString error;
    QVERIFY(!f.device.recorder().start("/nowhere/a.bag", &error));
    QCOMPARE(error, QString("/nowhere/a.bag.active: No such file or directory"));
    QVERIFY(!f.device.recorder().isRecording());
}

TEST_WITH_WINDOWS(DeviceRecorderTest)

} // namespace device_recorder_test

#include "DeviceRecorderTest.moc"
