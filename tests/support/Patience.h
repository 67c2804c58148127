// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TESTS_PATIENCE_H
#define TESTS_PATIENCE_H

/// How long a test waits for what must come, in ms. Many tests may share a slow machine.
inline constexpr int patience = 30000;

#endif
