// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TESTS_HOST_CHECK_DEFECTSTEST_H
#define TESTS_HOST_CHECK_DEFECTSTEST_H

#include "Defects.h"
#include "TestCase.h"

#include <QtTest>

#include <vector>

/// Plugins with one defect each, of which a test class has a list.
class DefectsTest : public TestCase
{
    Q_OBJECT

protected:
    explicit DefectsTest(std::vector<defects::Defect> all) : m_all(std::move(all)) {}

private Q_SLOTS:
    void each_defect_is_found_and_named_data()
    {
        QTest::addColumn<int>("index");
        int index = 0;
        for (const defects::Defect& defect : m_all)
            QTest::addRow("%s by %s", defect.plugin, defect.test) << index++;
    }

    void each_defect_is_found_and_named()
    {
        QFETCH(int, index);
        const QString fault = defects::fault(m_all[static_cast<std::size_t>(index)]);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

private:
    const std::vector<defects::Defect> m_all;
};

#endif
