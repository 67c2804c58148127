// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_TESTRUN_H
#define HOST_CHECK_TESTRUN_H

namespace host::check {

class CommandLine;

/// Runs the one test that @p commandLine names, in this process, and writes how it ended to the
/// file it names. Gives what main() returns.
int runTest(int& argc, char** argv, const CommandLine& commandLine);

} // namespace host::check

#endif
