// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/loading/PluginLoader.h"
#include "plugin/gui/Interface.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace plugin_loader_test {

using host::loading::Failure;
using host::loading::PluginLoader;

/// PluginLoader, on the real plugin and on every way in which a plugin can be broken.
class PluginLoaderTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_device_plugin_is_loaded();
    void a_relative_path_starts_at_the_current_folder();
    void the_plugin_is_initialised_once_and_ended_with_its_loader();
    void a_broken_plugin_is_a_failure_that_says_why_and_where_data();
    void a_broken_plugin_is_a_failure_that_says_why_and_where();
    void an_empty_file_is_no_shared_library();
    void a_damaged_shared_library_is_refused_with_the_loaders_words();
};

void PluginLoaderTest::the_device_plugin_is_loaded()
{
    const PluginLoader loader(DEVICE_PLUGIN_FILE);
    QVERIFY2(!loader.failure(), loader.failure() ? qPrintable(loader.failure()->text()) : "");
    QVERIFY(loader.interface());
    QCOMPARE(loader.interface()->info().name(), std::string("Quandrel"));
    QCOMPARE(loader.file(), QString(DEVICE_PLUGIN_FILE));
}

void PluginLoaderTest::a_relative_path_starts_at_the_current_folder()
{
    const QDir folder(TEST_PLUGIN_FOLDER);
    const PluginLoader loader(QDir::current().relativeFilePath(folder.filePath("NullWidgets.so")));
    QVERIFY(!loader.failure());
    QVERIFY(QDir::isAbsolutePath(loader.file()));
}

void PluginLoaderTest::the_plugin_is_initialised_once_and_ended_with_its_loader()
{
    const auto calls = [] {
        return QCoreApplication::instance()->property("test plugin calls").toStringList();
    };
    {
        const PluginLoader loader(TEST_PLUGIN_FOLDER "/TwoWidgets.so");
        QVERIFY(!loader.failure());
        QCOMPARE(calls(), QStringList({"init"}));
    }
    QCOMPARE(calls(), QStringList({"init", "deinit"}));
}

void PluginLoaderTest::a_broken_plugin_is_a_failure_that_says_why_and_where_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("reason");

    const auto row = [](const char* file, const char* title, const char* reason) {
        QTest::newRow(file) << file << title << reason;
    };
    row("no_such_file.so", "The plugin was not found", "There is no such file.");
    row(".", "The plugin cannot be read", "a folder");
    row("text.so", "This is not a plugin", "not a shared library");
    row("UndefinedSymbol.so", "The plugin could not be loaded",
        "undefined symbol: functionOfALaterHost");
    row("OtherVersion.so", "The plugin is for another version",
        "It was built for version 99.7 of the plugin framework; this workbench has "
        "version " FRAMEWORK_VERSION ".");
    row("NoFactory.so", "This is not a device plugin", "does not export the function pluginGui");
    row("NullFactory.so", "The plugin failed to start", "returned no interface object");
    row("ThrowingFactory.so", "The plugin failed to start",
        "pluginGuiInterface threw an exception: the licence has expired.");
    row("ThrowingInit.so", "The plugin failed to start",
        "init threw an exception of an unknown type.");
}

void PluginLoaderTest::a_broken_plugin_is_a_failure_that_says_why_and_where()
{
    QFETCH(QString, file);
    QFETCH(QString, title);
    QFETCH(QString, reason);

    const QString path = QDir::cleanPath(QDir(TEST_PLUGIN_FOLDER).absoluteFilePath(file));
    const PluginLoader loader(path);
    QVERIFY(!loader.interface());
    QVERIFY(loader.failure());
    const Failure failure = *loader.failure();
    QCOMPARE(failure.title, title);
    QVERIFY2(failure.reason.contains(reason), qPrintable(failure.reason));
    QVERIFY2(!failure.reason.contains(path), "the path has a line of its own");
    QVERIFY(!failure.advice.isEmpty());
    QCOMPARE(failure.file, path);
    for (const QString& part : {failure.title, failure.reason, failure.advice, failure.file})
        QVERIFY(failure.text().contains(part));
}

void PluginLoaderTest::an_empty_file_is_no_shared_library()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("empty.so"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();

    const PluginLoader loader(file.fileName());
    QVERIFY(loader.failure());
    QCOMPARE(loader.failure()->title, QString("This is not a plugin"));
}

void PluginLoaderTest::a_damaged_shared_library_is_refused_with_the_loaders_words()
{
    const QTemporaryDir folder;
    QFile whole(DEVICE_PLUGIN_FILE);
    QFile half(folder.filePath("half.so"));
    QVERIFY(whole.open(QIODevice::ReadOnly) && half.open(QIODevice::WriteOnly));
    QCOMPARE(half.write(whole.read(60)), 60);
    half.close();

    const PluginLoader loader(half.fileName());
    QVERIFY(loader.failure());
    QCOMPARE(loader.failure()->title, QString("The plugin could not be loaded"));
    QVERIFY2(loader.failure()->reason.contains("file too short"),
             qPrintable(loader.failure()->reason));
}

TEST_WITHOUT_WINDOWS(PluginLoaderTest)

} // namespace plugin_loader_test

#include "PluginLoaderTest.moc"
