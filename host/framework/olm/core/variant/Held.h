// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef OLM_CORE_VARIANT_HELD_H
#define OLM_CORE_VARIANT_HELD_H

#include <boost/any.hpp>

#include <cstring>
#include <typeinfo>

namespace olm {
namespace core {
namespace variant {

/// What @p any holds, null where that is of another type. By name like Variant::get(), but
/// without copying the value, and quick where there is none.
template <class T>
const T* held(const boost::any& any)
{
    return std::strcmp(any.type().name(), typeid(T).name()) == 0 ? boost::unsafe_any_cast<T>(&any)
                                                                 : nullptr;
}

} // namespace variant
} // namespace core
} // namespace olm

#endif
