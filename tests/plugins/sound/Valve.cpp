// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// A sound plugin in an old style: one class that is its own factory's product, signals by their
// names where Qt has the slot, variables of each kind, and a log of the messages of its device.
#include "plugin/gui/DeviceDelegate.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/DeviceWidget.h"
#include "plugin/gui/Interface.h"
#include "plugin/gui/VariableHistoryBuffer.h"

#include <QAction>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <cmath>
#include <string>

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

namespace {

typedef plugin::gui::VariableHistoryBuffer History; // NOLINT(modernize-use-using): old style

class Valve : public plugin::gui::DeviceWidget
{
public:
    explicit Valve(plugin::gui::DeviceDelegate& delegate);
    /// The field takes what was typed as it goes, when this is no Valve any more.
    ~Valve() override { m_limit->disconnect(this); }

    void translate() override;
    void update(const plugin::gui::DeviceHistoryBundle& bundle) override;
    void on_messageReceived(plugin::plugin::DataRole role,
                            const olm::core::variant::Variant& value) override;

    using DeviceWidget::update;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void ask();

    QGroupBox* m_box;
    QRadioButton* m_open;
    QRadioButton* m_closed;
    QLabel* m_caption;
    QDoubleSpinBox* m_limit;
    QProgressBar* m_flow;
    QPlainTextEdit* m_log;
    QPushButton* m_reset;
    QMenu* m_menu;
    QAction* m_clear;
};

Valve::Valve(plugin::gui::DeviceDelegate& delegate) : DeviceWidget(delegate, nullptr)
{
    m_box = new QGroupBox(this);
    m_open = new QRadioButton(m_box);
    m_closed = new QRadioButton(m_box);
    auto* buttons = new QVBoxLayout(m_box);
    buttons->addWidget(m_open);
    buttons->addWidget(m_closed);
    m_caption = new QLabel(this);
    m_limit = new QDoubleSpinBox(this);
    m_limit->setKeyboardTracking(false);
    m_limit->setSuffix(QStringLiteral(" bar"));
    m_caption->setBuddy(m_limit);
    m_flow = new QProgressBar(this);
    m_log = new QPlainTextEdit(this);
    m_log->setReadOnly(true);
    m_log->setMaximumBlockCount(100);
    m_log->setTabChangesFocus(true);
    m_reset = new QPushButton(this);
    m_menu = new QMenu(this);
    m_clear = m_menu->addAction(QString(), m_log, SLOT(clear()));

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_box);
    layout->addWidget(m_caption);
    layout->addWidget(m_limit);
    layout->addWidget(m_flow);
    layout->addWidget(m_log);
    layout->addWidget(m_reset);

    connect(m_open, &QRadioButton::clicked, this, [this] { writeOutput("open", true); });
    connect(m_closed, &QRadioButton::clicked, this, [this] { writeOutput("open", false); });
    connect(m_limit, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            [this](double bar) {
                beginTransaction(trans("Limit"));
                writeConfigVariable("limit", bar);
                endTransaction();
            });
    connect(m_reset, &QPushButton::clicked, this, [this] { ask(); });
    delegate.registerOutput("open", true);
    delegate.registerConfigVariable("limit", true);
    delegate.registerStateVariable("flow", true);
}

void Valve::translate()
{
    m_box->setTitle(trans("Valve"));
    m_open->setText(trans("Open"));
    m_closed->setText(trans("Closed"));
    m_caption->setText(trans("Limit"));
    m_log->setAccessibleName(trans("Messages"));
    m_reset->setText(trans("Reset"));
    m_clear->setText(trans("Clear"));
}

void Valve::update(const plugin::gui::DeviceHistoryBundle& bundle)
{
    if (const History* open = bundle.getOutputHistory("open"))
        (open->last().toBool() ? m_open : m_closed)->setChecked(true);
    if (const History* limit = bundle.getConfigVariableHistory("limit")) {
        bool isNumber = false;
        const double bar = limit->last().get<double>(&isNumber);
        m_limit->blockSignals(true);
        if (isNumber && std::isfinite(bar))
            m_limit->setValue(bar);
        m_limit->blockSignals(false);
    }
    if (const History* flow = bundle.getStateVariableHistory("flow"))
        m_flow->setValue(qBound(0, flow->last().toInt(), 100));
}

void Valve::on_messageReceived(plugin::plugin::DataRole role,
                               const olm::core::variant::Variant& value)
{
    if (static_cast<int>(role) == 1000)
        m_log->appendPlainText(QString::fromStdString(value.toString()).left(200));
}

void Valve::contextMenuEvent(QContextMenuEvent* event)
{
    m_menu->popup(event->globalPos());
}

/// Asks a person first.
void Valve::ask()
{
    auto* box = new QMessageBox(QMessageBox::Question, trans("Reset"), trans("Reset the valve?"),
                                QMessageBox::Yes | QMessageBox::No, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    connect(box, &QMessageBox::finished, this, [this](int answer) {
        if (answer == QMessageBox::Yes)
            writeInput("reset", true);
    });
    box->open();
}

class Factory : public plugin::gui::Interface
{
public:
    Factory() : Interface({"Pipe Works", "Valve", "", 1, 0, 0, 0}) {}

    plugin::gui::DeviceWidget*
    loadDeviceWidget(const char* device, const char* widget,
                     plugin::gui::DeviceDelegate& delegate) const override
    {
        if (std::string(device) == "Pipe Works Valve" && std::string(widget) == "dialog")
            return new Valve(delegate);
        return nullptr;
    }
};

} // namespace

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    static Factory factory;
    *interface = &factory;
}
