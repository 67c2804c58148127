// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_ADDRESSES_H
#define QUANDREL_ADDRESSES_H

#include "FakeHost.h"
#include "olm/core/StringList.h"

#include <initializer_list>

/// The device's address and its history of addresses in the words of a test.

inline olm::core::StringList list(std::initializer_list<const char*> texts)
{
    olm::core::StringList result;
    for (const char* text : texts)
        result.append(text);
    return result;
}

inline void setAddress(FakeHost& host, const char* address)
{
    host.set(Kind::Config, "ipAddress", std::string(address));
}

inline void setHistory(FakeHost& host, std::initializer_list<const char*> addresses)
{
    host.set(Kind::Config, "ipAddressHistory", list(addresses));
}

inline QString storedAddress(const FakeHost& host)
{
    const Variant address = host.variables.at({Kind::Config, "ipAddress"});
    return QString::fromLatin1(address.get<std::string>().c_str());
}

inline QStringList storedHistory(const FakeHost& host)
{
    QStringList result;
    const Variant addresses = host.variables.at({Kind::Config, "ipAddressHistory"});
    for (const std::string& address : addresses.get<olm::core::StringList>())
        result.append(QString::fromLatin1(address.c_str()));
    return result;
}

/// Every address that was written, in order.
inline QStringList writtenAddresses(const FakeHost& host)
{
    QStringList result;
    for (const auto& [name, value] : host.writes) {
        if (name == "ipAddress")
            result.append(QString::fromLatin1(value.get<std::string>().c_str()));
    }
    return result;
}

#endif
