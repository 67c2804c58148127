// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/device/connection/Remappings.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace remappings_test {

using host::device::connection::Remappings;

namespace {

QString fileName(const QTemporaryDir& folder)
{
    return folder.filePath(QStringLiteral("robot.names"));
}

QByteArray contentOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QJsonObject storedIn(const QTemporaryDir& folder)
{
    return QJsonDocument::fromJson(contentOf(fileName(folder))).object();
}

void write(const QString& fileName, const QByteArray& content)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

} // namespace

/// What the robot calls what this program uses: which names there can be, and what is remembered.
class RemappingsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void every_name_is_there_once_with_a_type_and_a_purpose();
    void names_are_standard_until_they_are_mapped();
    void a_name_that_cannot_be_is_refused_with_what_is_right_data();
    void a_name_that_cannot_be_is_refused_with_what_is_right();
    void a_name_that_is_not_ours_is_refused_with_what_is();
    void a_change_is_told_once();
    void all_become_standard_again();
    void a_mapping_is_remembered_for_its_device();
    void what_is_standard_is_not_written();
    void what_this_version_does_not_know_is_kept();
    void a_damaged_file_is_set_aside_data();
    void a_damaged_file_is_set_aside();
    void a_file_that_cannot_be_written_is_said_and_the_mapping_holds();
    void two_programs_keep_each_others_names();
    void the_settings_of_no_device_are_anothers_names();
    void an_option_is_a_mapping();
    void an_option_that_is_none_is_refused_data();
    void an_option_that_is_none_is_refused();
};

void RemappingsTest::every_name_is_there_once_with_a_type_and_a_purpose()
{
    QSet<QString> seen;
    for (const Remappings::Entry& entry : Remappings::all()) {
        QCOMPARE(Remappings::fault(entry.name), QString());
        QVERIFY2(entry.type.count('/') == 1, qPrintable(entry.name));
        QVERIFY2(!entry.purpose().isEmpty(), qPrintable(entry.name));
        QVERIFY2(!seen.contains(entry.name), qPrintable(entry.name));
        seen.insert(entry.name);
        QCOMPARE(Remappings::find(entry.name), &entry);
    }
    QVERIFY(!Remappings::find("/nobody"));
}

void RemappingsTest::names_are_standard_until_they_are_mapped()
{
    Remappings names;
    QCOMPARE(names.theirs("/scan"), QString("/scan"));
    QVERIFY(names.set("/scan", "/front/laser_2/scan"));
    QCOMPARE(names.theirs("/scan"), QString("/front/laser_2/scan"));
    QCOMPARE(names.theirs("/odom"), QString("/odom"));
    QVERIFY(names.set("/scan", "/scan"));
    QCOMPARE(names.theirs("/scan"), QString("/scan"));
}

void RemappingsTest::a_name_that_cannot_be_is_refused_with_what_is_right_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name :
         {"", "/", "scan", "//scan", "/scan/", "/front//scan", "/2scan", "/front/2scan", "/my scan",
          "/scan\n", "/sc\xc3\xa4n", "/~scan", "/a-b"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void RemappingsTest::a_name_that_cannot_be_is_refused_with_what_is_right()
{
    QFETCH(const QString, name);
    Remappings names;
    QVERIFY(names.set("/scan", "/base_scan"));
    const QSignalSpy changes(&names, &Remappings::changed);
    QString error;
    QVERIFY(!names.set("/scan", name, &error));
    QVERIFY2(error.contains('"' + name + '"') && error.contains("/front/scan"), qPrintable(error));
    QCOMPARE(error, Remappings::fault(name));
    QCOMPARE(names.theirs("/scan"), QString("/base_scan"));
    QCOMPARE(int(changes.count()), 0);
}

void RemappingsTest::a_name_that_is_not_ours_is_refused_with_what_is()
{
    Remappings names;
    QString error;
    QVERIFY(!names.set("/scann", "/base_scan", &error));
    QVERIFY2(error.contains("\"/scann\"") && error.contains("/scan,"), qPrintable(error));
    QCOMPARE(names.theirs("/scann"), QString("/scann"));
}

void RemappingsTest::a_change_is_told_once()
{
    Remappings names;
    const QSignalSpy changes(&names, &Remappings::changed);
    QVERIFY(names.set("/scan", "/scan"));
    QCOMPARE(int(changes.count()), 0);
    QVERIFY(names.set("/scan", "/base_scan"));
    QVERIFY(names.set("/scan", "/base_scan"));
    QCOMPARE(int(changes.count()), 1);
    QCOMPARE(changes.first().first().toString(), QString("/scan"));
}

void RemappingsTest::all_become_standard_again()
{
    Remappings names;
    QVERIFY(names.set("/scan", "/base_scan"));
    QVERIFY(names.set("/arm/torque", "/power"));
    const QSignalSpy changes(&names, &Remappings::changed);
    names.reset();
    QCOMPARE(int(changes.count()), 2);
    for (const Remappings::Entry& entry : Remappings::all())
        QCOMPARE(names.theirs(entry.name), entry.name);
}

void RemappingsTest::a_mapping_is_remembered_for_its_device()
{
    const QTemporaryDir folder;
    Remappings names;
    QCOMPARE(names.load(folder.path(), "robot"), QString());
    QVERIFY(!QFile::exists(fileName(folder)));
    QVERIFY(names.set("/scan", "/base_scan"));

    Remappings later;
    const QSignalSpy changes(&later, &Remappings::changed);
    QCOMPARE(later.load(folder.path(), "robot"), QString());
    QCOMPARE(later.theirs("/scan"), QString("/base_scan"));
    QCOMPARE(int(changes.count()), 1);
    Remappings other;
    QCOMPARE(other.load(folder.path(), "another"), QString());
    QCOMPARE(other.theirs("/scan"), QString("/scan"));
}

void RemappingsTest::what_is_standard_is_not_written()
{
    const QTemporaryDir folder;
    Remappings names;
    QCOMPARE(names.load(folder.path(), "robot"), QString());
    QVERIFY(names.set("/scan", "/base_scan"));
    QVERIFY(names.set("/odom", "/wheels/odom"));
    QVERIFY(names.set("/scan", "/scan"));
    QCOMPARE(storedIn(folder), QJsonObject({{"/odom", "/wheels/odom"}}));
    names.reset();
    QCOMPARE(storedIn(folder), QJsonObject());
}

void RemappingsTest::what_this_version_does_not_know_is_kept()
{
    const QTemporaryDir folder;
    write(fileName(folder), R"({"/sonar": "/front/sonar", "/later": {"a": 1}, "/odom": "/o"})");
    Remappings names;
    QCOMPARE(names.load(folder.path(), "robot"), QString());
    QCOMPARE(names.theirs("/odom"), QString("/o"));
    QVERIFY(names.set("/scan", "/base_scan"));
    names.reset();
    QCOMPARE(storedIn(folder),
             QJsonObject({{"/sonar", "/front/sonar"}, {"/later", QJsonObject({{"a", 1}})}}));
}

void RemappingsTest::a_damaged_file_is_set_aside_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no JSON") << QByteArray("/scan:=/base_scan") << "byte ";
    QTest::newRow("an array") << QByteArray("[]") << "not a JSON object";
    QTest::newRow("no text") << QByteArray(R"({"/scan": 1})") << "\"/scan\"";
    QTest::newRow("no name") << QByteArray(R"({"/scan": "base scan"})") << "\"base scan\"";
}

void RemappingsTest::a_damaged_file_is_set_aside()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QString, reason);
    const QTemporaryDir folder;
    write(fileName(folder), content);
    Remappings names;
    const QString problem = names.load(folder.path(), "robot");
    for (const QString& part : {fileName(folder), reason})
        QVERIFY2(problem.contains(part), qPrintable(problem));
    QCOMPARE(names.theirs("/scan"), QString("/scan"));
    QVERIFY(names.set("/odom", "/o"));
    QCOMPARE(storedIn(folder), QJsonObject({{"/odom", "/o"}}));
    QCOMPARE(contentOf(fileName(folder) + ".damaged-1"), content);
}

void RemappingsTest::a_file_that_cannot_be_written_is_said_and_the_mapping_holds()
{
    const QTemporaryDir folder;
    write(folder.filePath("file"), "");
    Remappings names;
    QCOMPARE(names.load(folder.filePath("file/deeper"), "robot"), QString());
    const QSignalSpy problems(&names, &Remappings::problem);
    QVERIFY(names.set("/scan", "/base_scan"));
    QCOMPARE(names.theirs("/scan"), QString("/base_scan"));
    QCOMPARE(int(problems.count()), 1);
    const QString words = problems.first().first().toString();
    QVERIFY2(words.contains("robot.names"), qPrintable(words));
}

void RemappingsTest::two_programs_keep_each_others_names()
{
    const QTemporaryDir folder;
    Remappings first;
    Remappings second;
    QCOMPARE(first.load(folder.path(), "robot"), QString());
    QCOMPARE(second.load(folder.path(), "robot"), QString());
    QVERIFY(first.set("/scan", "/base_scan"));
    QVERIFY(second.set("/odom", "/wheels"));
    QVERIFY(first.set("/map", "/plan"));
    Remappings later;
    QCOMPARE(later.load(folder.path(), "robot"), QString());
    QCOMPARE(later.theirs("/scan"), QString("/base_scan"));
    QCOMPARE(later.theirs("/odom"), QString("/wheels"));
    QCOMPARE(later.theirs("/map"), QString("/plan"));
}

void RemappingsTest::the_settings_of_no_device_are_anothers_names()
{
    const QTemporaryDir folder;
    Remappings names;
    QCOMPARE(names.load(folder.path(), "robot"), QString());
    QVERIFY(names.set("/scan", "/base_scan"));
    for (const char* device : {"robot", "robot.names"}) {
        const host::device::variables::SettingsFile settings(folder.path(), device, ".json");
        QVERIFY(!QFile::exists(settings.fileName()));
    }
}

void RemappingsTest::an_option_is_a_mapping()
{
    QString error;
    const auto mapping = Remappings::parseOption("/scan:=/base_scan", &error);
    QCOMPARE(error, QString());
    QVERIFY(mapping);
    QCOMPARE(mapping->first, QString("/scan"));
    QCOMPARE(mapping->second, QString("/base_scan"));
}

void RemappingsTest::an_option_that_is_none_is_refused_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("named");
    QTest::newRow("no sign") << "/scan=/base_scan"
                             << "\"/scan=/base_scan\"";
    QTest::newRow("nothing") << ""
                             << "\"\"";
    QTest::newRow("unknown name") << "/scann:=/base_scan"
                                  << "\"/scann\"";
    QTest::newRow("no name of ours") << ":=/base_scan"
                                     << "\"\"";
    QTest::newRow("no name of theirs") << "/scan:="
                                       << "\"\"";
    QTest::newRow("bad name") << "/scan:=base_scan"
                              << "\"base_scan\"";
    QTest::newRow("two signs") << "/scan:=/a:=/b"
                               << "\"/a:=/b\"";
}

void RemappingsTest::an_option_that_is_none_is_refused()
{
    QFETCH(const QString, option);
    QFETCH(const QString, named);
    QString error;
    QVERIFY(!Remappings::parseOption(option, &error));
    QVERIFY2(error.contains(named), qPrintable(error));
}

TEST_WITHOUT_WINDOWS(RemappingsTest)

} // namespace remappings_test

#include "RemappingsTest.moc"
