// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// A sound plugin that keeps what its device says, and shows it ten times a second at most: a tool
// bar with a menu, and a dialog with a table that can be edited.
#include "plugin/gui/DeviceDelegate.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/DeviceWidget.h"
#include "plugin/gui/Interface.h"
#include "plugin/gui/VariableHistoryBuffer.h"

#include <QAction>
#include <QDial>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QTableView>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <array>
#include <cstring>

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

namespace {

class TurntableBar : public plugin::gui::DeviceWidget
{
public:
    explicit TurntableBar(plugin::gui::DeviceDelegate& delegate) : DeviceWidget(delegate, nullptr)
    {
        m_button->setPopupMode(QToolButton::InstantPopup);
        m_button->setFocusPolicy(Qt::StrongFocus);
        m_button->setMenu(new QMenu(m_button));
        for (std::size_t i = 0; i < m_actions.size(); ++i) {
            m_actions[i] = m_button->menu()->addAction(QString());
            connect(m_actions[i], &QAction::triggered, this,
                    [this, i] { writeConfigVariable("direction", static_cast<int>(i)); });
        }
        (new QVBoxLayout(this))->addWidget(m_button);
    }

    void translate() override
    {
        m_button->setText(trans("Direction"));
        m_actions[0]->setText(trans("Clockwise"));
        m_actions[1]->setText(trans("Anticlockwise"));
    }

private:
    QToolButton* m_button = new QToolButton(this);
    std::array<QAction*, 2> m_actions{};
};

class TurntableDialog : public plugin::gui::DeviceWidget
{
public:
    explicit TurntableDialog(plugin::gui::DeviceDelegate& delegate)
        : DeviceWidget(delegate, nullptr)
    {
        constexpr int interval = 100; // ms
        m_later->setSingleShot(true);
        m_later->setInterval(interval);
        connect(m_later, &QTimer::timeout, this, [this] { show(m_angle); });

        m_dial->setRange(0, 359);
        m_caption->setBuddy(m_dial);
        m_table->setModel(m_stations);
        m_table->verticalHeader()->hide();
        m_table->setTabKeyNavigation(false);
        for (int row = 0; row < stations; ++row)
            m_stations->setItem(row, 0, new QStandardItem);

        auto* layout = new QVBoxLayout(this);
        for (QWidget* widget : std::initializer_list<QWidget*>{m_caption, m_dial, m_shown, m_table})
            layout->addWidget(widget);

        connect(m_dial, &QDial::valueChanged, this,
                [this](int angle) { writeConfigVariable("angle", angle); });
        connect(m_stations, &QStandardItemModel::itemChanged, this, &TurntableDialog::onEdited);
        delegate.registerConfigVariable("angle", true);
        for (int row = 0; row < stations; ++row)
            delegate.registerConfigVariable(variable(row).constData(), true);
    }

    /// A cell's editor writes its text as the table goes, when this is no Turntable any more.
    ~TurntableDialog() override { m_stations->disconnect(this); }

    void translate() override
    {
        m_caption->setText(trans("Angle"));
        m_stations->setHorizontalHeaderLabels({trans("Station")});
        m_table->setAccessibleName(trans("Stations"));
    }

    void update(const plugin::gui::DeviceHistoryBundle& bundle) override
    {
        if (const auto* history = bundle.getConfigVariableHistory("angle")) {
            m_angle = history->last().toInt();
            if (!m_later->isActive())
                m_later->start();
        }
        m_isTold = true;
        for (int row = 0; row < stations; ++row) {
            if (const auto* history = bundle.getConfigVariableHistory(variable(row).constData()))
                m_stations->item(row)->setText(
                    QString::fromStdString(history->last().toString()).left(20));
        }
        m_isTold = false;
    }

    using DeviceWidget::update;

private:
    static constexpr int stations = 3;

    static QByteArray variable(int row) { return "station " + QByteArray::number(row); }

    void show(int angle)
    {
        const QSignalBlocker blocker(m_dial);
        m_dial->setValue(angle);
        m_shown->setText(QString::number(angle) + QChar(0xb0));
    }

    void onEdited(const QStandardItem* item)
    {
        if (!m_isTold)
            writeConfigVariable(variable(item->row()).constData(), item->text().toStdString());
    }

    QTimer* m_later = new QTimer(this);
    QLabel* m_caption = new QLabel(this);
    QDial* m_dial = new QDial(this);
    QLabel* m_shown = new QLabel(this);
    QTableView* m_table = new QTableView(this);
    QStandardItemModel* m_stations = new QStandardItemModel(stations, 1, this);
    int m_angle = 0;
    bool m_isTold = false; // the device is saying what the stations are
};

class Interface : public plugin::gui::Interface
{
public:
    Interface() : plugin::gui::Interface({"Round Works", "Turntable", "", -1, -1, -1, -1}) {}

    plugin::gui::DeviceWidget*
    loadDeviceWidget(const char* device, const char* widget,
                     plugin::gui::DeviceDelegate& delegate) const override
    {
        if (std::strcmp(device, "Round Works Turntable") != 0)
            return nullptr;
        if (std::strcmp(widget, "toolbar") == 0)
            return new TurntableBar(delegate);
        return std::strcmp(widget, "dialog") == 0 ? new TurntableDialog(delegate) : nullptr;
    }
};

} // namespace

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    static Interface instance;
    *interface = &instance;
}
