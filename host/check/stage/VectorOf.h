// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_VECTOROF_H
#define HOST_CHECK_STAGE_VECTOROF_H

#include "olm/core/Vector.h"

#include <initializer_list>

namespace host::check::stage {

template <class T>
olm::core::Vector<T> vectorOf(std::initializer_list<T> elements)
{
    olm::core::Vector<T> vector;
    for (const T& element : elements)
        vector.append(element);
    return vector;
}

} // namespace host::check::stage

#endif
