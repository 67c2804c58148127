// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/device/variables/ConfigStorage.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

namespace config_storage_test {

using host::device::variables::ConfigStorage;

namespace {

QByteArray contentOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& fileName, const QByteArray& content)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

const QByteArray good = R"({"number": {"type": "int", "value": 7}})";

} // namespace

/// The file of a device: what it survives, and what is said of what it does not.
class ConfigStorageTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_missing_file_is_no_problem_and_is_not_made();
    void what_was_saved_is_loaded();
    void a_missing_folder_is_made();
    void nothing_new_is_not_written();
    void what_this_version_does_not_know_is_kept();
    void a_value_that_cannot_be_stored_is_warned_of();
    void a_damaged_file_is_set_aside_with_its_reason_data();
    void a_damaged_file_is_set_aside_with_its_reason();
    void a_file_cut_anywhere_is_set_aside();
    void a_damaged_file_never_replaces_an_older_one();
    void a_file_that_cannot_be_read_is_left_alone();
    void a_folder_that_cannot_be_written_is_said_each_time();
    void a_folder_that_can_be_written_again_gets_everything();
    void devices_do_not_share_a_file_data();
    void devices_do_not_share_a_file();
    void a_program_killed_at_work_loses_nothing_that_was_written();
    void a_program_killed_within_a_transaction_has_stored_none_of_it();
};

void ConfigStorageTest::a_missing_file_is_no_problem_and_is_not_made()
{
    const QTemporaryDir folder;
    ConfigStorage storage(folder.path(), "robot");
    QCOMPARE(storage.load(), QString());
    QVERIFY(storage.values().empty());
    QCOMPARE(storage.save(), QString());
    QVERIFY(!QFile::exists(storage.fileName()));
}

void ConfigStorageTest::what_was_saved_is_loaded()
{
    const QTemporaryDir folder;
    ConfigStorage storage(folder.path(), "robot");
    storage.set("number", 7);
    storage.set("text", std::string("caf\xe9"));
    storage.set("number", 8);
    QCOMPARE(storage.save(), QString());
    QVERIFY(contentOf(storage.fileName()).contains("café")); // readable: UTF-8

    ConfigStorage later(folder.path(), "robot");
    QCOMPARE(later.load(), QString());
    const auto values = later.values();
    QCOMPARE(int(values.size()), 2);
    QCOMPARE(values.at("number").get<int>(), 8);
    QCOMPARE(values.at("text").get<std::string>(), std::string("caf\xe9"));
}

void ConfigStorageTest::a_missing_folder_is_made()
{
    const QTemporaryDir folder;
    ConfigStorage storage(folder.filePath("deep/er"), "robot");
    storage.set("number", 7);
    QCOMPARE(storage.save(), QString());
    QVERIFY(QFile::exists(storage.fileName()));
}

void ConfigStorageTest::nothing_new_is_not_written()
{
    const QTemporaryDir folder;
    ConfigStorage storage(folder.path(), "robot");
    write(storage.fileName(), good);
    QCOMPARE(storage.load(), QString());
    storage.set("number", 7);
    QCOMPARE(storage.save(), QString());
    QCOMPARE(contentOf(storage.fileName()), good); // not even with other blanks
    storage.set("number", 8);
    QCOMPARE(storage.save(), QString());
    QVERIFY(contentOf(storage.fileName()) != good);

    storage.set("number", 7); // as it was, but news to the file
    QCOMPARE(storage.save(), QString());
    ConfigStorage later(folder.path(), "robot");
    QCOMPARE(later.load(), QString());
    QCOMPARE(later.values().at("number").get<int>(), 7);
}

void ConfigStorageTest::what_this_version_does_not_know_is_kept()
{
    const QTemporaryDir folder;
    const QByteArray content = R"({
        "later":  {"type": "quaternion", "value": [0.1, 4294967297, null], "unit": "rad"},
        "nobody": {"type": "string", "value": "text", "note": "mine"},
        "number": {"type": "int", "value": 7}
    })";
    ConfigStorage storage(folder.path(), "robot");
    write(storage.fileName(), content);
    QCOMPARE(storage.load(), QString());
    QCOMPARE(int(storage.values().count("later")), 0);
    QCOMPARE(storage.values().at("nobody").get<std::string>(), std::string("text"));
    storage.set("number", 8);
    QCOMPARE(storage.save(), QString());

    const QByteArray written = contentOf(storage.fileName());
    QVERIFY(written.contains("4294967297")); // no rounding, no exponent
    const QJsonObject before = QJsonDocument::fromJson(content).object();
    const QJsonObject after = QJsonDocument::fromJson(written).object();
    QCOMPARE(after.keys(), before.keys());
    QCOMPARE(after["later"], before["later"]);
    QCOMPARE(after["nobody"], before["nobody"]);
    QCOMPARE(after["number"].toObject()["value"].toInt(), 8);
}

void ConfigStorageTest::a_value_that_cannot_be_stored_is_warned_of()
{
    const QTemporaryDir folder;
    ConfigStorage storage(folder.path(), "robot");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("\"number\" is not stored"));
    expectWarning("\"number\" is not stored");
    storage.set("number", 1.5);
    QVERIFY(storage.values().empty());
}

void ConfigStorageTest::a_damaged_file_is_set_aside_with_its_reason_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const QByteArray& content, const char* reason) {
        QTest::newRow(name) << content << QString(reason);
    };
    row("empty", "", "byte 0");
    row("no JSON", "ipAddress=10.0.0.1\n", "byte ");
    row("zero bytes", QByteArray(100, '\0'), "byte ");
    row("no UTF-8", "{\"a\": {\"type\": \"string\", \"value\": \"\xff\xfe\"}}", "byte ");
    row("an array", "[]", "not a JSON object");
    row("a bare value", R"({"ipAddress": "10.0.0.1"})", "\"ipAddress\"");
    row("no type", R"({"ipAddress": {"value": "10.0.0.1"}})", "\"ipAddress\"");
    row("no value", R"({"ipAddress": {"type": "string"}})", "\"ipAddress\"");
    row("another type", R"({"ipAddress": {"type": "string", "value": 10}})", "\"ipAddress\"");
}

void ConfigStorageTest::a_damaged_file_is_set_aside_with_its_reason()
{
    const QTemporaryDir folder;
    QFETCH(const QByteArray, content);
    QFETCH(const QString, reason);
    ConfigStorage storage(folder.path(), "robot");
    write(storage.fileName(), content);
    const QString problem = storage.load();
    const QString aside = storage.fileName() + ".damaged-1";
    QVERIFY2(problem.contains(storage.fileName()), qPrintable(problem));
    QVERIFY2(problem.contains(aside), qPrintable(problem));
    QVERIFY2(problem.contains(reason), qPrintable(problem));
    QVERIFY(storage.values().empty());
    QCOMPARE(contentOf(aside), content);

    storage.set("number", 7);
    QCOMPARE(storage.save(), QString());
    ConfigStorage later(folder.path(), "robot");
    QCOMPARE(later.load(), QString());
    QCOMPARE(later.values().at("number").get<int>(), 7);
    QCOMPARE(contentOf(aside), content);
}

void ConfigStorageTest::a_file_cut_anywhere_is_set_aside()
{
    const QTemporaryDir folder;
    const QByteArray whole = good;
    for (int length = 0; length < whole.size(); ++length) {
        ConfigStorage storage(folder.path(), QString::number(length));
        write(storage.fileName(), whole.left(length));
        QVERIFY2(!storage.load().isEmpty(), qPrintable(QString::number(length)));
        QCOMPARE(contentOf(storage.fileName() + ".damaged-1"), whole.left(length));
    }
}

void ConfigStorageTest::a_damaged_file_never_replaces_an_older_one()
{
    const QTemporaryDir folder;
    for (int number = 1; number <= 3; ++number) {
        ConfigStorage storage(folder.path(), "robot");
        write(storage.fileName(), QByteArray::number(number));
        QVERIFY(storage.load().contains(QStringLiteral(".damaged-%1").arg(number)));
    }
    for (int number = 1; number <= 3; ++number) {
        const QString name = QStringLiteral("robot.json.damaged-%1").arg(number);
        QCOMPARE(contentOf(folder.filePath(name)), QByteArray::number(number));
    }
}

void ConfigStorageTest::a_file_that_cannot_be_read_is_left_alone()
{
    const QTemporaryDir folder;
    ConfigStorage storage(folder.path(), "robot");
    QVERIFY(QDir().mkdir(storage.fileName())); // nobody, not even root, reads a folder as a file
    const QString problem = storage.load();
    QVERIFY2(problem.contains(storage.fileName()), qPrintable(problem));
    storage.set("number", 7);
    QVERIFY(!storage.save().isEmpty());
    QVERIFY(QFileInfo(storage.fileName()).isDir());
}

void ConfigStorageTest::a_folder_that_cannot_be_written_is_said_each_time()
{
    const QTemporaryDir folder;
    write(folder.filePath("file"), "");
    ConfigStorage storage(folder.filePath("file"), "robot"); // a file is no folder
    QCOMPARE(storage.load(), QString());
    for (const int number : {7, 8}) {
        storage.set("number", number);
        const QString problem = storage.save();
        QVERIFY2(problem.contains(storage.fileName()), qPrintable(problem));
        QVERIFY2(problem.contains("folder cannot be created"), qPrintable(problem));
        QCOMPARE(storage.values().at("number").get<int>(), number);
    }
}

void ConfigStorageTest::a_folder_that_can_be_written_again_gets_everything()
{
    const QTemporaryDir folder;
    write(folder.filePath("file"), "");
    ConfigStorage storage(folder.filePath("file"), "robot");
    storage.set("number", 7);
    QVERIFY(!storage.save().isEmpty());
    QVERIFY(QFile::remove(folder.filePath("file")));
    storage.set("number", 7); // nothing new, but it was not stored yet
    QCOMPARE(storage.save(), QString());
    ConfigStorage later(folder.filePath("file"), "robot");
    QCOMPARE(later.load(), QString());
    QCOMPARE(later.values().at("number").get<int>(), 7);

    QVERIFY(QDir(folder.filePath("file")).removeRecursively());
    write(folder.filePath("file"), "");
    storage.set("number", 8);
    QVERIFY(!storage.save().isEmpty());
}

void ConfigStorageTest::devices_do_not_share_a_file_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("other");
    QTest::newRow("slash") << "a/b"
                           << "a_b";
    QTest::newRow("encoded") << "a/b"
                             << "a%2Fb";
    QTest::newRow("parent") << ".."
                            << ".";
    QTest::newRow("blank") << "a b"
                           << "ab";
    QTest::newRow("accent") << "café"
                            << "cafe";
    QTest::newRow("empty") << ""
                           << " ";
}

void ConfigStorageTest::devices_do_not_share_a_file()
{
    const QTemporaryDir folder;
    QFETCH(const QString, name);
    QFETCH(const QString, other);
    ConfigStorage storage(folder.path(), name);
    ConfigStorage others(folder.path(), other);
    storage.set("number", 1);
    others.set("number", 2);
    QCOMPARE(storage.save(), QString());
    QCOMPARE(others.save(), QString());
    QCOMPARE(storage.load(), QString());
    QCOMPARE(others.load(), QString());
    QCOMPARE(storage.values().at("number").get<int>(), 1);
    QCOMPARE(others.values().at("number").get<int>(), 2);
    // Both are right in the folder.
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
}

void ConfigStorageTest::a_program_killed_at_work_loses_nothing_that_was_written()
{
    const QTemporaryDir folder;
    for (int round = 0; round < 5; ++round) {
        QProcess writer;
        writer.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        writer.start(CONFIG_WRITER, {folder.path()});
        QByteArray said;
        while (said.count('\n') < 10 + 7 * round) {
            QVERIFY(writer.waitForReadyRead(patience));
            said += writer.readAllStandardOutput();
        }
        writer.kill(); // SIGKILL
        QVERIFY(writer.waitForFinished(patience));
        QCOMPARE(writer.exitStatus(), QProcess::CrashExit);
        said += writer.readAllStandardOutput();
        const QList<QByteArray> lines = said.left(said.lastIndexOf('\n')).split('\n');
        const int written = lines.last().toInt();

        ConfigStorage storage(folder.path(), "robot");
        QCOMPARE(storage.load(), QString());
        const auto values = storage.values();
        const int stored = values.at("first").get<int>();
        QVERIFY2(stored == written || stored == written + 1,
                 qPrintable(QStringLiteral("%1 after %2").arg(stored).arg(written)));
        QCOMPARE(values.at("second").get<int>(), stored);
    }
}

void ConfigStorageTest::a_program_killed_within_a_transaction_has_stored_none_of_it()
{
    const QTemporaryDir folder;
    QProcess writer;
    writer.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    writer.start(CONFIG_WRITER, {folder.path(), "transaction"});
    QByteArray said;
    while (!said.endsWith("2\n")) {
        QVERIFY(writer.waitForReadyRead(patience));
        said += writer.readAllStandardOutput();
    }
    writer.kill();
    QVERIFY(writer.waitForFinished(patience));

    ConfigStorage storage(folder.path(), "robot");
    QCOMPARE(storage.load(), QString());
    QCOMPARE(storage.values().at("first").get<int>(), 1);
    QCOMPARE(storage.values().at("second").get<int>(), 1);
}

TEST_WITHOUT_WINDOWS(ConfigStorageTest)

} // namespace config_storage_test

#include "ConfigStorageTest.moc"
