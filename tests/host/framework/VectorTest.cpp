// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "olm/core/Vector.h"

#include "TestCase.h"

#include <QtTest>

#include <limits>
#include <type_traits>

namespace vector_test {

using olm::core::Vector;

class VectorTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_begins_empty_or_filled_with_zeros();
    void resize_cuts_or_fills_up_with_zeros();
    void writing_to_a_copy_leaves_the_original_alone();
    void every_way_of_writing_detaches();
    void reading_shares_the_storage();
    void a_detached_copy_holds_exactly_its_elements();
    void a_vector_with_its_storage_to_itself_keeps_it();
    void a_vector_can_append_its_own_element();
    void equality_compares_the_elements();
};

static_assert(std::has_virtual_destructor<Vector<float>>::value, "a polymorphic value");
static_assert(
    std::is_base_of<olm::core::SharedBase<olm::core::VectorImpl<float>>, Vector<float>>::value,
    "shared like every container");
static_assert(std::is_base_of<std::vector<float>, olm::core::VectorImpl<float>>::value,
              "a plain vector is shared");

namespace {

Vector<float> numbers(std::initializer_list<float> values)
{
    Vector<float> vector;
    for (float value : values)
        vector.append(value);
    return vector;
}

/// Shows how much the shared storage could hold.
struct Opened : Vector<unsigned int>
{
    std::size_t capacity() const { return impl().capacity(); }
};

} // namespace

void VectorTest::it_begins_empty_or_filled_with_zeros()
{
    const Vector<float> empty;
    QVERIFY(empty.isEmpty());
    QCOMPARE(empty.size(), 0U);
    const Vector<float> filled(18);
    QVERIFY(!filled.isEmpty());
    QCOMPARE(filled.size(), 18U);
    for (int i = 0; i < 18; ++i)
        QCOMPARE(filled[i], 0.0F);
    const Vector<unsigned int> none(0);
    QVERIFY(none.isEmpty());
}

void VectorTest::resize_cuts_or_fills_up_with_zeros()
{
    Vector<float> vector = numbers({1, 2, 3});
    vector.resize(5);
    QCOMPARE(vector, numbers({1, 2, 3, 0, 0}));
    vector.resize(1);
    QCOMPARE(vector, numbers({1}));
    vector.resize(2); // the old elements are gone
    QCOMPARE(vector, numbers({1, 0}));
}

void VectorTest::writing_to_a_copy_leaves_the_original_alone()
{
    const Vector<float> original = numbers({1, 2, 3});
    Vector<float> copy = original;
    copy[1] = 7;
    QCOMPARE(original, numbers({1, 2, 3}));
    QCOMPARE(copy, numbers({1, 7, 3}));

    Vector<float> assigned;
    assigned = original;
    assigned[0] = 9;
    QCOMPARE(original[0], 1.0F);
    Vector<float> writable = original;
    const Vector<float> second = writable;
    writable[0] = 5; // the other way round: the original of a copy changes
    QCOMPARE(second[0], 1.0F);
}

void VectorTest::every_way_of_writing_detaches()
{
    const Vector<float> original = numbers({1, 2});
    for (int way = 0; way < 4; ++way) {
        Vector<float> copy = original;
        switch (way) {
        case 0:
            copy[0] = 3;
            break;
        case 1:
            copy.append(3);
            break;
        case 2:
            copy.resize(1);
            break;
        default:
            copy.detach();
        }
        QVERIFY2(copy.data() != original.data(), QByteArray::number(way));
        QCOMPARE(original, numbers({1, 2}));
    }
}

void VectorTest::reading_shares_the_storage()
{
    const Vector<float> original = numbers({1, 2});
    const Vector<float> copy = original; // NOLINT(performance-unnecessary-copy-initialization)
    QCOMPARE(copy[1], 2.0F);
    QCOMPARE(copy.size(), 2U);
    QCOMPARE(copy, original);
    QCOMPARE(copy.data(), original.data());
}

void VectorTest::a_detached_copy_holds_exactly_its_elements()
{
    Opened original;
    for (unsigned int i = 0; i < 5; ++i)
        original.append(i);
    original.resize(3);
    QVERIFY(original.capacity() > 3); // as the vector grew
    Opened copy = original;
    QCOMPARE(copy.capacity(), original.capacity());
    copy.detach();
    QCOMPARE(copy.capacity(), std::size_t(3));
    QVERIFY(original.capacity() > 3);
}

void VectorTest::a_vector_with_its_storage_to_itself_keeps_it()
{
    Vector<float> vector = numbers({1, 2});
    const float* const before = vector.data();
    vector.detach();
    vector[0] = 4;
    QCOMPARE(vector.data(), before);
    {
        const Vector<float> copy = vector; // NOLINT(performance-unnecessary-copy-initialization)
        QCOMPARE(copy.data(), before);
    }
    vector[1] = 5; // the copy is gone
    QCOMPARE(vector.data(), before);
}

void VectorTest::a_vector_can_append_its_own_element()
{
    Vector<float> vector = numbers({1, 2});
    for (int i = 0; i < 100; ++i) {
        const Vector<float> shared = vector; // the storage is left on every append
        const Vector<float>& constant = vector;
        vector.append(constant[0]);
        vector.append(vector[0]);
    }
    QCOMPARE(vector.size(), 202U);
    for (int i = 2; i < 202; ++i)
        QCOMPARE(vector[i], 1.0F);
}

void VectorTest::equality_compares_the_elements()
{
    QVERIFY(numbers({1, 2}) == numbers({1, 2}));
    QVERIFY(numbers({1, 2}) != numbers({1, 3}));
    QVERIFY(numbers({1, 2}) != numbers({1}));
    QVERIFY(Vector<float>() == Vector<float>());
    const Vector<float> notANumber = numbers({std::numeric_limits<float>::quiet_NaN()});
    const Vector<float> copy = notANumber; // NOLINT(performance-unnecessary-copy-initialization)
    QVERIFY(copy != notANumber);
}

TEST_WITHOUT_WINDOWS(VectorTest)

} // namespace vector_test

#include "VectorTest.moc"
