// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef OLM_CORE_EXPORT_H
#define OLM_CORE_EXPORT_H

/// Marks what a host's libraries define and a plugin links to, so that it stays visible when
/// either side is compiled with hidden visibility. Value types carry no mark: they are
/// recognised by the names of their types, which no visibility changes.
#define OLM_EXPORT __attribute__((visibility("default")))

#endif
