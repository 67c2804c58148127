// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_TRACE_CLASSNAME_H
#define HOST_DEVICE_TRACE_CLASSNAME_H

#include <QString>

#include <boost/core/demangle.hpp>

#include <typeinfo>

namespace host::device::trace {

/// The name of a type as its source spells it: not every widget of a plugin has a Q_OBJECT.
inline QString className(const std::type_info& type)
{
    return QString::fromStdString(boost::core::demangle(type.name()));
}

} // namespace host::device::trace

#endif
