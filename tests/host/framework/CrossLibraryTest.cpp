// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "Throws.h"
#include "VariantLibrary.h"
#include "VariantMetaType.h"
#include "olm/core/Vector.h"

#include <QString>
#include <QtTest>

#include <dlfcn.h>

#include <string>

namespace cross_library_test {

using olm::core::StringList;
using olm::core::Vector;
using olm::core::variant::Variant;

/// A value made in one shared library is recognised in another and in the host, although each
/// has hidden type information of its own.
class CrossLibraryTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void the_two_libraries_are_strangers();
    void every_type_is_read_in_another_library_data();
    void every_type_is_read_in_another_library();
    void every_type_is_read_in_the_host();
    void the_conversions_work_on_a_value_of_a_library();
    void the_value_outlives_its_maker();
    void cleanupTestCase();

private:
    void* m_maker = nullptr;
    void* m_reader = nullptr;

    Variant made(ValueKind kind) const
    {
        Variant value;
        reinterpret_cast<MakeFunction>(dlsym(m_maker, "makeVariant"))(kind, &value);
        return value;
    }
};

void CrossLibraryTest::initTestCase()
{
    m_maker = dlopen(MAKER_FILE, RTLD_NOW | RTLD_LOCAL);
    QVERIFY2(m_maker, dlerror());
    m_reader = dlopen(READER_FILE, RTLD_NOW | RTLD_LOCAL);
    QVERIFY2(m_reader, dlerror());
    QVERIFY(dlsym(m_maker, "makeVariant"));
    QVERIFY(dlsym(m_reader, "readVariant"));
    QVERIFY(dlsym(m_reader, "typeAddress"));
}

void CrossLibraryTest::the_two_libraries_are_strangers()
{
    // Without this the test would show nothing: comparing addresses would do then.
    const auto address = [](void* library) {
        return reinterpret_cast<TypeAddressFunction>(dlsym(library, "typeAddress"))();
    };
    QVERIFY(address(m_maker) != address(m_reader));
    QVERIFY(address(m_maker) != static_cast<const void*>(&typeid(Vector<float>)));
}

void CrossLibraryTest::every_type_is_read_in_another_library_data()
{
    QTest::addColumn<int>("kind");
    const char* const names[] = {
        "bool",          "int",    "text", "role", "vector of float", "vector of unsigned int",
        "list of texts", "QString"};
    for (int kind = 0; kind < 8; ++kind)
        QTest::newRow(names[kind]) << kind;
}

void CrossLibraryTest::every_type_is_read_in_another_library()
{
    QFETCH(int, kind);
    const auto read = reinterpret_cast<ReadFunction>(dlsym(m_reader, "readVariant"));
    const Variant value = made(static_cast<ValueKind>(kind));
    for (int asKind = 0; asKind < 8; ++asKind) {
        // Each type is read as itself and as nothing else.
        QCOMPARE(read(static_cast<ValueKind>(asKind), &value), asKind == kind);
    }
}

void CrossLibraryTest::every_type_is_read_in_the_host()
{
    bool ok = false;
    QCOMPARE(made(ValueKind::Role).get<SimulationDirectExecRole>(&ok), SomeRole);
    QVERIFY(ok);
    QCOMPARE(made(ValueKind::Bool).get<bool>(&ok), true);
    QVERIFY(ok);
    QCOMPARE(made(ValueKind::Int).get<int>(&ok), -17);
    QVERIFY(ok);
    QCOMPARE(made(ValueKind::Text).get<std::string>(&ok), std::string("a text"));
    QVERIFY(ok);
    Vector<float> floats = made(ValueKind::Floats).get<Vector<float>>(&ok);
    QVERIFY(ok);
    QCOMPARE(floats.size(), 18U);
    QCOMPARE(floats[17], 1.5F);
    Vector<unsigned int> numbers = made(ValueKind::UnsignedInts).get<Vector<unsigned int>>(&ok);
    QVERIFY(ok);
    QCOMPARE(numbers[1], 480U);
    QCOMPARE(made(ValueKind::Texts).get<StringList>(&ok).size(), 2U);
    QVERIFY(ok);
    QCOMPARE(made(ValueKind::QtText).get<QString>(&ok), QString("a Qt text"));
    QVERIFY(ok);
    QCOMPARE(boost::any_cast<QString>(made(ValueKind::QtText).any()), QString("a Qt text"));
    QCOMPARE(boost::any_cast<int>(made(ValueKind::Int).any()), -17);
    QVERIFY(throws<boost::bad_any_cast>(
        [&] { boost::any_cast<QString>(made(ValueKind::Text).any()); }));
}

void CrossLibraryTest::the_conversions_work_on_a_value_of_a_library()
{
    QCOMPARE(made(ValueKind::Int).toInt(), -17);
    QCOMPARE(made(ValueKind::Bool).toBool(), true);
    QCOMPARE(made(ValueKind::Text).toString(), std::string("a text"));
    QCOMPARE(made(ValueKind::QtText).toString(), std::string("a Qt text"));
    QCOMPARE(made(ValueKind::Texts).toStringList().size(), 2U);
    bool ok = true;
    QCOMPARE(made(ValueKind::Role).toInt(&ok), 0); // a role is no number, but a type of its own
    QVERIFY(!ok);
    QVERIFY(made(ValueKind::Floats).toString(&ok).empty());
    QVERIFY(!ok);
}

void CrossLibraryTest::the_value_outlives_its_maker()
{
    // Not unloaded: the held value's functions are the maker's. But the maker may forget it.
    const Variant first = made(ValueKind::Floats);
    const Vector<float> floats = first.get<Vector<float>>();
    Vector<float> copy = floats;
    copy[0] = 3;
    QCOMPARE(first.get<Vector<float>>(), floats);
    QVERIFY(copy != floats);
}

void CrossLibraryTest::cleanupTestCase()
{
    QCOMPARE(dlclose(m_reader), 0);
    QCOMPARE(dlclose(m_maker), 0);
}

TEST_WITHOUT_WINDOWS(CrossLibraryTest)

} // namespace cross_library_test

#include "CrossLibraryTest.moc"
