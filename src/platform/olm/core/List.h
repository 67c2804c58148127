// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef OLM_CORE_LIST_H
#define OLM_CORE_LIST_H

#include "olm/core/SharedBase.h"

#include <list>

namespace olm {
namespace core {

/// The storage that lists share.
template <class T>
class ListImpl : public std::list<T>
{
};

/// A copy-on-write list.
template <class T>
class List : public SharedBase<ListImpl<T>>
{
public:
    typedef typename std::list<T>::const_iterator const_iterator;

    List() {}

    List(const List&) = default;
    List& operator=(const List&) = default;

    virtual ~List() {}

    unsigned int size() const { return static_cast<unsigned int>(this->impl().size()); }

    bool isEmpty() const { return this->impl().empty(); }

    void append(const T& value)
    {
        this->detach();
        this->impl().push_back(value);
    }

    const_iterator begin() const { return this->impl().begin(); }

    const_iterator end() const { return this->impl().end(); }

    bool operator==(const List& other) const
    {
        return static_cast<const std::list<T>&>(this->impl()) == other.impl();
    }

    bool operator!=(const List& other) const { return !(*this == other); }
};

} // namespace core
} // namespace olm

#endif
