// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_LOADING_FAILURE_H
#define HOST_LOADING_FAILURE_H

#include <QString>

#include <functional>

namespace host::loading {

/// Why a plugin, or a part of it, is missing from the window, in a person's words: shown as a
/// card, and as text where nobody looks at a window.
struct Failure
{
    QString title;  ///< what happened
    QString reason; ///< why
    QString advice; ///< what to do about it
    QString file;   ///< the plugin's path, absolute

    /// All four on one line each.
    QString text() const { return title + '\n' + reason + '\n' + advice + '\n' + file; }
};

/// Puts a failure into words, in the language of the moment.
using FailureWords = std::function<Failure()>;

} // namespace host::loading

#endif
