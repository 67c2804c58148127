// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/rosbridge/RosMessages.h"

#include "rosbridge/serialization/MessageDefinition.h"

#include <QtTest>

namespace message_definition_test {

using rosbridge::serialization::MessageDefinition;
using Kind = MessageDefinition::Kind;

namespace {

std::optional<MessageDefinition> parse(const QString& text, QString* error = nullptr)
{
    return MessageDefinition::parse(QStringLiteral("pkg/Type"), text, error);
}

} // namespace

/// MessageDefinition: what ROS's own texts and those of others say of a message.
class MessageDefinitionTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void ros_own_definitions_are_read();
    void fields_have_their_kind_and_length();
    void constants_are_no_fields();
    void types_are_found_in_their_own_package();
    void the_least_size_counts_all_that_is_there_in_any_case();
    void what_is_wrong_is_named_data();
    void what_is_wrong_is_named();
    void a_type_that_contains_itself_is_refused();
    void messages_that_multiply_take_no_time();
};

void MessageDefinitionTest::ros_own_definitions_are_read()
{
    for (const ros_messages::Example& example : ros_messages::all())
        QCOMPARE(ros_messages::definition(example).root().name, example.type);
}

void MessageDefinitionTest::fields_have_their_kind_and_length()
{
    const auto definition = parse("bool truth # said here\n\n  float32[]   many\r\nchar[3] few\n");
    QVERIFY(definition);
    const std::vector<MessageDefinition::Field>& fields = definition->root().fields;
    QCOMPARE(fields.size(), std::size_t{3});
    QCOMPARE(fields[0].name, QString("truth"));
    QVERIFY(fields[0].kind == Kind::Bool);
    QCOMPARE(fields[0].arrayLength, MessageDefinition::noArray);
    QVERIFY(fields[1].kind == Kind::Float32);
    QCOMPARE(fields[1].arrayLength, MessageDefinition::anyLength);
    QVERIFY(fields[2].kind == Kind::UInt8);
    QCOMPARE(fields[2].arrayLength, 3);
}

void MessageDefinitionTest::constants_are_no_fields()
{
    const auto definition = parse("byte LEVEL = 4 # high\nstring TEXT=a # b\nint8 x # y = [z]\n");
    QVERIFY(definition);
    QCOMPARE(definition->root().fields.size(), std::size_t{1});
    QCOMPARE(definition->root().constants,
             (QStringList{QStringLiteral("byte LEVEL=4"), QStringLiteral("string TEXT=a # b")}));
}

void MessageDefinitionTest::types_are_found_in_their_own_package()
{
    const auto definition = parse("Header header\nInner inner\nother/Type[] others\n"
                                  "====\nMSG: std_msgs/Header\nuint32 seq\n"
                                  "====\nMSG: pkg/Inner\nother/msg/Type deep\n"
                                  "====\nMSG: other/Type\nint8 x\n");
    QVERIFY(definition);
    const MessageDefinition::Type& root = definition->root();
    QCOMPARE(definition->type(root.fields[0]).name, QString("std_msgs/Header"));
    QCOMPARE(definition->type(root.fields[1]).name, QString("pkg/Inner"));
    QCOMPARE(definition->type(root.fields[2]).name, QString("other/Type"));
    QCOMPARE(definition->type(definition->type(root.fields[1]).fields[0]).name,
             QString("other/Type"));
}

void MessageDefinitionTest::the_least_size_counts_all_that_is_there_in_any_case()
{
    const auto definition = parse("string text\nduration[2] d\nInner[] list\nInner[3] three\n"
                                  "====\nMSG: pkg/Inner\nint16 x\nfloat64 y\n");
    QVERIFY(definition);
    QCOMPARE(definition->root().leastSize, qint64{4 + 16 + 4 + 30});
}

void MessageDefinitionTest::what_is_wrong_is_named_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("named");
    QTest::newRow("no field") << "float64\n"
                              << "float64";
    QTest::newRow("no name") << "float64 2x\n"
                             << "2x";
    QTest::newRow("a type that is missing") << "Inner inner\n"
                                            << "pkg/Inner";
    QTest::newRow("twice the same") << "int8 x\nint8 x\n"
                                    << "\"x\"";
    QTest::newRow("no length") << "int8[0] x\n"
                               << "0 elements";
    QTest::newRow("too long") << "int8[99999999999] x\n"
                              << "99999999999";
    QTest::newRow("no type's name") << "====\nint8 x\n"
                                    << "int8 x";
    QTest::newRow("any type") << "*"
                              << "*";
}

void MessageDefinitionTest::what_is_wrong_is_named()
{
    QFETCH(const QString, text);
    QFETCH(const QString, named);
    QString error;
    QVERIFY(!parse(text, &error));
    QVERIFY2(error.contains(named) && error.contains("pkg/Type"), qPrintable(error));
}

void MessageDefinitionTest::a_type_that_contains_itself_is_refused()
{
    QString error;
    QVERIFY(!parse("Type[] more\n", &error));
    QVERIFY2(error.contains("deep"), qPrintable(error));
}

/// Of the levels that the link carries, each has ten fields of the next one; one more is refused.
void MessageDefinitionTest::messages_that_multiply_take_no_time()
{
    QString text;
    for (int level = 1; level <= 14; ++level) {
        for (int i = 0; i < 10; ++i)
            text += QStringLiteral("T%1[1000] f%2\n").arg(level + 1).arg(i);
        text += QStringLiteral("====\nMSG: pkg/T%1\n").arg(level + 1);
    }
    text += "int8 x\n";
    const auto definition = parse(text);
    QVERIFY(definition);
    QVERIFY(definition->root().leastSize > 0); // and not what ran over
    QVERIFY(!parse("T1 t\n====\nMSG: pkg/T1\n" + text));
}

TEST_WITHOUT_WINDOWS(MessageDefinitionTest)

} // namespace message_definition_test

#include "MessageDefinitionTest.moc"
