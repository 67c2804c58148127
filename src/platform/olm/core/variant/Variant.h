// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef OLM_CORE_VARIANT_VARIANT_H
#define OLM_CORE_VARIANT_VARIANT_H

#include "olm/core/Export.h"
#include "olm/core/StringList.h"

#ifndef Q_MOC_RUN // Qt 4's moc cannot read Boost
#include <boost/any.hpp>
#include <boost/shared_ptr.hpp>
#endif

#include <cstring>
#include <string>
#include <typeinfo>

namespace olm {
namespace core {
namespace variant {

/// The source of identity numbers. Not locked: Variants are made on the GUI thread only.
struct OLM_EXPORT Id
{
    /// The number that the next Variant gets.
    static unsigned int g_id;
};

/// The value that crosses the boundary between host and plugin: a shared holder of any value,
/// or of none. Reading never throws; a value of another type reads as the default of the type
/// that was asked for, and the optional @p ok says so.
class OLM_EXPORT Variant
{
public:
    /// Empty.
    Variant() : m_id(Id::g_id++) {}

    /// Holds a copy of @p value. Implicit, so that a plain value can be handed to the host.
    template <class T>
    Variant(const T& value) : m_value(new boost::any(value)),
                              m_id(Id::g_id++)
    {
    }

    /// True where there is no value.
    bool isEmpty() const { return !m_value || m_value->empty(); }

    /// The held value, an empty `boost::any` where there is none.
    const boost::any& any() const;

    /// Copies keep the number, every other construction draws a new one.
    unsigned int id() const { return m_id; }

    /// The held value if its type is exactly @p T, else a default @p T.
    template <class T>
    T get(bool* ok = nullptr) const;

    /// Number and text conversions: integers, floating-point numbers, `bool` and texts become
    /// each other where the value fits; anything else gives 0, false or empty.
    int toInt(bool* ok = nullptr) const;
    unsigned int toUInt(bool* ok = nullptr) const;
    bool toBool(bool* ok = nullptr) const;
    std::string toString(bool* ok = nullptr) const;
    /// A list of texts as it is; a single text is a list of one.
    StringList toStringList(bool* ok = nullptr) const;

private:
    boost::shared_ptr<boost::any> m_value;
    unsigned int m_id;
};

template <class T>
T Variant::get(bool* ok) const
{
    if (ok)
        *ok = true;
    if (m_value) {
        try {
            // By name, not by address: a value made in one shared library is recognised in
            // another that has its own copy of the type's information.
            if (std::strcmp(m_value->type().name(), typeid(T).name()) != 0)
                throw boost::bad_any_cast();
            return *boost::unsafe_any_cast<T>(m_value.get());
        } catch (const boost::bad_any_cast&) {
            // Answered with the default below.
        }
    }
    if (ok)
        *ok = false;
    return T();
}

} // namespace variant
} // namespace core
} // namespace olm

#endif
