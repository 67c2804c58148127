// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "plugin/gui/HistoryBundle.h"

#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/HistoryBundleContent.h"

namespace plugin {
namespace gui {

HistoryBundle::HistoryBundle(const HistoryBundleContent& content) : m_content(content) {}

const VariableHistoryBuffer* HistoryBundle::getInputHistory(const char* name) const
{
    return m_content.find(VariableKind::Input, name);
}

const VariableHistoryBuffer* HistoryBundle::getOutputHistory(const char* name) const
{
    return m_content.find(VariableKind::Output, name);
}

const VariableHistoryBuffer* HistoryBundle::getStateVariableHistory(const char* name) const
{
    return m_content.find(VariableKind::State, name);
}

const VariableHistoryBuffer* HistoryBundle::getConfigVariableHistory(const char* name) const
{
    return m_content.find(VariableKind::Config, name);
}

DeviceHistoryBundle::DeviceHistoryBundle(const HistoryBundleContent& content)
    : HistoryBundle(content)
{
}

} // namespace gui
} // namespace plugin
