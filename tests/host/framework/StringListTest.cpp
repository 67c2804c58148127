// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "olm/core/StringList.h"

#include "TestCase.h"

#include <QtTest>

#include <type_traits>

namespace string_list_test {

using olm::core::StringList;

class StringListTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_begins_empty_and_keeps_the_order();
    void appending_to_a_copy_leaves_the_original_alone();
    void reading_shares_the_elements();
    void a_list_can_append_its_own_element();
    void equality_compares_the_elements();
};

static_assert(std::has_virtual_destructor<StringList>::value, "a polymorphic value");
static_assert(std::is_base_of<olm::core::List<std::string>, StringList>::value, "a list of texts");

namespace {

StringList texts(std::initializer_list<const char*> values)
{
    StringList list;
    for (const char* value : values)
        list.append(value);
    return list;
}

} // namespace

void StringListTest::it_begins_empty_and_keeps_the_order()
{
    StringList list;
    QVERIFY(list.isEmpty());
    QCOMPARE(list.size(), 0U);
    QVERIFY(list.begin() == list.end());
    list.append("b");
    list.append("");
    list.append(std::string("a\0c", 3));
    list.append("b");
    QCOMPARE(list.size(), 4U);
    const std::vector<std::string> read(list.begin(), list.end());
    QCOMPARE(read, (std::vector<std::string>{"b", "", std::string("a\0c", 3), "b"}));
}

void StringListTest::appending_to_a_copy_leaves_the_original_alone()
{
    const StringList original = texts({"a", "b"});
    StringList copy = original;
    copy.append("c");
    QCOMPARE(original, texts({"a", "b"}));
    QCOMPARE(copy, texts({"a", "b", "c"}));
    StringList writable = original;
    const StringList second = writable;
    writable.append("c");
    QCOMPARE(second, texts({"a", "b"}));
}

void StringListTest::reading_shares_the_elements()
{
    const StringList original = texts({"a"});
    StringList copy = original;
    QCOMPARE(&*copy.begin(), &*original.begin());
    copy.detach();
    QVERIFY(&*copy.begin() != &*original.begin());
    const std::string* const own = &*copy.begin();
    copy.detach(); // nobody shares it any more
    QCOMPARE(&*copy.begin(), own);
}

void StringListTest::a_list_can_append_its_own_element()
{
    StringList list = texts({"a rather long text that no small buffer takes", "b"});
    for (int i = 0; i < 50; ++i) {
        const StringList shared = list;
        list.append(*list.begin());
    }
    QCOMPARE(list.size(), 52U);
    for (auto text = std::next(list.begin(), 2); text != list.end(); ++text)
        QCOMPARE(*text, *list.begin());
}

void StringListTest::equality_compares_the_elements()
{
    QVERIFY(texts({"a", "b"}) == texts({"a", "b"}));
    QVERIFY(texts({"a", "b"}) != texts({"b", "a"}));
    QVERIFY(texts({"a"}) != texts({"A"}));
    QVERIFY(texts({"a"}) != texts({"a", ""}));
    QVERIFY(StringList() == StringList());
}

TEST_WITHOUT_WINDOWS(StringListTest)

} // namespace string_list_test

#include "StringListTest.moc"
