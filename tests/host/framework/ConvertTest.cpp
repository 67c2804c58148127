// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "olm/qt/convert.h"

#include "TestCase.h"

#include <QtTest>

namespace convert_test {

class ConvertTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void lists_are_converted_element_by_element_and_in_order();
    void every_byte_survives_the_way_there_and_back();
    void a_character_beyond_latin_1_becomes_a_question_mark();
};

void ConvertTest::lists_are_converted_element_by_element_and_in_order()
{
    QCOMPARE(olm::qt::convert(olm::core::StringList()), QStringList());
    QVERIFY(olm::qt::convert(QStringList()).isEmpty());
    const QStringList texts{"b", "", "a", "b", " "};
    const olm::core::StringList bytes = olm::qt::convert(texts);
    const std::vector<std::string> read(bytes.begin(), bytes.end());
    QCOMPARE(read, (std::vector<std::string>{"b", "", "a", "b", " "}));
    QCOMPARE(olm::qt::convert(bytes), texts);
}

void ConvertTest::every_byte_survives_the_way_there_and_back()
{
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all.push_back(static_cast<char>(byte));
    olm::core::StringList bytes;
    bytes.append(all);
    const QStringList texts = olm::qt::convert(bytes);
    QCOMPARE(texts.size(), 1);
    QCOMPARE(texts.first().size(), 256);
    for (int byte = 0; byte < 256; ++byte)
        QCOMPARE(texts.first().at(byte).unicode(), static_cast<ushort>(byte));
    QVERIFY(olm::qt::convert(texts) == bytes);
}

void ConvertTest::a_character_beyond_latin_1_becomes_a_question_mark()
{
    const olm::core::StringList bytes = olm::qt::convert(QStringList{QString::fromUtf8("aΩb")});
    QCOMPARE(*bytes.begin(), std::string("a?b"));
}

TEST_WITHOUT_WINDOWS(ConvertTest)

} // namespace convert_test

#include "ConvertTest.moc"
