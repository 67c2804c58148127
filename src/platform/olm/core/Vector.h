// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef OLM_CORE_VECTOR_H
#define OLM_CORE_VECTOR_H

#include "olm/core/SharedBase.h"

#include <vector>

namespace olm {
namespace core {

/// The storage that vectors share.
template <class T>
class VectorImpl : public std::vector<T>
{
public:
    VectorImpl() {}

    explicit VectorImpl(unsigned int size) : std::vector<T>(size) {}
};

/// A copy-on-write vector, the value of a device variable with several numbers.
template <class T>
class Vector : public SharedBase<VectorImpl<T>>
{
public:
    Vector() {}

    /// @p size elements, all zero.
    explicit Vector(unsigned int size) : SharedBase<VectorImpl<T>>(VectorImpl<T>(size)) {}

    Vector(const Vector&) = default;
    Vector& operator=(const Vector&) = default;

    virtual ~Vector() {}

    unsigned int size() const { return static_cast<unsigned int>(this->impl().size()); }

    bool isEmpty() const { return this->impl().empty(); }

    /// Cuts the vector or fills it up with zeros.
    void resize(unsigned int size)
    {
        this->detach();
        this->impl().resize(size);
    }

    void append(const T& value)
    {
        this->detach();
        this->impl().push_back(value);
    }

    /// Element @p i, for writing; the index is not checked.
    T& operator[](int i)
    {
        this->detach();
        return this->impl()[static_cast<std::size_t>(i)];
    }

    /// Element @p i, for reading; the index is not checked.
    const T& operator[](int i) const { return this->impl()[static_cast<std::size_t>(i)]; }

    /// The elements in order; valid until the vector is changed or destroyed.
    const T* data() const { return this->impl().data(); }

    /// Elements are compared even where the storage is shared: a NaN equals nothing.
    bool operator==(const Vector& other) const
    {
        return static_cast<const std::vector<T>&>(this->impl()) == other.impl();
    }

    bool operator!=(const Vector& other) const { return !(*this == other); }
};

} // namespace core
} // namespace olm

#endif
