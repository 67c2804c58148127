// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_TESTCASE_H
#define QUANDREL_TESTCASE_H

#include <QList>
#include <QObject>
#include <QRegularExpression>

#include <memory>

/// The base of every test class: a warning that Qt or our code prints during a test function
/// fails that function, unless the function announced it with expectWarning().
class TestCase : public QObject
{
    Q_OBJECT

public:
    using Maker = std::unique_ptr<QObject> (*)();

    /// What a program of tests does with its test classes, see the macros below.
    static bool add(const char* name, bool hasWindows, Maker make);

protected:
    /// A warning whose text matches @p pattern is expected, any number of times, until the
    /// test function ends.
    void expectWarning(const QString& pattern);

private Q_SLOTS:
    void init();
    void cleanup();
};

// At the end of a test class's source: the program of its folder runs it by its name, `program
// NameTest [function]`, each class in a process of its own. One without windows runs without a GUI
// application, and so proves that what it tests needs none.
#define TEST_WITH_WINDOWS(Class) QUANDREL_ADD_TEST(Class, true)
#define TEST_WITHOUT_WINDOWS(Class) QUANDREL_ADD_TEST(Class, false)
#define QUANDREL_ADD_TEST(Class, hasWindows)                                                       \
    static const bool is##Class##Added =                                                           \
        TestCase::add(#Class, hasWindows,                                                          \
                      []() -> std::unique_ptr<QObject> { return std::make_unique<Class>(); });

#endif
