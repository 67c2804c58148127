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
