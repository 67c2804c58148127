// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_THROWS_H
#define QUANDREL_THROWS_H

/// Whether @p action throws an Exception. QtTest has a macro for that, but not the same one in
/// Qt 5 and Qt 6.
template <class Exception, class Action>
bool throws(Action action)
{
    try {
        action();
    } catch (const Exception&) {
        return true;
    }
    return false;
}

#endif
