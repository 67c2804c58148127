// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_ENVIRONMENT_H
#define HOST_DEVICE_ENVIRONMENT_H

#include <QString>

class QAction;

namespace host::device {

/// What a device asks of the program around it on behalf of its widgets: language and help.
/// Called on the GUI thread; outlives the device.
class Environment
{
public:
    virtual ~Environment() = default;

    /// @p text in the current language, or as it is.
    virtual QString translate(const QString& text) const = 0;
    /// As in "en" or "de".
    virtual QString currentLanguage() const = 0;
    /// The one action for @p context: owned by the program, never null.
    virtual QAction* helpAction(const QString& context) = 0;
};

} // namespace host::device

#endif
