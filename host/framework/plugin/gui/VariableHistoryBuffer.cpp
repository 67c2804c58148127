// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "plugin/gui/VariableHistoryBuffer.h"

namespace plugin {
namespace gui {

VariableHistoryBuffer::VariableHistoryBuffer(const olm::core::variant::Variant& last) : m_last(last)
{
}

const olm::core::variant::Variant& VariableHistoryBuffer::last() const
{
    return m_last;
}

} // namespace gui
} // namespace plugin
