// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_INPUT_ACTIONFILE_H
#define HOST_INPUT_ACTIONFILE_H

#include "host/input/Action.h"

#include <QFile>
#include <QString>

#include <optional>

namespace host::input {

/// A list of actions in a file: a line of JSON each, so that what a crash cuts short is a list as
/// well. The first line names the widget.
class ActionFile
{
public:
    struct Content
    {
        QString widget;
        ActionList actions;
    };

    /// Begins it anew.
    ActionFile(const QString& name, const QString& widget);

    /// It is on its way to the file when this comes back.
    void add(const Action& action);

    /// False where it could not be written.
    bool isGood() const { return m_file.error() == QFile::NoError; }

    /// Nothing for what is no such file.
    static std::optional<Content> read(const QString& name);

private:
    QFile m_file;
};

} // namespace host::input

#endif
