// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/trace/ValueSize.h"

#include "olm/core/LaserScanMessage.h"
#include "olm/core/StringList.h"
#include "olm/core/Vector.h"
#include "olm/core/variant/Held.h"

#include <QString>

#include <string>

namespace host::device::trace {

using olm::core::LaserScanMessage;
using olm::core::StringList;
using olm::core::Vector;
using olm::core::variant::held;

std::size_t sizeInMemory(const olm::core::variant::Variant& value)
{
    constexpr std::size_t frame = 64; // around any value
    const boost::any& any = value.any();
    std::size_t size = frame;
    if (const auto* bytes = held<std::string>(any))
        size += bytes->size();
    else if (const auto* text = held<QString>(any))
        size += static_cast<std::size_t>(text->size()) * sizeof(QChar);
    else if (const auto* floats = held<Vector<float>>(any))
        size += floats->size() * sizeof(float);
    else if (const auto* numbers = held<Vector<unsigned int>>(any))
        size += numbers->size() * sizeof(unsigned int);
    else if (const auto* scan = held<LaserScanMessage>(any))
        size += scan->encodedDataSize();
    else if (const auto* list = held<StringList>(any))
        for (const std::string& text : *list)
            size += sizeof(std::string) + text.size();
    return size;
}

} // namespace host::device::trace
