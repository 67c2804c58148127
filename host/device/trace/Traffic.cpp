// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/trace/Traffic.h"

#include "host/device/trace/ValueSize.h"

#include <algorithm>

namespace host::device::trace {

using olm::core::variant::Variant;

namespace {

std::size_t sizeOf(const Arguments& arguments)
{
    std::size_t size = sizeof(Arguments);
    for (const Argument& argument : arguments)
        size += argument.name.size() + sizeInMemory(argument.value);
    return size;
}

Variant small(const Variant& value)
{
    const std::size_t size = sizeInMemory(value);
    if (size <= Traffic::largestValue)
        return value;
    return Traffic::tr("%L1 bytes, which are too many to keep").arg(size);
}

/// The same where they are small.
std::shared_ptr<const Arguments> small(const std::shared_ptr<const Arguments>& arguments)
{
    if (sizeOf(*arguments) <= Traffic::largestValue)
        return arguments;
    auto words = std::make_shared<Arguments>();
    for (const Argument& argument : *arguments)
        words->push_back({argument.name, small(argument.value)});
    return words;
}

} // namespace

std::shared_ptr<const PluginCall> Traffic::call(Number number) const
{
    return m_calls[number - m_first];
}

void Traffic::clear()
{
    while (!m_calls.empty())
        dropOldest();
}

std::shared_ptr<PluginCall> Traffic::callBegan(PluginCall call)
{
    call.depth = m_depth++;
    call.number = end();
    Q_EMIT began(call);
    call.arguments = small(call.arguments);
    if (m_uses[call.arguments.get()]++ == 0)
        m_bytes += sizeOf(*call.arguments);
    m_bytes += sizeof(PluginCall);
    auto added = std::make_shared<PluginCall>(std::move(call));
    m_calls.push_back(added);
    while (m_calls.size() > capacity || m_bytes > mostBytes)
        dropOldest();
    Q_EMIT changed();
    return added;
}

void Traffic::callEnded(PluginCall& call, std::chrono::nanoseconds duration, bool hasThrown)
{
    call.duration = duration;
    call.hasThrown = hasThrown;
    Q_EMIT ended(call);
    if (call.result) {
        call.result = small(*call.result);
        // It is one of the last, if it is still kept.
        const bool isKept = std::any_of(m_calls.rbegin(), m_calls.rend(),
                                        [&](const auto& each) { return each.get() == &call; });
        m_bytes += isKept ? sizeInMemory(*call.result) : 0;
    }
    --m_depth;
    while (m_bytes > mostBytes)
        dropOldest();
    Q_EMIT changed();
}

void Traffic::dropOldest()
{
    const PluginCall& call = *m_calls.front();
    const auto uses = m_uses.find(call.arguments.get());
    if (--uses->second == 0) {
        m_bytes -= sizeOf(*call.arguments);
        m_uses.erase(uses);
    }
    if (call.duration && call.result)
        m_bytes -= sizeInMemory(*call.result);
    m_bytes -= sizeof(PluginCall);
    m_calls.pop_front();
    ++m_first;
}

} // namespace host::device::trace
