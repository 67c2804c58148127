// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/workbench/names/JointsBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QtTest>

namespace joints_box_test {

using host::device::connection::ArmJoints;
using host::device::readers::JointTable;
using host::workbench::names::JointsBox;
using Unit = JointTable::Unit;

namespace {

/// The box in a window of its own, beside a robot that told of its joints.
struct Fixture
{
    Fixture()
    {
        joints.seePresent({"wheel", "shoulder", "elbow"});
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box, patience));
    }

    template <class Widget>
    Widget* part(const char* name) const
    {
        return box.findChild<Widget*>(QLatin1String(name));
    }

    ArmJoints joints;
    JointsBox box{joints};
};

} // namespace

/// The table of joints as people see and change it.
class JointsBoxTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_shows_what_is_in_effect();
    void a_joint_is_in_effect_when_its_field_is_left();
    void unit_direction_and_offset_are_in_effect_at_once();
    void the_joints_of_the_robot_can_be_chosen();
    void joints_without_an_axis_are_listed();
    void a_name_that_is_being_typed_stays();
    void every_field_is_named();
};

void JointsBoxTest::it_shows_what_is_in_effect()
{
    const Fixture f;
    QCOMPARE(f.part<QLineEdit>("axis0 joint")->text(), QString("shoulder"));
    QCOMPARE(f.part<QLineEdit>("axis1 joint")->text(), QString("elbow"));
    QCOMPARE(f.part<QLineEdit>("axis2 joint")->text(), QString());
    QCOMPARE(f.part<QComboBox>("axis0 unit")->currentText(), QString("rad"));
    QVERIFY(!f.part<QCheckBox>("axis0 reversed")->isChecked());
    QCOMPARE(f.part<QDoubleSpinBox>("axis0 offset")->value(), 0.0);
}

void JointsBoxTest::a_joint_is_in_effect_when_its_field_is_left()
{
    Fixture f;
    auto* const field = f.part<QLineEdit>("axis2 joint");
    field->setFocus();
    QTest::keyClicks(field, " wrist ");
    QCOMPARE(f.joints.table().joint(2).name, QString());
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(f.joints.table().joint(2).name, QString("wrist"));
    QCOMPARE(f.joints.table().joint(0).name, QString("shoulder"));
}

void JointsBoxTest::unit_direction_and_offset_are_in_effect_at_once()
{
    Fixture f;
    auto* const unit = f.part<QComboBox>("axis1 unit");
    unit->setFocus();
    QTest::keyClick(unit, Qt::Key_Down);
    QTest::keyClick(unit, Qt::Key_Down);
    QTest::keyClick(f.part<QCheckBox>("axis1 reversed"), Qt::Key_Space);
    auto* const offset = f.part<QDoubleSpinBox>("axis1 offset");
    QCOMPARE(offset->suffix(), QString(" mm"));
    offset->setFocus();
    offset->selectAll();
    QTest::keyClicks(offset, "12.5");
    QTest::keyClick(offset, Qt::Key_Return);
    QVERIFY((f.joints.table().joint(1) == ArmJoints::Joint{"elbow", Unit::Metres, true, 12.5}));
}

void JointsBoxTest::the_joints_of_the_robot_can_be_chosen()
{
    const Fixture f;
    const auto* const model = f.part<QLineEdit>("axis0 joint")->completer()->model();
    QCOMPARE(model->rowCount(), 3);
    QCOMPARE(model->index(0, 0).data().toString(), QString("wheel"));
}

void JointsBoxTest::joints_without_an_axis_are_listed()
{
    Fixture f;
    auto* const rest = f.part<QLabel>("joints not shown");
    QVERIFY(!rest->isVisible());
    QStringList names;
    for (int i = 0; i < 40; ++i)
        names.append(QString("joint_%1").arg(i));
    f.joints.seePresent(names); // seven of them become axes
    QVERIFY(rest->isVisible());
    QVERIFY2(rest->text().contains(": joint_7, joint_8, "), qPrintable(rest->text()));
    QVERIFY2(rest->text().endsWith("joint_26 and 13 more."), qPrintable(rest->text()));
}

void JointsBoxTest::a_name_that_is_being_typed_stays()
{
    Fixture f;
    auto* const field = f.part<QLineEdit>("axis2 joint");
    field->setFocus();
    QTest::keyClicks(field, "wri");
    f.joints.seePresent({"torso"});
    QCOMPARE(field->text(), QString("wri"));
}

void JointsBoxTest::every_field_is_named()
{
    const Fixture f;
    QSet<QString> names;
    const auto fields = f.box.findChildren<QWidget*>();
    int count = 0;
    for (const QWidget* field : fields) {
        if (!field->objectName().startsWith("axis"))
            continue;
        ++count;
        QVERIFY2(!field->accessibleName().isEmpty(), qPrintable(field->objectName()));
        names.insert(field->accessibleName());
    }
    QCOMPARE(count, 9 * 4);
    QCOMPARE(int(names.size()), count);
}

TEST_WITH_WINDOWS(JointsBoxTest)

} // namespace joints_box_test

#include "JointsBoxTest.moc"
