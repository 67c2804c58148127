// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Defects.h"
#include "TestCase.h"

#include <QtTest>

namespace sound_plugins_test {

using program_run::Result;

/// Plugins with nothing wrong, written differently: device-plugin-check has nothing to say of them.
class SoundPluginsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void sound_plugins_pass_data();
    void sound_plugins_pass();
};

void SoundPluginsTest::sound_plugins_pass_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("one with many controls") << defects::brokenPlugin("sound");
    QTest::newRow("the guide's example") << SOUND_PLUGIN_FOLDER "/Lamp.so";
    QTest::newRow("one that shows some of what it is told") << SOUND_PLUGIN_FOLDER "/Turntable.so";
    QTest::newRow("one in an old style") << SOUND_PLUGIN_FOLDER "/Valve.so";
    QTest::newRow("one that works in a thread") << SOUND_PLUGIN_FOLDER "/Gauge.so";
}

void SoundPluginsTest::sound_plugins_pass()
{
    QFETCH(QString, file);
    QStringList arguments{"--level", "10", "--effort", "1", file};
#ifdef QUANDREL_SANITIZERS // which export symbols of their own
    arguments << "--skip"
              << "exported-symbols";
#endif
    const Result result = program_run::run(CHECK_FILE, arguments);
    QVERIFY2(result.status == 0, qPrintable(result.out + result.err));
}

TEST_WITHOUT_WINDOWS(SoundPluginsTest)

} // namespace sound_plugins_test

#include "SoundPluginsTest.moc"
