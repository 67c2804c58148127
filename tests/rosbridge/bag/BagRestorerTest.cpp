// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/rosbridge/TestBag.h"

#include "rosbridge/bag/BagRestorer.h"

#include <QTemporaryFile>
#include <QtTest>

namespace bag_restorer_test {

using rosbridge::bag::BagRestorer;

/// BagRestorer: the index it makes beside that of rosbag itself.
class BagRestorerTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_index_is_the_one_that_rosbag_writes();
};

void BagRestorerTest::the_index_is_the_one_that_rosbag_writes()
{
    TestBag bag;
    for (int i = 0; i < 100; ++i) // several chunks, in which times go back and forth
        bag.write(i % 3 == 0 ? "/a" : "/b", i ^ 5, QByteArray::number(i).constData());
    bag.close();
    const QByteArray whole = bag.onDisk();
    QFile cut(bag.save(whole.left(whole.lastIndexOf("chunk_pos="))));
    QVERIFY(cut.open(QIODevice::ReadOnly));
    QTemporaryFile restored;
    QVERIFY(restored.open());
    QString error;
    QVERIFY2(BagRestorer::restore(cut, restored, &error), qPrintable(error));
    QVERIFY(restored.seek(0));
    QVERIFY(restored.readAll() == whole);
}

TEST_WITHOUT_WINDOWS(BagRestorerTest)

} // namespace bag_restorer_test

#include "BagRestorerTest.moc"
