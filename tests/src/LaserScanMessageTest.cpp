// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "olm/core/LaserScanMessage.h"

#include "TestCase.h"
#include "Throws.h"
#include "olm/core/variant/Variant.h"

#include <QByteArray>
#include <QtTest>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace laser_scan_message_test {

using olm::core::LaserScanMessage;
using olm::core::Vector;
using olm::core::variant::Variant;

namespace {

const float notANumber = std::numeric_limits<float>::quiet_NaN();
const float infinity = std::numeric_limits<float>::infinity();

Vector<float> numbers(unsigned int count, float first = 1)
{
    Vector<float> vector(count);
    for (int i = 0; i < static_cast<int>(count); ++i)
        vector[i] = first + static_cast<float>(i);
    return vector;
}

LaserScanMessage example()
{
    LaserScanMessage scan;
    scan.sequenceNumber = 0x01020304;
    scan.timeStamp = 0xfffefdfc;
    scan.frameId = std::string("la\0\xe9r", 5);
    scan.minimumAngle = -1.5F;
    scan.maximumAngle = 1.25F;
    scan.angleIncrement = 0.0078125F;
    scan.timeIncrement = 1e-5F;
    scan.scanTime = 0.1F;
    scan.minimumRange = 0.02F;
    scan.maximumRange = 5.6F;
    scan.ranges = numbers(3, 10);
    return scan;
}

/// In a buffer of exactly the announced size, so that the sanitizers see a byte too many.
QByteArray encoded(const LaserScanMessage& scan)
{
    const unsigned int size = scan.encodedDataSize();
    const std::unique_ptr<char[]> buffer(new char[size]);
    std::memset(buffer.get(), 0x55, size);
    if (scan.encode(buffer.get()) != size)
        return {};
    return {buffer.get(), static_cast<int>(size)};
}

QByteArray bytesOf(const Vector<float>& vector)
{
    return {reinterpret_cast<const char*>(vector.data()), static_cast<int>(4 * vector.size())};
}

template <class T>
T at(const QByteArray& bytes, int offset)
{
    T value;
    std::memcpy(&value, bytes.constData() + offset, sizeof value);
    return value;
}

using Change = void (*)(LaserScanMessage&);

/// One change to every field in turn, with a name for it.
const std::pair<const char*, Change> changes[] = {
    {"sequence number", [](LaserScanMessage& scan) { ++scan.sequenceNumber; }},
    {"time stamp", [](LaserScanMessage& scan) { ++scan.timeStamp; }},
    {"frame, last byte", [](LaserScanMessage& scan) { scan.frameId[4] = 'R'; }},
    {"frame, a zero byte more", [](LaserScanMessage& scan) { scan.frameId += '\0'; }},
    {"minimum angle", [](LaserScanMessage& scan) { scan.minimumAngle += 1; }},
    {"maximum angle", [](LaserScanMessage& scan) { scan.maximumAngle += 1; }},
    {"angle increment", [](LaserScanMessage& scan) { scan.angleIncrement += 1; }},
    {"time increment", [](LaserScanMessage& scan) { scan.timeIncrement += 1; }},
    {"scan time, by the last bit",
     [](LaserScanMessage& scan) { scan.scanTime = std::nextafter(scan.scanTime, 1.0F); }},
    {"minimum range", [](LaserScanMessage& scan) { scan.minimumRange += 1; }},
    {"maximum range", [](LaserScanMessage& scan) { scan.maximumRange += 1; }},
    {"last range", [](LaserScanMessage& scan) { scan.ranges[2] += 1; }},
    {"one range more", [](LaserScanMessage& scan) { scan.ranges.append(0); }},
    {"one range less", [](LaserScanMessage& scan) { scan.ranges.resize(2); }},
    {"one intensity more", [](LaserScanMessage& scan) { scan.intensities.append(0); }},
};

using Field = float& (*)(LaserScanMessage&);

const std::pair<const char*, Field> floats[] = {
    {"minimum angle", [](LaserScanMessage& scan) -> float& { return scan.minimumAngle; }},
    {"maximum angle", [](LaserScanMessage& scan) -> float& { return scan.maximumAngle; }},
    {"angle increment", [](LaserScanMessage& scan) -> float& { return scan.angleIncrement; }},
    {"time increment", [](LaserScanMessage& scan) -> float& { return scan.timeIncrement; }},
    {"scan time", [](LaserScanMessage& scan) -> float& { return scan.scanTime; }},
    {"minimum range", [](LaserScanMessage& scan) -> float& { return scan.minimumRange; }},
    {"maximum range", [](LaserScanMessage& scan) -> float& { return scan.maximumRange; }},
    {"a range", [](LaserScanMessage& scan) -> float& { return scan.ranges[1]; }},
    {"an intensity", [](LaserScanMessage& scan) -> float& { return scan.intensities[0]; }},
};

/// The place of a virtual operation in the table: what a pointer to it holds, plus one.
template <class Member>
std::size_t slotOf(Member member)
{
    std::size_t words[2];
    static_assert(sizeof member == sizeof words, "the C++ ABI of Linux");
    std::memcpy(words, &member, sizeof words);
    return words[0] % sizeof(void*) == 1 ? words[0] / sizeof(void*) : SIZE_MAX;
}

} // namespace

class LaserScanMessageTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_lies_in_memory_as_plugins_were_built_to_read_it();
    void a_new_message_is_empty();
    void a_default_message_encodes_to_41_zero_bytes();
    void every_field_is_encoded_at_its_place();
    void ranges_and_intensities_follow_each_other_in_full();
    void the_length_of_a_long_frame_is_narrowed_and_its_bytes_are_not();
    void the_counts_of_many_measurements_are_narrowed_and_the_data_is_not();
    void no_float_changes_its_bits_when_it_is_encoded();
    void encode_writes_nothing_beyond_the_announced_size();
    void encode_answers_the_size_that_the_virtual_operation_gives();
    void equal_messages_compare_equal();
    void one_different_field_makes_messages_unequal_data();
    void one_different_field_makes_messages_unequal();
    void a_nan_makes_a_message_unequal_to_its_own_copy_data();
    void a_nan_makes_a_message_unequal_to_its_own_copy();
    void zero_equals_negative_zero_data();
    void zero_equals_negative_zero();
    void infinities_equal_themselves();
    void equality_is_the_negation_of_the_virtual_inequality();
    void copies_share_their_measurements_until_one_changes();
    void a_variant_gives_the_message_back_and_refuses_another_type();
    void the_virtual_operations_have_their_slots();
};

// Of the types that no exported function uses the layout is compared nowhere else.
void LaserScanMessageTest::it_lies_in_memory_as_plugins_were_built_to_read_it()
{
    const LaserScanMessage scan;
    const auto placeOf = [&scan](const auto& member) {
        return reinterpret_cast<const char*>(&member) - reinterpret_cast<const char*>(&scan);
    };
    QCOMPARE(sizeof(Vector<float>), std::size_t{24});
    QCOMPARE(sizeof(LaserScanMessage), std::size_t{128});
    QCOMPARE(placeOf(scan.sequenceNumber), std::ptrdiff_t{8});
    QCOMPARE(placeOf(scan.timeStamp), std::ptrdiff_t{12});
    QCOMPARE(placeOf(scan.frameId), std::ptrdiff_t{16});
    QCOMPARE(placeOf(scan.minimumAngle), std::ptrdiff_t{48});
    QCOMPARE(placeOf(scan.maximumAngle), std::ptrdiff_t{52});
    QCOMPARE(placeOf(scan.angleIncrement), std::ptrdiff_t{56});
    QCOMPARE(placeOf(scan.timeIncrement), std::ptrdiff_t{60});
    QCOMPARE(placeOf(scan.scanTime), std::ptrdiff_t{64});
    QCOMPARE(placeOf(scan.minimumRange), std::ptrdiff_t{68});
    QCOMPARE(placeOf(scan.maximumRange), std::ptrdiff_t{72});
    QCOMPARE(placeOf(scan.ranges), std::ptrdiff_t{80});
    QCOMPARE(placeOf(scan.intensities), std::ptrdiff_t{104});
}

void LaserScanMessageTest::a_new_message_is_empty()
{
    const LaserScanMessage scan;
    QCOMPARE(scan.sequenceNumber, 0U);
    QCOMPARE(scan.timeStamp, 0U);
    QVERIFY(scan.frameId.empty());
    LaserScanMessage copy(scan);
    copy.intensities.resize(1);
    copy.ranges.resize(2);
    for (const auto& [name, field] : floats)
        QVERIFY2(field(copy) == 0 && !std::signbit(field(copy)), name);
    QVERIFY(scan.ranges.isEmpty());
    QVERIFY(scan.intensities.isEmpty());
}

void LaserScanMessageTest::a_default_message_encodes_to_41_zero_bytes()
{
    QCOMPARE(LaserScanMessage().encodedDataSize(), 41U);
    QCOMPARE(encoded(LaserScanMessage()), QByteArray(41, '\0'));
}

void LaserScanMessageTest::every_field_is_encoded_at_its_place()
{
    const QByteArray bytes = encoded(example());
    QCOMPARE(bytes.size(), 58);
    QCOMPARE(at<std::uint32_t>(bytes, 0), 0x01020304U);
    QCOMPARE(at<std::uint32_t>(bytes, 4), 0xfffefdfcU);
    QCOMPARE(at<std::uint8_t>(bytes, 8), std::uint8_t(5));
    QCOMPARE(bytes.mid(9, 5), QByteArray("la\0\xe9r", 5));
    QCOMPARE(at<float>(bytes, 14), -1.5F);
    QCOMPARE(at<float>(bytes, 18), 1.25F);
    QCOMPARE(at<float>(bytes, 22), 0.0078125F);
    QCOMPARE(at<float>(bytes, 26), 1e-5F);
    QCOMPARE(at<float>(bytes, 30), 0.1F);
    QCOMPARE(at<float>(bytes, 34), 0.02F);
    QCOMPARE(at<float>(bytes, 38), 5.6F);
    QCOMPARE(at<std::uint16_t>(bytes, 42), std::uint16_t(3));
    QCOMPARE(at<std::uint16_t>(bytes, 44), std::uint16_t(0));
    QCOMPARE(at<float>(bytes, 46), 10.0F);
    QCOMPARE(at<float>(bytes, 50), 11.0F);
    QCOMPARE(at<float>(bytes, 54), 12.0F);
}

void LaserScanMessageTest::ranges_and_intensities_follow_each_other_in_full()
{
    LaserScanMessage scan;
    scan.ranges = numbers(683);
    scan.intensities = numbers(2, 1000);
    const QByteArray bytes = encoded(scan);
    QCOMPARE(bytes.size(), 41 + 4 * 685);
    QCOMPARE(at<std::uint16_t>(bytes, 37), std::uint16_t(683));
    QCOMPARE(at<std::uint16_t>(bytes, 39), std::uint16_t(2));
    for (int i = 0; i < 683; ++i)
        QCOMPARE(at<float>(bytes, 41 + 4 * i), static_cast<float>(i + 1));
    QCOMPARE(at<float>(bytes, 41 + 4 * 683), 1000.0F);
    QCOMPARE(at<float>(bytes, 41 + 4 * 684), 1001.0F);

    scan.ranges = Vector<float>();
    QCOMPARE(at<float>(encoded(scan), 41), 1000.0F);
}

void LaserScanMessageTest::the_length_of_a_long_frame_is_narrowed_and_its_bytes_are_not()
{
    LaserScanMessage scan;
    scan.frameId.assign(300, 'x');
    scan.frameId[299] = 'y';
    scan.minimumAngle = 1;
    const QByteArray bytes = encoded(scan);
    QCOMPARE(bytes.size(), 341);
    QCOMPARE(at<std::uint8_t>(bytes, 8), std::uint8_t(44));
    QCOMPARE(bytes.mid(9, 300), QByteArray(299, 'x') + 'y');
    QCOMPARE(at<float>(bytes, 309), 1.0F);

    scan.frameId.assign(256, 'x');
    QCOMPARE(at<std::uint8_t>(encoded(scan), 8), std::uint8_t(0));
    scan.frameId.assign(255, 'x');
    QCOMPARE(at<std::uint8_t>(encoded(scan), 8), std::uint8_t(255));
}

void LaserScanMessageTest::the_counts_of_many_measurements_are_narrowed_and_the_data_is_not()
{
    LaserScanMessage scan;
    scan.ranges = numbers(70000);
    scan.intensities = numbers(65536, 0.5F);
    const QByteArray bytes = encoded(scan);
    QCOMPARE(bytes.size(), 41 + 4 * (70000 + 65536));
    QCOMPARE(at<std::uint16_t>(bytes, 37), std::uint16_t(4464));
    QCOMPARE(at<std::uint16_t>(bytes, 39), std::uint16_t(0));
    QCOMPARE(bytes.mid(41, 280000), bytesOf(scan.ranges));
    QCOMPARE(bytes.mid(280041), bytesOf(scan.intensities));
}

void LaserScanMessageTest::no_float_changes_its_bits_when_it_is_encoded()
{
    LaserScanMessage scan;
    for (const float value :
         {notANumber, -notANumber, infinity, -0.0F, std::numeric_limits<float>::denorm_min()})
        scan.ranges.append(value);
    const std::uint32_t signallingNan = 0x7fa00001; // arithmetic would set another bit of it
    scan.ranges.append(0);
    std::memcpy(&scan.ranges[5], &signallingNan, 4);
    QCOMPARE(encoded(scan).mid(41), bytesOf(scan.ranges));
}

void LaserScanMessageTest::encode_writes_nothing_beyond_the_announced_size()
{
    char buffer[62];
    std::memset(buffer, 0x55, sizeof buffer);
    QCOMPARE(example().encode(buffer + 1), 58U);
    QCOMPARE(QByteArray(buffer + 1, 58), encoded(example()));
    QCOMPARE(buffer[0], '\x55');
    QCOMPARE(QByteArray(buffer + 59, 3), QByteArray(3, '\x55'));
}

void LaserScanMessageTest::encode_answers_the_size_that_the_virtual_operation_gives()
{
    struct Announcing : LaserScanMessage
    {
        unsigned int encodedDataSize() const override { return 7; }
    };
    char buffer[41];
    QCOMPARE(Announcing().encode(buffer), 7U);
    QCOMPARE(QByteArray(buffer, 41), QByteArray(41, '\0'));
}

void LaserScanMessageTest::equal_messages_compare_equal()
{
    QVERIFY(LaserScanMessage() == LaserScanMessage());
    QVERIFY(!(LaserScanMessage() != LaserScanMessage()));
    QVERIFY(example() == example()); // built twice: nothing is shared
    QVERIFY(!(example() != example()));
}

void LaserScanMessageTest::one_different_field_makes_messages_unequal_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < static_cast<int>(std::size(changes)); ++i)
        QTest::newRow(changes[i].first) << i;
}

void LaserScanMessageTest::one_different_field_makes_messages_unequal()
{
    QFETCH(int, index);
    LaserScanMessage changed = example();
    changes[index].second(changed);
    QVERIFY(changed != example());
    QVERIFY(example() != changed);
    QVERIFY(!(changed == example()));
    QVERIFY(!(example() == changed));
}

void LaserScanMessageTest::a_nan_makes_a_message_unequal_to_its_own_copy_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < static_cast<int>(std::size(floats)); ++i)
        QTest::newRow(floats[i].first) << i;
}

void LaserScanMessageTest::a_nan_makes_a_message_unequal_to_its_own_copy()
{
    QFETCH(int, index);
    LaserScanMessage scan = example();
    scan.intensities.resize(1);
    floats[index].second(scan) = notANumber;
    const LaserScanMessage copy(scan);
    QVERIFY(scan != copy);
    QVERIFY(!(scan == copy));
    const LaserScanMessage& itself = scan;
    QVERIFY(scan != itself);
}

void LaserScanMessageTest::zero_equals_negative_zero_data()
{
    a_nan_makes_a_message_unequal_to_its_own_copy_data();
}

void LaserScanMessageTest::zero_equals_negative_zero()
{
    QFETCH(int, index);
    LaserScanMessage scan = example();
    scan.intensities.resize(1);
    floats[index].second(scan) = 0.0F;
    LaserScanMessage other(scan);
    floats[index].second(other) = -0.0F;
    QVERIFY(scan == other);
    QVERIFY(!(scan != other));
}

void LaserScanMessageTest::infinities_equal_themselves()
{
    LaserScanMessage scan;
    scan.maximumRange = infinity;
    scan.ranges.append(-infinity);
    LaserScanMessage other = scan;
    other.ranges[0] = -infinity; // detached
    QVERIFY(scan == other);
    other.ranges[0] = infinity;
    QVERIFY(scan != other);
}

void LaserScanMessageTest::equality_is_the_negation_of_the_virtual_inequality()
{
    struct AlwaysDifferent : LaserScanMessage
    {
        bool operator!=(const LaserScanMessage&) const override { return true; }
    };
    const AlwaysDifferent different;
    const LaserScanMessage& scan = different;
    QVERIFY(!(scan == LaserScanMessage()));
    QVERIFY(LaserScanMessage() == scan);
}

void LaserScanMessageTest::copies_share_their_measurements_until_one_changes()
{
    LaserScanMessage scan = example();
    scan.intensities = numbers(2);
    LaserScanMessage copy(scan);
    LaserScanMessage assigned;
    assigned = scan;
    QCOMPARE(copy.ranges.data(), scan.ranges.data());
    QCOMPARE(copy.intensities.data(), scan.intensities.data());
    QCOMPARE(assigned.ranges.data(), scan.ranges.data());
    QVERIFY(copy == scan && assigned == scan);

    copy.ranges[0] = 99;
    const LaserScanMessage& original = scan;
    QCOMPARE(original.ranges[0], 10.0F);
    QCOMPARE(assigned.ranges.data(), scan.ranges.data());
}

void LaserScanMessageTest::a_variant_gives_the_message_back_and_refuses_another_type()
{
    const Variant value(example());
    QVERIFY(boost::any_cast<LaserScanMessage>(value.any()) == example());
    QVERIFY(value.get<LaserScanMessage>() == example());

    const Variant text(std::string("scan"));
    QVERIFY(
        throws<boost::bad_any_cast>([&text] { boost::any_cast<LaserScanMessage>(text.any()); }));
    bool ok = true;
    QVERIFY(text.get<LaserScanMessage>(&ok) == LaserScanMessage());
    QVERIFY(!ok);
    ok = true;
    QVERIFY(Variant().get<LaserScanMessage>(&ok) == LaserScanMessage());
    QVERIFY(!ok);
}

void LaserScanMessageTest::the_virtual_operations_have_their_slots()
{
    static_assert(std::has_virtual_destructor<LaserScanMessage>::value, "");
    // The destructor has the first two.
    QCOMPARE(slotOf(&LaserScanMessage::encodedDataSize), std::size_t(2));
    QCOMPARE(slotOf(&LaserScanMessage::encode), std::size_t(3));
    QCOMPARE(slotOf(&LaserScanMessage::operator==), std::size_t(4));
    QCOMPARE(slotOf(&LaserScanMessage::operator!=), std::size_t(5));
}

TEST_WITHOUT_WINDOWS(LaserScanMessageTest)

} // namespace laser_scan_message_test

#include "LaserScanMessageTest.moc"
