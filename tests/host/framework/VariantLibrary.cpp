// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "VariantLibrary.h"

#include "olm/core/StringList.h"
#include "olm/core/Vector.h"

#include <QString>

#include <string>

using olm::core::StringList;
using olm::core::Vector;
using olm::core::variant::Variant;

namespace {

Vector<float> floats()
{
    Vector<float> vector(18);
    vector[17] = 1.5F;
    return vector;
}

Vector<unsigned int> numbers()
{
    Vector<unsigned int> vector(2);
    vector[0] = 640;
    vector[1] = 480;
    return vector;
}

StringList texts()
{
    StringList list;
    list.append("one");
    list.append("two");
    return list;
}

template <class T>
bool holds(const Variant& value, const T& expected)
{
    bool ok = false;
    const T read = value.get<T>(&ok);
    return ok && read == expected;
}

} // namespace

void makeVariant(ValueKind kind, Variant* value)
{
    switch (kind) {
    case ValueKind::Bool:
        *value = true;
        break;
    case ValueKind::Int:
        *value = -17;
        break;
    case ValueKind::Text:
        *value = std::string("a text");
        break;
    case ValueKind::Role:
        *value = SomeRole;
        break;
    case ValueKind::Floats:
        *value = floats();
        break;
    case ValueKind::UnsignedInts:
        *value = numbers();
        break;
    case ValueKind::Texts:
        *value = texts();
        break;
    case ValueKind::QtText:
        *value = QString("a Qt text");
        break;
    }
}

bool readVariant(ValueKind kind, const Variant* value)
{
    switch (kind) {
    case ValueKind::Bool:
        return holds(*value, true);
    case ValueKind::Int:
        return holds(*value, -17);
    case ValueKind::Text:
        return holds(*value, std::string("a text"));
    case ValueKind::Role:
        return holds(*value, SomeRole);
    case ValueKind::Floats:
        return holds(*value, floats());
    case ValueKind::UnsignedInts:
        return holds(*value, numbers());
    case ValueKind::Texts:
        return holds(*value, texts());
    case ValueKind::QtText:
        return holds(*value, QString("a Qt text")) &&
               boost::any_cast<QString>(value->any()) == "a Qt text";
    }
    return false;
}

const void* typeAddress()
{
    return &typeid(Vector<float>);
}
