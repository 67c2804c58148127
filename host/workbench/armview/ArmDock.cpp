// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/armview/ArmDock.h"

#include "host/device/Device.h"
#include "host/workbench/armview/ArmPicture.h"
#include "host/workbench/armview/ArmShape.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>

namespace host::workbench::armview {

using device::readers::JointTable;
using robotview::RobotFeed;
using robotview::RobotState;

namespace {

using namespace std::chrono_literals;

constexpr auto pictureInterval = 33ms;
constexpr auto textInterval = 100ms; // nobody reads faster
constexpr auto ageInterval = 1s;
constexpr int shownPositions = 3;
constexpr double usualStep = 5; // degrees or millimetres
constexpr double smallestStep = 0.1;
constexpr double largestStep = 90;
constexpr int usualSpeed = 30;    // a second
constexpr double shownStep = 0.1; // degrees or millimetres that a field shows

enum AxesColumn
{
    NameColumn,
    PresentColumn,
    TargetColumn,
    LessColumn,
    MoreColumn,
    AxesColumnCount,
};

const RobotFeed::Topics armTopics{
    RobotState::JointStates, RobotState::ArmState,  RobotState::Torque,  RobotState::FirstLine,
    RobotState::SecondLine,  RobotState::ThirdLine, RobotState::Stopped,
};

bool isSliding(const JointTable::Joint& joint)
{
    return joint.unit == JointTable::Unit::Metres;
}

QString unitOf(const JointTable::Joint& joint)
{
    return isSliding(joint) ? ArmDock::tr(" mm") : ArmDock::tr("°");
}

const QString unknown = QStringLiteral("–");

} // namespace

ArmDock::ArmDock(device::Device& device, QWidget* parent)
    : QDockWidget(parent),
      m_feed(device, armTopics, this),
      m_control(device, m_feed.state(), this),
      m_positions(device.variables()),
      m_picture(new ArmPicture),
      m_why(new QLabel),
      m_remedy(new QPushButton),
      m_scroll(new QScrollArea),
      m_stepName(new QLabel),
      m_step(new QDoubleSpinBox),
      m_speedName(new QLabel),
      m_speed(new QSpinBox),
      m_go(new QPushButton),
      m_hold(new QPushButton),
      m_positionsName(new QLabel),
      m_list(new QListView),
      m_goTo(new QPushButton)
{
    setObjectName("ArmDock");
    m_picture->setObjectName("arm");
    m_why->setObjectName("why");
    m_why->setTextFormat(Qt::PlainText);
    m_why->setWordWrap(true);
    m_why->setMinimumHeight(2 * m_why->fontMetrics().lineSpacing()); // so that nothing jumps
    m_remedy->setObjectName("remedy");
    m_scroll->setObjectName("axes");
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setFocusPolicy(Qt::NoFocus);

    auto* why = new QHBoxLayout;
    why->addWidget(m_why, 1);
    why->addWidget(m_remedy);
    auto* axes = new QWidget;
    axes->setLayout(makeAxes());
    m_scroll->setWidget(axes);
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(m_picture, 1);
    layout->addLayout(why);
    layout->addWidget(m_scroll, 2);
    layout->addLayout(makeCommands());
    layout->addLayout(makePositions());
    setWidget(content);
    setFocusProxy(m_hold); // for who opens it: what can do no harm

    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, QWidget* focus) {
        if (focus && m_scroll->widget()->isAncestorOf(focus))
            m_scroll->ensureWidgetVisible(focus);
    });
    connect(this, &QDockWidget::visibilityChanged, this, &ArmDock::setActive);
    connect(&m_feed, &RobotFeed::changed, this, &ArmDock::onChanged);
    connect(&m_control, &ArmControl::changed, this, &ArmDock::onChanged);
    m_ageTimer.setInterval(ageInterval);
    connect(&m_ageTimer, &QTimer::timeout, this, &ArmDock::onChanged);

    translate();
    hide();
}

QLayout* ArmDock::makeAxes()
{
    auto* grid = new QGridLayout;
    grid->setContentsMargins({});
    for (int column = 0; column < LessColumn; ++column) {
        m_titles.push_back(new QLabel);
        grid->addWidget(m_titles.back(), 0, column);
    }
    m_titles.push_back(new QLabel);
    grid->addWidget(m_titles.back(), 0, LessColumn, 1, 2, Qt::AlignHCenter);
    grid->setColumnStretch(TargetColumn, 1);
    for (int axis = 0; axis < axisCount; ++axis)
        addRow(axis, *grid);
    grid->setRowStretch(grid->rowCount(), 1);
    return grid;
}

void ArmDock::addRow(int axis, QGridLayout& grid)
{
    const Row row{new QLabel, new QLabel(unknown), new QDoubleSpinBox, new QToolButton,
                  new QToolButton};
    const QString name = JointTable::ownName(axis);
    row.present->setObjectName(name + " present");
    row.present->setTextFormat(Qt::PlainText);
    row.present->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row.target->setObjectName(name + " target");
    row.target->setDecimals(1);
    row.less->setObjectName(name + " less");
    row.less->setText(QStringLiteral("−"));
    row.more->setObjectName(name + " more");
    row.more->setText(QStringLiteral("+"));
    for (QToolButton* button : {row.less, row.more})
        button->setFocusPolicy(Qt::StrongFocus);
    const int line = axis + 1;
    grid.addWidget(row.name, line, NameColumn);
    grid.addWidget(row.present, line, PresentColumn);
    grid.addWidget(row.target, line, TargetColumn);
    grid.addWidget(row.less, line, LessColumn);
    grid.addWidget(row.more, line, MoreColumn);

    connect(row.target, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            [this, axis](double target) { m_control.enter(axis, static_cast<float>(target)); });
    const auto jog = [this, axis](int direction) {
        m_control.jog(axis, static_cast<float>(direction * m_step->value()),
                      static_cast<float>(m_speed->value()));
    };
    connect(row.less, &QToolButton::clicked, this, [jog] { jog(-1); });
    connect(row.more, &QToolButton::clicked, this, [jog] { jog(1); });
    m_rows.push_back(row);
}

QLayout* ArmDock::makeCommands()
{
    m_step->setObjectName("step");
    m_step->setDecimals(1);
    m_step->setRange(smallestStep, largestStep);
    m_step->setValue(usualStep);
    m_speed->setObjectName("speed");
    m_speed->setRange(1, static_cast<int>(fastestSpeed));
    m_speed->setValue(usualSpeed);
    m_stepName->setBuddy(m_step);
    m_speedName->setBuddy(m_speed);
    m_go->setObjectName("go");
    m_hold->setObjectName("hold");
    auto* grid = new QGridLayout;
    grid->setContentsMargins({});
    grid->addWidget(m_stepName, 0, 0);
    grid->addWidget(m_step, 0, 1);
    grid->addWidget(m_go, 0, 2);
    grid->addWidget(m_speedName, 1, 0);
    grid->addWidget(m_speed, 1, 1);
    grid->addWidget(m_hold, 1, 2);
    grid->setColumnStretch(1, 1);
    connect(m_go, &QPushButton::clicked, this,
            [this] { m_control.go(static_cast<float>(m_speed->value())); });
    connect(m_hold, &QPushButton::clicked, &m_control, &ArmControl::hold);
    connect(m_remedy, &QPushButton::clicked, this, [this] { m_control.remedy(m_switch); });
    return grid;
}

QLayout* ArmDock::makePositions()
{
    m_list->setObjectName("positions");
    m_list->setModel(&m_positions);
    m_list->setUniformItemSizes(true);
    constexpr int spacing = 4; // of a line, at most
    m_list->setFixedHeight(shownPositions * (m_list->fontMetrics().lineSpacing() + spacing) +
                           2 * m_list->frameWidth());
    m_positionsName->setBuddy(m_list);
    m_goTo->setObjectName("goTo");
    auto* grid = new QGridLayout;
    grid->setContentsMargins({});
    grid->addWidget(m_positionsName, 0, 0);
    grid->addWidget(m_list, 1, 0);
    grid->addWidget(m_goTo, 1, 1, Qt::AlignTop);
    grid->setColumnStretch(0, 1);
    const auto preview = [this] {
        if (const StoredPositions::Position* const position = chosen())
            m_control.enter(*position);
        onChanged();
    };
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this, preview);
    connect(&m_positions, &StoredPositions::dataChanged, this,
            [this, preview](const auto& changed) {
                if (m_list->selectionModel()->isSelected(changed))
                    preview();
            });
    connect(m_goTo, &QPushButton::clicked, this, [this] {
        if (const StoredPositions::Position* const position = chosen())
            m_control.goTo(*position);
    });
    return grid;
}

/// Null where none is.
const StoredPositions::Position* ArmDock::chosen() const
{
    const QModelIndexList selected = m_list->selectionModel()->selectedIndexes();
    return selected.isEmpty() ? nullptr : m_positions.at(selected.first().row());
}

void ArmDock::changeEvent(QEvent* event)
{
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

void ArmDock::translate()
{
    setWindowTitle(tr("Arm"));
    m_picture->setAccessibleName(tr("The arm from the side"));
    m_picture->setToolTip(
        tr("Solid: where the arm is. Outline: where its targets are. All axes turn "
           "in one plane here, and all links have the same length."));
    const QString titles[] = {tr("Axis"), tr("Current"), tr("Target"), tr("Jog")};
    for (std::size_t column = 0; column < m_titles.size(); ++column)
        m_titles[column]->setText(titles[column]);
    for (int axis = 0; axis < axisCount; ++axis) {
        const Row& row = m_rows[static_cast<std::size_t>(axis)];
        const QString name = tr("Axis %1").arg(axis + 1);
        row.name->setText(QString::number(axis + 1));
        row.target->setAccessibleName(tr("%1: target").arg(name));
        row.less->setAccessibleName(tr("%1: one step back").arg(name));
        row.more->setAccessibleName(tr("%1: one step forward").arg(name));
        row.less->setToolTip(tr("Move axis %1 back by one step").arg(axis + 1));
        row.more->setToolTip(tr("Move axis %1 forward by one step").arg(axis + 1));
    }
    m_stepName->setText(tr("Step"));
    m_speedName->setText(tr("Speed"));
    m_go->setText(tr("Go"));
    m_go->setToolTip(tr("Send all axes to their targets at this speed"));
    m_hold->setText(tr("Hold"));
    m_hold->setToolTip(tr("Stop all axes where they are"));
    m_positionsName->setText(tr("Stored positions"));
    m_list->setAccessibleName(tr("Stored positions"));
    m_goTo->setText(tr("Go to"));
    m_goTo->setToolTip(tr("Send the arm to the chosen position at the speeds stored with it"));
    refreshTexts();
    refreshPicture();
}

void ArmDock::setActive(bool active)
{
    m_feed.setActive(active);
    if (active)
        m_ageTimer.start();
    else
        m_ageTimer.stop();
    onChanged();
}

void ArmDock::onChanged()
{
    if (!m_ageTimer.isActive())
        return; // nobody looks
    m_pictureRefresh.request(pictureInterval);
    m_texts.request(textInterval);
}

void ArmDock::refreshTexts()
{
    m_control.refresh();
    const auto hindrance = m_control.hindrance(RobotState::Clock::now());
    QStringList why;
    if (!m_control.refusal().isEmpty())
        why += m_control.refusal();
    if (hindrance)
        why += hindrance->words;
    m_why->setText(why.join('\n'));
    m_switch = hindrance ? hindrance->remedy : Hindrance::Switch::None;
    refreshRemedy();

    const bool isHindered = hindrance && hindrance->isOfAll;
    bool isAnySliding = false;
    for (int axis = 0; axis < axisCount; ++axis) {
        refreshRow(axis, isHindered);
        isAnySliding = isAnySliding || isSliding(m_feed.state().joints().joint(axis));
    }
    m_step->setSuffix(isAnySliding ? tr("° / mm") : tr("°"));
    m_speed->setSuffix(isAnySliding ? tr("°/s, mm/s") : tr("°/s"));
    m_go->setEnabled(!isHindered);
    m_goTo->setEnabled(!isHindered && chosen());
    m_hold->setEnabled(m_control.isInControl());
    const int bar = m_scroll->verticalScrollBar()->sizeHint().width();
    m_scroll->setMinimumWidth(m_scroll->widget()->minimumSizeHint().width() + bar);
}

void ArmDock::refreshRemedy()
{
    using Switch = Hindrance::Switch;
    m_remedy->setVisible(m_switch != Switch::None);
    const int line = static_cast<int>(m_switch) - static_cast<int>(Switch::FirstLine);
    if (m_switch == Switch::Stop)
        m_remedy->setText(tr("Release"));
    else if (m_switch == Switch::Torque)
        m_remedy->setText(tr("Switch torque on"));
    else
        m_remedy->setText(tr("Switch line %1 on").arg(line + 1));
    m_remedy->setToolTip(m_switch == Switch::Stop
                             ? tr("Lets the robot move again. Make sure that nobody is in its way.")
                             : QString());
}

void ArmDock::refreshRow(int axis, bool isHindered)
{
    const Row& row = m_rows[static_cast<std::size_t>(axis)];
    const RobotState& state = m_feed.state();
    const JointTable::Joint& joint = state.joints().joint(axis);
    const QString unit = unitOf(joint);
    const auto present = state.axis(axis).present;
    row.present->setText(present ? QString::number(double(*present), 'f', 1) + unit : unknown);
    row.present->setEnabled(
        state.isConnected() &&
        state.overdue(RobotState::JointStates, RobotState::Clock::now()).isEmpty());

    const auto target = m_control.target(axis);
    const AxisLimits limits = Trajectory::limits(state.joints(), axis);
    const QSignalBlocker blocker(row.target);             // nobody enters anything now
    const QString special = target ? QString() : unknown; // instead of the minimum
    const auto value = double(target.value_or(limits.minimum));
    // What stays as it is must not be set: somebody may be typing.
    if (row.target->suffix() != unit)
        row.target->setSuffix(unit);
    if (row.target->specialValueText() != special)
        row.target->setSpecialValueText(special);
    row.target->setRange(double(limits.minimum), double(limits.maximum));
    if (std::abs(row.target->value() - value) >= shownStep / 2)
        row.target->setValue(value);
    row.target->setEnabled(target && !joint.name.isEmpty());
    const bool canMove =
        !isHindered && target && !joint.name.isEmpty() && !Hindrance::isUnpowered(state, axis);
    row.less->setEnabled(canMove);
    row.more->setEnabled(canMove);
}

void ArmDock::refreshPicture()
{
    m_control.refresh();
    const RobotState& state = m_feed.state();
    ArmPlaces present;
    ArmPlaces target;
    bool isKnown = false;
    for (int axis = 0; axis < axisCount; ++axis) {
        const auto index = static_cast<std::size_t>(axis);
        present.at(index) = state.axis(axis).present;
        target.at(index) = m_control.target(axis);
        isKnown = isKnown || present.at(index);
    }
    if (!isKnown) {
        m_picture->setShapes({}, {}, true);
        return;
    }
    const bool isOld = !state.isConnected() ||
                       !state.overdue(RobotState::JointStates, RobotState::Clock::now()).isEmpty();
    m_picture->setShapes(armShape(present, state.joints()), armShape(target, state.joints()),
                         isOld);
}

} // namespace host::workbench::armview
