// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/robotview/RobotDock.h"

#include "host/device/Device.h"
#include "host/workbench/robotview/WorldView.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace host::workbench::robotview {

namespace {

using namespace std::chrono_literals;

constexpr auto textInterval = 100ms; // nobody reads faster
constexpr auto ageInterval = 1s;

const RobotFeed::Topics shownTopics{
    RobotState::Map,        RobotState::Transforms, RobotState::StaticTransforms,
    RobotState::Odometry,   RobotState::Scan,       RobotState::JointStates,
    RobotState::ArmState,   RobotState::Torque,     RobotState::FirstLine,
    RobotState::SecondLine, RobotState::ThirdLine,  RobotState::DriveDisabled,
    RobotState::Camera,     RobotState::Footprint,
};

/// As high as its rows need.
class PartsView : public QTreeView
{
public:
    QSize sizeHint() const override
    {
        const int rows = model()->rowCount() * sizeHintForRow(0);
        return {QTreeView::sizeHint().width(),
                header()->sizeHint().height() + rows + 2 * frameWidth()};
    }
};

} // namespace

RobotDock::RobotDock(device::Device& device, QWidget* parent)
    : QDockWidget(parent),
      m_feed(device, shownTopics, this),
      m_model(m_feed.state()),
      m_follow(new QToolButton),
      m_showAll(new QToolButton),
      m_world(new WorldView(m_feed.state())),
      m_notes(new QLabel),
      m_parts(new PartsView)
{
    setObjectName("RobotDock");
    m_follow->setObjectName("follow");
    m_follow->setCheckable(true);
    m_showAll->setObjectName("showAll");
    for (QToolButton* button : {m_follow, m_showAll}) {
        button->setToolButtonStyle(Qt::ToolButtonTextOnly);
        button->setFocusPolicy(Qt::StrongFocus);
    }
    m_world->setObjectName("world");
    m_notes->setObjectName("notes");
    m_notes->setTextFormat(Qt::PlainText);
    m_notes->setWordWrap(true);
    m_parts->setObjectName("parts");
    m_parts->setModel(&m_model);
    m_parts->setRootIsDecorated(false);
    m_parts->setUniformRowHeights(true);
    m_parts->setMinimumHeight(4 * m_parts->fontMetrics().lineSpacing());
    m_parts->header()->setSectionResizeMode(QHeaderView::Stretch);
    for (const int column : {RobotModel::NameColumn, RobotModel::TargetColumn})
        m_parts->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    m_parts->header()->setStretchLastSection(false);

    auto* tools = new QHBoxLayout;
    tools->addWidget(m_follow);
    tools->addWidget(m_showAll);
    tools->addStretch();
    auto* world = new QWidget;
    auto* worldLayout = new QVBoxLayout(world);
    worldLayout->setContentsMargins({});
    worldLayout->addWidget(m_world, 1);
    worldLayout->addWidget(m_notes);
    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(world);
    splitter->addWidget(m_parts);
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(0, 1); // the table has as much as it needs
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(tools);
    layout->addWidget(splitter, 1);
    setWidget(content);
    setFocusProxy(m_world); // for who opens it

    connect(this, &QDockWidget::visibilityChanged, this, &RobotDock::setActive);
    connect(&m_feed, &RobotFeed::changed, this, &RobotDock::onChanged);
    connect(m_follow, &QToolButton::toggled, m_world, &WorldView::setFollowing);
    connect(m_world, &WorldView::followingChanged, m_follow, &QToolButton::setChecked);
    connect(m_showAll, &QToolButton::clicked, m_world, &WorldView::showAll);
    m_ageTimer.setInterval(ageInterval);
    connect(&m_ageTimer, &QTimer::timeout, this, &RobotDock::onChanged);

    translate();
    hide();
}

bool RobotDock::isFollowing() const
{
    return m_follow->isChecked();
}

void RobotDock::setFollowing(bool isFollowing)
{
    m_follow->setChecked(isFollowing);
}

void RobotDock::changeEvent(QEvent* event)
{
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

void RobotDock::translate()
{
    setWindowTitle(tr("Robot"));
    m_follow->setText(tr("Follow the ro&bot"));
    m_follow->setToolTip(tr("Keep the robot in the middle"));
    m_showAll->setText(tr("Sho&w all"));
    m_showAll->setToolTip(tr("Show the whole map, or everything there is"));
    m_world->setAccessibleName(tr("The robot's world from above"));
    m_world->setAccessibleDescription(
        tr("Zoom with the wheel, + and -; move by dragging or with "
           "the arrow keys; Home shows everything; dragging with Shift "
           "measures, until Escape."));
    m_parts->setAccessibleName(tr("Parts of the robot"));
    m_parts->header()->viewport()->update();
    m_world->update();
    refreshTexts();
}

void RobotDock::setActive(bool active)
{
    m_feed.setActive(active);
    if (active)
        m_ageTimer.start();
    else
        m_ageTimer.stop();
    onChanged();
}

void RobotDock::onChanged()
{
    if (!m_ageTimer.isActive())
        return; // nobody looks
    m_world->refresh();
    m_texts.request(textInterval);
}

void RobotDock::refreshTexts()
{
    m_model.refresh();
    m_notes->setText(m_feed.state().notes(RobotState::Clock::now()).join('\n'));
    m_notes->setVisible(!m_notes->text().isEmpty());
}

} // namespace host::workbench::robotview
