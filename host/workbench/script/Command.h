// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_COMMAND_H
#define HOST_WORKBENCH_SCRIPT_COMMAND_H

#include "host/workbench/script/text/Form.h"

#include <QString>

#include <functional>
#include <vector>

namespace host::workbench::script {

class Scene;

using text::Arguments;

/// How far a statement has come.
struct Progress
{
    enum class State
    {
        Done,
        Waiting, ///< `words` say what is seen instead
        Failed   ///< for good; `words` say why
    };

    State state;
    QString words;

    static Progress done() { return {State::Done, {}}; }
    static Progress waiting(const QString& words) { return {State::Waiting, words}; }
    static Progress failed(const QString& words) { return {State::Failed, words}; }
};

/// A statement under way: asked again and again, in turns of the event loop, until it is done.
/// Never holds up the event loop.
using Attempt = std::function<Progress()>;

/// One line of the tables of what a script can say.
struct Command
{
    enum class Kind
    {
        Act, ///< what the plugin does from its beginning on can be expected
        Look
    };

    const char* form; ///< see Form
    Kind kind;
    /// Begins the statement. The scene outlives the attempt.
    Attempt (*begin)(Scene& scene, const Arguments& arguments);
};

using Commands = std::vector<Command>;

} // namespace host::workbench::script

#endif
