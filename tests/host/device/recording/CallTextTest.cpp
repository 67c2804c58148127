// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/device/connection/MessageRole.h"
#include "host/device/connection/SimulationDirectExecRole.h"
#include "host/device/recording/CallText.h"
#include "host/device/recording/DeviceState.h"
#include "host/device/recording/ValueJson.h"
#include "host/device/variables/Variables.h"
#include "olm/core/LaserScanMessage.h"
#include "olm/core/StringList.h"
#include "olm/core/Vector.h"

#include <QJsonDocument>
#include <QtTest>

#include <cstring>
#include <limits>
#include <random>

namespace call_text_test {

using namespace host::device;
using host::device::recording::CallText;
using host::device::recording::DeviceState;
using host::device::recording::RecordedCall;
using host::device::recording::UnknownValue;
using host::device::recording::ValueJson;
using host::device::trace::Arguments;
using host::device::trace::PluginCall;
using olm::core::LaserScanMessage;
using olm::core::variant::Variant;
using Floats = olm::core::Vector<float>;
using Kind = plugin::gui::VariableKind;

namespace {

QByteArray text(const Variant& value)
{
    QByteArray json = "{";
    ValueJson::append(json, value);
    return json + '}';
}

QJsonObject parsed(const QByteArray& json)
{
    return QJsonDocument::fromJson(json).object();
}

Variant readBack(const Variant& value)
{
    QString error;
    return ValueJson::read(parsed(text(value)), &error).value_or(Variant());
}

/// Of the same type, and the same bits.
template <class T>
bool survives(const T& value)
{
    bool isSame = false;
    const Variant back = readBack(value);
    const T read = back.get<T>(&isSame);
    return isSame && std::memcmp(&read, &value, sizeof value) == 0;
}

template <class Number>
bool everyEdgeSurvives()
{
    using Limits = std::numeric_limits<Number>;
    for (const Number number : {Limits::min(), Limits::max(), Limits::lowest(), Number(0),
                                Limits::denorm_min(), Limits::epsilon()}) {
        if (!survives(number))
            return false;
    }
    return true;
}

LaserScanMessage oddScan()
{
    using Limits = std::numeric_limits<float>;
    LaserScanMessage scan;
    scan.sequenceNumber = 4294967295;
    scan.timeStamp = 7;
    scan.frameId = std::string("l\xe4ser\0x", 7);
    scan.minimumAngle = -1.5F;
    scan.maximumRange = Limits::infinity();
    for (const float range : {0.1F, -0.0F, Limits::infinity(), -Limits::infinity()})
        scan.ranges.append(range);
    scan.intensities.append(Limits::denorm_min());
    return scan;
}

PluginCall call(PluginCall::Direction direction, const char* name, Arguments arguments)
{
    PluginCall call(direction, name, nullptr,
                    std::make_shared<const Arguments>(std::move(arguments)));
    call.number = 17;
    call.depth = 1;
    call.duration = std::chrono::nanoseconds(1500);
    return call;
}

std::optional<RecordedCall> read(const QByteArray& json)
{
    QString error;
    auto call = CallText::read(parsed(json), &error);
    if (!call)
        qWarning("%s", qPrintable(error));
    return call;
}

} // namespace

/// The messages of a recording about calls: what is written is what is read.
class CallTextTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_form_is_that_of_the_documents();
    void numbers_survive_to_the_last_bit();
    void what_is_no_number_survives();
    void texts_survive_with_every_character();
    void lists_and_scans_survive();
    void a_value_of_an_unknown_type_is_named();
    void a_call_to_the_host_is_told_whole();
    void a_call_to_the_plugin_is_told_in_two_parts();
    void a_call_may_share_the_arguments_of_another();
    void what_is_no_call_is_refused_with_the_reason();
    void the_initial_state_survives();
    void another_format_is_refused();
};

void CallTextTest::the_form_is_that_of_the_documents()
{
    QCOMPARE(text(Variant()), QByteArray(R"({"type":"empty"})"));
    QCOMPARE(text(0.1F), QByteArray(R"({"type":"float","value":0.1})"));
    QCOMPARE(text(std::string("10.0.0.1")), QByteArray(R"({"type":"string","value":"10.0.0.1"})"));
    QCOMPARE(text(connection::storePosition), QByteArray(R"({"type":"command","value":1007})"));
    PluginCall message = call(PluginCall::Direction::ToPlugin, "on_messageReceived",
                              {{"role", int(connection::connectionStateMessage)}, {"value", 3}});
    QCOMPARE(
        CallText::begin(message, std::nullopt),
        QByteArray(R"({"call":17,"depth":1,"to":"plugin","function":"on_messageReceived",)"
                   R"("arguments":[{"name":"role","type":"int","value":1005,)"
                   R"("means":"connection state"},{"name":"value","type":"int","value":3}]})"));
    message.hasThrown = true;
    QCOMPARE(CallText::end(message), QByteArray(R"({"end":17,"ns":1500,"threw":true})"));
    PluginCall question = call(PluginCall::Direction::ToHost, "connectDevice", {});
    question.result = true;
    QCOMPARE(CallText::whole(question),
             QByteArray(R"({"call":17,"depth":1,"to":"host","function":"connectDevice",)"
                        R"("arguments":[],"ns":1500,"result":{"type":"bool","value":true}})"));
}

void CallTextTest::numbers_survive_to_the_last_bit()
{
    QVERIFY(everyEdgeSurvives<float>());
    QVERIFY(everyEdgeSurvives<double>());
    QVERIFY(everyEdgeSurvives<int>());
    QVERIFY(everyEdgeSurvives<unsigned int>());
    QVERIFY(survives(true));
    std::mt19937 random(1); // the same in every run
    for (int i = 0; i < 20000; ++i) {
        const quint32 bits = random();
        float number = 0;
        std::memcpy(&number, &bits, sizeof number);
        QVERIFY2(std::isnan(number) || survives(number), qPrintable(QString::number(bits, 16)));
    }
}

void CallTextTest::what_is_no_number_survives()
{
    using Limits = std::numeric_limits<double>;
    for (const double number : {Limits::infinity(), -Limits::infinity(), -0.0}) {
        QVERIFY(survives(number));
        QVERIFY(survives(static_cast<float>(number)));
    }
    QVERIFY(std::isnan(readBack(Limits::quiet_NaN()).get<double>()));
    QVERIFY(std::isnan(readBack(std::numeric_limits<float>::quiet_NaN()).get<float>()));
}

void CallTextTest::texts_survive_with_every_character()
{
    std::string bytes;
    QString characters;
    for (int i = 0; i < 256; ++i)
        bytes += static_cast<char>(i);
    for (int i = 0; i < 0x10000; i += 0x55)
        characters += QChar(static_cast<ushort>(i)); // halves of surrogate pairs among them
    QCOMPARE(readBack(bytes).get<std::string>(), bytes);
    QCOMPARE(readBack(characters).get<QString>(), characters);
    bool isText = false;
    QCOMPARE(readBack(QString()).get<QString>(&isText), QString());
    QVERIFY(isText);
}

void CallTextTest::lists_and_scans_survive()
{
    olm::core::StringList list;
    list.append("");
    list.append(std::string("a\0\"b", 4));
    QVERIFY(readBack(list).get<olm::core::StringList>() == list);
    olm::core::Vector<unsigned int> numbers(2);
    numbers[1] = 4294967295;
    QVERIFY(readBack(numbers).get<olm::core::Vector<unsigned int>>() == numbers);
    QVERIFY(readBack(Floats()).get<Floats>().isEmpty());
    const LaserScanMessage scan = oddScan();
    const auto read = readBack(scan).get<LaserScanMessage>();
    QVERIFY(read == scan);
    QVERIFY(std::signbit(read.ranges.data()[1]));
    QCOMPARE(readBack(connection::toggleTorque).get<SimulationDirectExecRole>(),
             connection::toggleTorque);
}

void CallTextTest::a_value_of_an_unknown_type_is_named()
{
    const QByteArray json = R"({"type":"unknown","class":"call_text_test::CallTextTest*"})";
    QCOMPARE(text(this), json);
    QCOMPARE(readBack(this).get<UnknownValue>().type, QString("call_text_test::CallTextTest*"));
    QCOMPARE(text(readBack(this)), json);
}

void CallTextTest::a_call_to_the_host_is_told_whole()
{
    PluginCall question = call(PluginCall::Direction::ToHost, "readInput", {{{}, oddScan()}});
    question.widgetName = "name";
    question.widgetClass = &typeid(UnknownValue);
    question.result = 0.25F;
    const auto read = call_text_test::read(CallText::whole(question));
    QVERIFY(read);
    QVERIFY(read->part == RecordedCall::Part::Whole);
    QVERIFY(read->direction == PluginCall::Direction::ToHost);
    QCOMPARE(read->number, 17ULL);
    QCOMPARE(read->depth, 1);
    QCOMPARE(read->function, QString("readInput"));
    QCOMPARE(read->widgetClass, QString("host::device::recording::UnknownValue"));
    QCOMPARE(read->widgetName, QString("name"));
    QVERIFY(read->arguments->at(0).value.get<LaserScanMessage>() == oddScan());
    QCOMPARE(read->result.value_or(0).get<float>(), 0.25F);
    QCOMPARE(read->duration.count(), 1500);
    QVERIFY(!read->hasThrown);
}

void CallTextTest::a_call_to_the_plugin_is_told_in_two_parts()
{
    PluginCall update =
        call(PluginCall::Direction::ToPlugin, "update", {{"p\xe4", true, Kind::Config}});
    const auto begin = read(CallText::begin(update, std::nullopt));
    QVERIFY(begin);
    QVERIFY(begin->part == RecordedCall::Part::Begin);
    QVERIFY(begin->arguments->at(0).kind == Kind::Config);
    QCOMPARE(begin->arguments->at(0).name, std::string("p\xe4"));
    QVERIFY(!begin->result);
    update.hasThrown = true;
    const auto end = read(CallText::end(update));
    QVERIFY(end);
    QVERIFY(end->part == RecordedCall::Part::End);
    QVERIFY(end->direction == PluginCall::Direction::ToPlugin);
    QCOMPARE(end->number, 17ULL);
    QVERIFY(end->hasThrown);
}

void CallTextTest::a_call_may_share_the_arguments_of_another()
{
    const auto second = read(
        CallText::begin(call(PluginCall::Direction::ToPlugin, "update", {{"a", oddScan()}}), 16));
    QVERIFY(second);
    QCOMPARE(second->argumentsOf, std::optional<quint64>(16));
    QVERIFY(!second->arguments);
}

void CallTextTest::what_is_no_call_is_refused_with_the_reason()
{
    const auto errorOf = [](const char* json) {
        QString error;
        return CallText::read(parsed(json), &error) ? QString() : error;
    };
    QCOMPARE(errorOf(R"({"call":-1})"), QString("a call has no number"));
    QCOMPARE(errorOf(R"({"call":1.5})"), QString("a call has no number"));
    QCOMPARE(errorOf(R"({"call":3,"arguments":[]})"),
             QString("the call 3 has no function or no arguments"));
    QCOMPARE(errorOf(R"({"call":3,"function":"f"})"),
             QString("the call 3 has no function or no arguments"));
    QCOMPARE(errorOf(R"({"call":3,"function":"f","arguments":[{"type":"int","value":1.5}]})"),
             QString("a value is not of the type \"int\" that it names"));
    QCOMPARE(errorOf(R"({"end":3,"result":{"type":"what"}})"),
             QString("a value has no type that this program knows: \"what\""));
}

void CallTextTest::the_initial_state_survives()
{
    variables::Variables variables;
    variables.set(Kind::Config, "pos0_name", std::string("Pos\xe4"));
    variables.follow(Kind::Input, "scan"); // which is not there yet
    variables.setProperty(Kind::Config, "pos0", "unit", std::string("deg"));
    DeviceState state = DeviceState::of(variables);
    state.device = "Trial";
    state.program = "device-workbench 1";
    state.connectionState = 4;
    QString error;
    const auto read = DeviceState::read(parsed(state.toJson()), &error);
    QVERIFY2(read, qPrintable(error));
    QCOMPARE(read->device, state.device);
    QCOMPARE(read->program, state.program);
    QCOMPARE(read->connectionState, 4);
    QCOMPARE(read->variables.size(), std::size_t(2));
    QVERIFY(read->variables[0].kind == Kind::Input);
    QCOMPARE(read->variables[0].name, std::string("scan"));
    QVERIFY(read->variables[0].value.isEmpty());
    QVERIFY(read->variables[0].isRegistered);
    QCOMPARE(read->variables[1].value.get<std::string>(), std::string("Pos\xe4"));
    QVERIFY(!read->variables[1].isRegistered);
    QCOMPARE(read->properties.size(), std::size_t(1));
    QCOMPARE(read->properties[0].variable, std::string("pos0"));
    QCOMPARE(read->properties[0].name, std::string("unit"));
    QCOMPARE(read->properties[0].value.get<std::string>(), std::string("deg"));
}

void CallTextTest::another_format_is_refused()
{
    QString error;
    QVERIFY(!DeviceState::read(parsed(R"({"recording":2})"), &error));
    QCOMPARE(error, QString("its calls are of the format 2, and this program reads 1"));
}

TEST_WITHOUT_WINDOWS(CallTextTest)

} // namespace call_text_test

#include "CallTextTest.moc"
