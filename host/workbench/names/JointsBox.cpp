// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/names/JointsBox.h"

#include "host/workbench/names/PlainLabel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStringListModel>

namespace host::workbench::names {

using device::connection::ArmJoints;
using device::readers::JointTable;
using Unit = JointTable::Unit;

namespace {

enum JointsColumn
{
    AxisColumn,
    JointColumn,
    UnitColumn,
    ReversedColumn,
    OffsetColumn,
    JointsColumnCount,
};

constexpr int longestName = 256;
constexpr double mostOffset = 100000;
constexpr int listedJoints = 20;

} // namespace

JointsBox::JointsBox(ArmJoints& joints, QWidget* parent)
    : QWidget(parent),
      m_joints(joints),
      m_hint(makePlainLabel()),
      m_rest(makePlainLabel()),
      m_candidates(new QStringListModel(this))
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins({});
    grid->addWidget(m_hint, 0, 0, 1, JointsColumnCount);
    for (int column = 0; column < JointsColumnCount; ++column) {
        m_titles.push_back(new QLabel);
        grid->addWidget(m_titles.back(), 1, column);
    }
    grid->setColumnStretch(JointColumn, 1);
    grid->setHorizontalSpacing(12);
    for (int axis = 0; axis < JointTable::axisCount; ++axis)
        addRow(axis);
    m_rest->setObjectName("joints not shown");
    grid->addWidget(m_rest, grid->rowCount(), 0, 1, JointsColumnCount);

    connect(&joints, &ArmJoints::changed, this, &JointsBox::refresh);
    connect(&joints, &ArmJoints::told, this, &JointsBox::refresh);
    translate();
}

/// A field is left, at the latest, by this, and takes effect while all is still there.
JointsBox::~JointsBox()
{
    hide();
}

void JointsBox::addRow(int axis)
{
    auto* grid = qobject_cast<QGridLayout*>(layout());
    const Row row{new QLabel, new QLineEdit, new QComboBox, new QCheckBox, new QDoubleSpinBox};
    const QString name = JointTable::ownName(axis);
    row.name->setBuddy(row.joint);
    row.joint->setObjectName(name + " joint");
    row.joint->setMaxLength(longestName);
    row.joint->setMinimumWidth(16 * fontMetrics().averageCharWidth());
    auto* completer = new QCompleter(m_candidates, row.joint);
    completer->setFilterMode(Qt::MatchContains);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    row.joint->setCompleter(completer);
    row.unit->setObjectName(name + " unit");
    for (const Unit unit : {Unit::Radians, Unit::Degrees, Unit::Metres})
        row.unit->addItem(QString(), static_cast<int>(unit));
    row.reversed->setObjectName(name + " reversed");
    row.offset->setObjectName(name + " offset");
    row.offset->setRange(-mostOffset, mostOffset);
    row.offset->setKeyboardTracking(false);

    const int line = grid->rowCount();
    grid->addWidget(row.name, line, AxisColumn);
    grid->addWidget(row.joint, line, JointColumn);
    grid->addWidget(row.unit, line, UnitColumn);
    grid->addWidget(row.reversed, line, ReversedColumn);
    grid->addWidget(row.offset, line, OffsetColumn);

    const auto takeName = [this, axis, edit = row.joint] {
        change(axis, [edit](Joint& joint) { joint.name = edit->text().trimmed(); });
    };
    connect(row.joint, &QLineEdit::editingFinished, this, takeName);
    connect(completer, QOverload<const QString&>::of(&QCompleter::activated), this, takeName);
    connect(row.unit, QOverload<int>::of(&QComboBox::activated), this, [this, axis, row] {
        change(axis, [row](Joint& joint) {
            joint.unit = static_cast<Unit>(row.unit->currentData().toInt());
        });
    });
    connect(row.reversed, &QCheckBox::clicked, this, [this, axis](bool isReversed) {
        change(axis, [isReversed](Joint& joint) { joint.isReversed = isReversed; });
    });
    connect(row.offset, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            [this, axis](double offset) {
                change(axis, [offset](Joint& joint) { joint.offset = offset; });
            });
    m_rows.push_back(row);
}

void JointsBox::change(int axis, const std::function<void(Joint&)>& change)
{
    Joint joint = m_joints.table().joint(axis);
    change(joint);
    m_joints.set(axis, joint);
    refresh();
}

void JointsBox::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

void JointsBox::translate()
{
    m_hint->setText(
        tr("Enter which of the robot's joints are the axes of the arm. This changes only what is "
           "shown and stored here; nothing is sent to the robot. If the robot has no joints "
           "\"axis0\" to \"axis8\", the table starts with a guess. Clear a field to leave an axis "
           "out."));
    const QString titles[] = {tr("Axis here"), tr("Joint on the robot"), tr("Unit"),
                              tr("Direction"), tr("Offset")};
    for (int column = 0; column < JointsColumnCount; ++column)
        m_titles[static_cast<std::size_t>(column)]->setText(titles[column]);
    const QString units[] = {QStringLiteral("rad"), tr("deg"), QStringLiteral("m")};
    for (int axis = 0; axis < JointTable::axisCount; ++axis) {
        const Row& row = m_rows[static_cast<std::size_t>(axis)];
        const QString name = tr("Axis %1").arg(axis + 1);
        row.name->setText(name);
        row.joint->setAccessibleName(tr("%1: joint on the robot").arg(name));
        row.unit->setAccessibleName(tr("%1: unit").arg(name));
        for (int unit = 0; unit < row.unit->count(); ++unit)
            row.unit->setItemText(unit, units[row.unit->itemData(unit).toInt()]);
        row.reversed->setText(tr("reversed"));
        row.reversed->setAccessibleName(tr("%1: reversed").arg(name));
        row.offset->setAccessibleName(tr("%1: offset").arg(name));
        row.offset->setToolTip(tr("The axis's value where the joint is at 0"));
    }
    refresh();
}

/// A name that is being typed stays in its field.
void JointsBox::refresh()
{
    for (int axis = 0; axis < JointTable::axisCount; ++axis) {
        const Row& row = m_rows[static_cast<std::size_t>(axis)];
        const Joint& joint = m_joints.table().joint(axis);
        if (!(row.joint->hasFocus() && row.joint->isModified()) && row.joint->text() != joint.name)
            row.joint->setText(joint.name);
        row.unit->setCurrentIndex(row.unit->findData(static_cast<int>(joint.unit)));
        row.reversed->setChecked(joint.isReversed);
        const QSignalBlocker blocker(row.offset);
        row.offset->setSuffix(joint.unit == Unit::Metres ? QStringLiteral(" mm")
                                                         : QStringLiteral("°"));
        row.offset->setValue(joint.offset);
    }
    const QStringList seen = m_joints.seen();
    if (seen != m_candidates->stringList()) // the list may be open
        m_candidates->setStringList(seen);
    const QStringList rest = m_joints.notShown();
    const QString more =
        rest.size() > listedJoints ? tr(" and %1 more").arg(rest.size() - listedJoints) : QString();
    m_rest->setText(tr("Joints without an axis: %1.")
                        .arg(rest.mid(0, listedJoints).join(QStringLiteral(", ")) + more));
    m_rest->setVisible(!rest.isEmpty());
}

} // namespace host::workbench::names
