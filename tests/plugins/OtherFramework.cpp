// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// In place of the framework of another version: one function, for a plugin to need.
extern "C" __attribute__((visibility("default"))) void functionOfTheOtherVersion();

void functionOfTheOtherVersion() {}
