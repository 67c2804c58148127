// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_OFFSCREENMESSAGES_H
#define HOST_WORKBENCH_OFFSCREENMESSAGES_H

namespace host::workbench {

/// From now on leaves out of Qt's messages what its offscreen platform says of nearly every window:
/// that it cannot do what only a screen can. Everything else goes where it went before.
void leaveOutOffscreenMessages();

} // namespace host::workbench

#endif
