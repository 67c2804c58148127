// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/loading/NeededLibraries.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <link.h>

#include <cstring>

namespace needed_libraries_test {

using host::loading::neededLibraries;

/// neededLibraries(), on a plugin and on what is left of it.
class NeededLibrariesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void a_plugin_needs_the_framework_and_qt();
    void what_is_no_library_needs_none();
    void a_plugin_that_is_cut_off_anywhere_needs_none_or_fewer();
    void numbers_that_point_anywhere_are_survived();

private:
    QByteArrayList neededBy(const QByteArray& bytes);

    QTemporaryDir m_folder;
    QByteArray m_plugin;
};

void NeededLibrariesTest::initTestCase()
{
    QFile file(TEST_PLUGIN_FOLDER "/NullWidgets.so");
    QVERIFY(file.open(QIODevice::ReadOnly));
    m_plugin = file.readAll();
}

QByteArrayList NeededLibrariesTest::neededBy(const QByteArray& bytes)
{
    QFile file(m_folder.filePath("plugin.so"));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return {"not written"};
    file.close();
    return neededLibraries(file.fileName());
}

void NeededLibrariesTest::a_plugin_needs_the_framework_and_qt()
{
    const QByteArrayList needed = neededLibraries(DEVICE_PLUGIN_FILE);
    QVERIFY2(needed.contains("libplugin_framework.so." FRAMEWORK_VERSION),
             needed.join(' ').constData());
    QVERIFY2(needed.join(' ').contains("Widgets.so."), needed.join(' ').constData());
    QVERIFY(neededBy(m_plugin).contains("libplugin_framework.so." FRAMEWORK_VERSION));
}

void NeededLibrariesTest::what_is_no_library_needs_none()
{
    QCOMPARE(neededLibraries(m_folder.filePath("no_such_file")), QByteArrayList());
    QCOMPARE(neededLibraries(m_folder.path()), QByteArrayList());
    QCOMPARE(neededBy({}), QByteArrayList());
    QCOMPARE(neededBy(QByteArray(1000, 'x')), QByteArrayList());
}

void NeededLibrariesTest::a_plugin_that_is_cut_off_anywhere_needs_none_or_fewer()
{
    // The sections are listed at the end of the file, so all but the last pieces lack them.
    for (const auto piece : {m_plugin.size() - 1, m_plugin.size() / 2, m_plugin.size() / 5})
        QCOMPARE(neededBy(m_plugin.left(piece)).isEmpty(), piece != m_plugin.size() - 1);
}

void NeededLibrariesTest::numbers_that_point_anywhere_are_survived()
{
    ElfW(Ehdr) header;
    std::memcpy(&header, m_plugin.constData(), sizeof(header));
    const auto sections = header.e_shoff;
    const auto write = [&](QByteArray& bytes, quint64 offset, quint64 number) {
        std::memcpy(bytes.data() + offset, &number, sizeof(number));
    };
    constexpr quint64 huge = ~quint64{0};
    for (const quint64 number :
         {huge, huge - 100, huge / 2, static_cast<quint64>(m_plugin.size())}) {
        QByteArray bytes = m_plugin;
        write(bytes, offsetof(ElfW(Ehdr), e_shoff), number);
        QCOMPARE(neededBy(bytes), QByteArrayList());

        // Every section lies elsewhere and has another size, the texts too.
        bytes = m_plugin;
        for (quint64 i = 0; i < header.e_shnum; ++i) {
            const quint64 section = sections + i * sizeof(ElfW(Shdr));
            write(bytes, section + offsetof(ElfW(Shdr), sh_offset), number);
            write(bytes, section + offsetof(ElfW(Shdr), sh_size), huge);
        }
        QCOMPARE(neededBy(bytes), QByteArrayList());
    }
}

TEST_WITHOUT_WINDOWS(NeededLibrariesTest)

} // namespace needed_libraries_test

#include "NeededLibrariesTest.moc"
