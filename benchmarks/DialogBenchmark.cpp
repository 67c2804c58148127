// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Benchmarks.h"
#include "Dialog.h"
#include "QuietHost.h"
#include "Ratios.h"
#include "tests/src/Delivery.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTableView>
#include <QTextEdit>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

const int positionCount = 16;
const int scanRows = 12;

/// The widgets and texts of the plugin's dialog, and nothing behind them.
class BareDialog : public QWidget
{
public:
    explicit BareDialog(QAbstractItemModel& positions)
    {
        auto* const tabs = new QTabWidget(this);
        auto* const layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        tabs->setTabPosition(QTabWidget::South);
        tabs->setTabShape(QTabWidget::Triangular);
        layout->addWidget(tabs);
        tabs->addTab(makeBase(), "Base");
        tabs->addTab(makeManipulator(positions), "Manipulator");
        tabs->addTab(makeLaser(), "Laser rangefinder");
    }

private:
    static QTextEdit* makeLog()
    {
        auto* const log = new QTextEdit;
        log->setReadOnly(true);
        return log;
    }

    static QWidget* makeBase()
    {
        auto* const tab = new QWidget;
        auto* const layout = new QVBoxLayout(tab);
        auto* const connection = new QHBoxLayout;
        layout->addLayout(connection);
        auto* const address = new QComboBox;
        address->setLineEdit(new QLineEdit);
        connection->addWidget(address);
        auto* const connectButton = new QToolButton;
        connectButton->setFixedSize(40, 40);
        connectButton->setIconSize(QSize(40, 40));
        connectButton->setIcon(QIcon(":/device_quandrel_gui/icons/wifi_disconnect.png"));
        connectButton->setToolTip("Not connected.");
        connection->addWidget(connectButton);
        (new QWidget(tab))->hide(); // stands for that in which the plugin makes these two

        auto* const camera = new QGroupBox("Camera");
        auto* const cameraLayout = new QVBoxLayout(camera);
        auto* const resolution = new QHBoxLayout;
        cameraLayout->addLayout(resolution);
        resolution->addWidget(new QLabel("Resolution:"));
        resolution->addWidget(new QComboBox, 1);
        auto* const frequency = new QHBoxLayout;
        cameraLayout->addLayout(frequency);
        frequency->addWidget(new QLabel("Frequency:"));
        frequency->addWidget(new QLabel("0 Hz"));
        frequency->addStretch();
        layout->addWidget(camera);
        layout->addWidget(new QCheckBox("Disable drive system"));
        layout->addWidget(makeLog());
        return tab;
    }

    static QWidget* makeManipulator(QAbstractItemModel& positions)
    {
        auto* const tab = new QWidget;
        auto* const layout = new QVBoxLayout(tab);
        layout->setContentsMargins(0, 0, 0, 0);
        auto* const controls = new QHBoxLayout;
        controls->setContentsMargins(3, 3, 3, 3);
        layout->addLayout(controls);
        auto* const lines = new QVBoxLayout;
        controls->addLayout(lines);
        for (int line = 1; line <= 3; ++line)
            lines->addWidget(new QCheckBox(QString("Line %1 enabled").arg(line)));
        controls->addWidget(new QPushButton("Toggle torque"));
        controls->addStretch();
        auto* const splitter = new QSplitter(Qt::Vertical);
        layout->addWidget(splitter);
        auto* const table = new QTableView;
        table->setModel(&positions);
        splitter->addWidget(table);
        QTextEdit* const log = makeLog();
        splitter->addWidget(log);
        splitter->setSizes({10000, log->minimumSizeHint().height()});
        return tab;
    }

    static QWidget* makeLaser()
    {
        auto* const tab = new QWidget;
        auto* const layout = new QVBoxLayout(tab);
        auto* const form = new QFormLayout;
        layout->addLayout(form);
        for (int row = 0; row < scanRows; ++row)
            form->addRow(new QLabel("Number of range measurements:"), new QLabel("0"));
        layout->addWidget(makeLog());
        return tab;
    }
};

/// The texts of the plugin's table.
void fill(QStandardItemModel& model)
{
    QuietHost host;
    host.setPositions(positionCount, positionCount);
    const Dialog dialog(host);
    const QAbstractItemModel& source = *dialog.findChild<QTableView*>()->model();
    model.setColumnCount(source.columnCount());
    for (int row = 0; row < source.rowCount(); ++row) {
        for (int column = 0; column < source.columnCount(); ++column)
            model.setItem(row, column,
                          new QStandardItem(source.index(row, column).data().toString()));
    }
}

void show(QWidget& dialog)
{
    dialog.resize(500, 500);
    dialog.show();
    QCoreApplication::processEvents();
}

void build(benchmark::State& state, bool isShown)
{
    QuietHost host;
    host.setPositions(positionCount, positionCount);
    measure(state, [&] {
        Dialog dialog(host);
        notifyWidgets(host, [](plugin::gui::DeviceWidget& widget) { widget.translate(); });
        if (isShown)
            show(dialog);
    });
}

bool isAsLargeAsThePlugins(QStandardItemModel& positions)
{
    QuietHost host;
    host.setPositions(positionCount, positionCount);
    Dialog dialog(host);
    show(dialog);
    BareDialog bare(positions);
    show(bare);
    return bare.findChildren<QWidget*>().size() == dialog.findChildren<QWidget*>().size();
}

void buildBare(benchmark::State& state, bool isShown)
{
    QStandardItemModel positions;
    fill(positions);
    if (!isAsLargeAsThePlugins(positions))
        state.SkipWithError("the bare dialog has not as many widgets as the plugin's");
    measure(state, [&] {
        BareDialog bare(positions);
        if (isShown)
            show(bare);
    });
}

} // namespace

void addDialog(Ratios& ratios)
{
    for (const bool isShown : {false, true}) {
        const std::string name = isShown ? "dialog: built and first shown" : "dialog: built";
        const std::string bare = name + ", bare widgets";
        benchmark::RegisterBenchmark(name.c_str(), build, isShown);
        benchmark::RegisterBenchmark(bare.c_str(), buildBare, isShown);
        ratios.compare(name, bare, 1.1);
    }
}
