// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "plugin/gui/HostCall.h"

namespace plugin {
namespace gui {

namespace {

const QWidget* currentCaller = nullptr;

} // namespace

HostCall::HostCall(DeviceHost& host, const QWidget* widget)
    : m_host(host),
      m_outerCaller(currentCaller)
{
    currentCaller = widget;
}

HostCall::~HostCall()
{
    currentCaller = m_outerCaller;
}

const QWidget* HostCall::caller()
{
    return currentCaller;
}

} // namespace gui
} // namespace plugin
