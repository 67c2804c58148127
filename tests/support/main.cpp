// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Registry.h"

#include <QApplication>
#include <QCoreApplication>
#include <QtTest>

#include <cstdio>
#include <string>

namespace {

constexpr int usageError = 2;

template <class Application>
int run(const Registry::Entry& entry, int argc, char** argv)
{
    const Application application(argc, argv);
    Application::setAttribute(Qt::AA_Use96Dpi); // as QTEST_MAIN has it
    const auto test = entry.make();
    return QTest::qExec(test.get(), argc, argv);
}

} // namespace

/// Runs the one test class that the first argument names; the others are QtTest's own.
int main(int argc, char** argv)
{
    const std::string name = argc > 1 ? argv[1] : "";
    const auto found = Registry::entries().find(name);
    if (found == Registry::entries().end()) {
        std::fprintf(stderr, "usage: %s CLASS [function] [QtTest's options]\nThe classes:\n",
                     argv[0]);
        for (const auto& entry : Registry::entries())
            std::fprintf(stderr, "  %s\n", entry.first.c_str());
        return usageError;
    }
    for (int i = 1; i < argc; ++i)
        argv[i] = argv[i + 1]; // the null at the end too
    --argc;
    return found->second.hasWindows ? run<QApplication>(found->second, argc, argv)
                                    : run<QCoreApplication>(found->second, argc, argv);
}
