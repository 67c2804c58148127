// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_LOADING_SYMBOLS_H
#define HOST_LOADING_SYMBOLS_H

#include <QByteArray>
#include <QString>

#include <vector>

namespace host::loading {

/// What a shared library offers to others, or needs of them, under a name.
struct Symbol
{
    enum class Binding
    {
        Global,
        Weak,
        Unique, ///< one for the whole process: it keeps its library in memory
    };

    QByteArray name; ///< as the linker knows it
    Binding binding;
    bool isDefined; ///< offered, not needed
};

/// The symbols of the shared library @p file that others can see, in its own order; nothing of it
/// is loaded or run. None for what is no library, or is damaged.
std::vector<Symbol> symbols(const QString& file);

} // namespace host::loading

#endif
