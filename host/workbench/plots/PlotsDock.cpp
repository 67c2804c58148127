// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/plots/PlotsDock.h"

#include "host/device/Device.h"
#include "host/workbench/plots/PlotView.h"
#include "host/workbench/values/OutsideText.h"
#include "host/workbench/values/TableFile.h"

#include <QAction>
#include <QComboBox>
#include <QCompleter>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPixmap>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace host::workbench::plots {

namespace {

using namespace std::chrono_literals;

constexpr auto valueInterval = 250ms; // nobody reads faster
constexpr int shownLines = 4;
constexpr std::chrono::seconds spans[] = {10s, 1min, 10min, 1h};
constexpr int spanAtFirst = 1;

enum ListColumn
{
    NameColumn,
    ValueColumn,
};

} // namespace

PlotsDock::PlotsDock(device::Device& device, QWidget* parent)
    : QDockWidget(parent),
      m_device(device),
      m_recorder(device, this),
      m_quantities(device, this),
      m_points(device, m_recorder),
      m_chooserLabel(new QLabel),
      m_chooser(new QComboBox),
      m_add(new QPushButton),
      m_spanLabel(new QLabel),
      m_span(new QComboBox),
      m_pause(new QPushButton),
      m_clear(new QPushButton),
      m_save(new QPushButton),
      m_view(new PlotView),
      m_list(new QTreeWidget),
      m_remove(new QPushButton)
{
    setObjectName("PlotsDock");
    m_view->setObjectName("plot");

    auto* content = new QWidget;
    auto* middle = new QHBoxLayout;
    middle->addWidget(m_view, 3);
    middle->addWidget(makeList(), 1);
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(makeControls());
    layout->addLayout(middle, 1);
    setWidget(content);
    setFocusProxy(m_chooser); // for who opens it

    connect(this, &QDockWidget::visibilityChanged, this, &PlotsDock::setActive);
    connect(&m_quantities, &Quantities::changed, this, &PlotsDock::showQuantities);
    connect(&m_recorder, &Recorder::recorded, this, &PlotsDock::onRecorded);
    connect(&device.remappings(), &device::connection::Remappings::changed, this,
            &PlotsDock::showLines);
    m_valueTimer.setInterval(valueInterval);
    connect(&m_valueTimer, &QTimer::timeout, this, &PlotsDock::refreshValues);

    translate();
    hide();
}

QWidget* PlotsDock::makeControls()
{
    m_chooser->setObjectName("chooser");
    m_chooser->setEditable(true);
    m_chooser->setInsertPolicy(QComboBox::NoInsert);
    m_chooser->setModel(&m_names);
    m_chooser->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_chooser->setMinimumContentsLength(16);
    m_chooser->completer()->setFilterMode(Qt::MatchContains);
    m_chooser->completer()->setCompletionMode(QCompleter::PopupCompletion);
    m_chooserLabel->setBuddy(m_chooser);
    m_add->setObjectName("add");
    m_span->setObjectName("span");
    for (std::size_t i = 0; i < std::size(spans); ++i)
        m_span->addItem(QString());
    m_span->setCurrentIndex(spanAtFirst);
    m_span->setSizeAdjustPolicy(QComboBox::AdjustToContents); // of each language
    m_span->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_spanLabel->setBuddy(m_span);
    m_pause->setObjectName("pause");
    m_pause->setCheckable(true);
    m_clear->setObjectName("clear");
    m_save->setObjectName("save");

    auto* controls = new QWidget;
    auto* layout = new QHBoxLayout(controls);
    layout->setContentsMargins({});
    layout->addWidget(m_chooserLabel);
    layout->addWidget(m_chooser, 1);
    for (QWidget* widget :
         std::initializer_list<QWidget*>{m_add, m_spanLabel, m_span, m_pause, m_clear, m_save})
        layout->addWidget(widget);

    connect(m_chooser, &QComboBox::editTextChanged, this, &PlotsDock::enable);
    connect(m_chooser->lineEdit(), &QLineEdit::returnPressed, this, &PlotsDock::addEntered);
    connect(m_add, &QPushButton::clicked, this, &PlotsDock::addEntered);
    connect(m_span, qOverload<int>(&QComboBox::currentIndexChanged), this, [this](int index) {
        m_view->setSpan(spans[index]);
        refreshPlot();
    });
    connect(m_pause, &QPushButton::toggled, this, &PlotsDock::setPaused);
    connect(m_clear, &QPushButton::clicked, this, &PlotsDock::clear);
    connect(m_save, &QPushButton::clicked, this, &PlotsDock::askForFile);
    return controls;
}

QWidget* PlotsDock::makeList()
{
    m_list->setObjectName("lines");
    m_list->setColumnCount(2);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setMinimumHeight(shownLines * m_list->fontMetrics().lineSpacing());
    m_list->setMinimumWidth(24 * m_list->fontMetrics().averageCharWidth());
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    m_list->header()->setSectionResizeMode(ValueColumn, QHeaderView::ResizeToContents);
    m_remove->setObjectName("remove");
    auto* removeKey = new QAction(m_list);
    removeKey->setShortcut(QKeySequence::Delete);
    removeKey->setShortcutContext(Qt::WidgetShortcut);
    m_list->addAction(removeKey);

    auto* list = new QWidget;
    auto* layout = new QVBoxLayout(list);
    layout->setContentsMargins({});
    layout->addWidget(m_list, 1);
    layout->addWidget(m_remove);

    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &PlotsDock::enable);
    connect(removeKey, &QAction::triggered, this, &PlotsDock::removeSelected);
    connect(m_remove, &QPushButton::clicked, this, &PlotsDock::removeSelected);
    return list;
}

QStringList PlotsDock::chosen() const
{
    QStringList keys;
    for (const auto& line : m_recorder.lines())
        keys += line->quantity.key();
    return keys;
}

void PlotsDock::choose(const QStringList& keys)
{
    for (const QString& key : keys) {
        if (const auto quantity = Quantity::fromKey(key))
            add(*quantity);
    }
}

void PlotsDock::changeEvent(QEvent* event)
{
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
    else if (event->type() == QEvent::PaletteChange)
        showColours();
}

void PlotsDock::translate()
{
    setWindowTitle(tr("Plots"));
    m_chooserLabel->setText(tr("Quantity:"));
    m_chooser->lineEdit()->setPlaceholderText(tr("Part of a name"));
    m_chooser->setAccessibleName(tr("Quantity to plot"));
    m_chooser->lineEdit()->setAccessibleName(m_chooser->accessibleName());
    m_chooser->setToolTip(tr("The arm's axes, the rates and numbers of the robot's topics, and the "
                             "device's variables"));
    m_add->setText(tr("Add"));
    m_add->setToolTip(tr("Plot this quantity as well; %1 at most.").arg(PlotView::colourCount));
    m_spanLabel->setText(tr("Time:"));
    m_span->setAccessibleName(tr("Time in sight"));
    const QString spanNames[] = {tr("10 s"), tr("1 min"), tr("10 min"), tr("1 h")};
    for (int i = 0; i < m_span->count(); ++i)
        m_span->setItemText(i, spanNames[i]);
    m_pause->setText(tr("Pause"));
    m_pause->setToolTip(tr("Freeze the plot to look back: drag it, or use the wheel or the keys ←, "
                           "→, + and −. Values are still recorded."));
    m_clear->setText(tr("Clear"));
    m_clear->setToolTip(tr("Discard all values; the lines stay."));
    m_save->setText(tr("Save …"));
    m_save->setToolTip(tr("Save all recorded values as comma-separated values."));
    m_view->setAccessibleName(tr("The chosen quantities over time"));
    m_view->setWords(tr("Choose a quantity above and press \"Add\"."));
    m_view->setLocale(QLocale());
    m_list->setHeaderLabels({tr("Line"), tr("Value")});
    m_list->setAccessibleName(tr("Lines of the plot"));
    m_remove->setText(tr("Remove"));
    m_remove->setToolTip(tr("Remove the selected line from the plot."));
    showQuantities();
    showLines();
}

void PlotsDock::setActive(bool active)
{
    m_recorder.setActive(active);
    m_quantities.setActive(active);
    if (active) {
        m_valueTimer.start();
        refreshPlot();
        refreshValues();
    } else {
        m_plot.cancel();
        m_valueTimer.stop();
    }
}

void PlotsDock::setPaused(bool paused)
{
    m_view->setLive(!paused);
    refreshPlot();
}

void PlotsDock::add(const Quantity& quantity)
{
    const auto& lines = m_recorder.lines();
    const auto found = std::find_if(lines.begin(), lines.end(),
                                    [&](const auto& line) { return line->quantity == quantity; });
    if (found == lines.end()) {
        if (lines.size() == PlotView::colourCount)
            return;
        int colour = 0;
        while (std::count(m_colours.begin(), m_colours.end(), colour) > 0)
            ++colour;
        m_colours.push_back(colour);
        m_recorder.add(quantity);
        showLines();
    }
    const auto index = found == lines.end() ? lines.size() - 1 : std::size_t(found - lines.begin());
    m_list->setCurrentItem(m_list->topLevelItem(static_cast<int>(index)));
}

void PlotsDock::addEntered()
{
    if (const auto quantity = m_quantities.find(m_chooser->currentText().trimmed())) {
        add(*quantity);
        m_chooser->clearEditText();
    }
}

void PlotsDock::removeSelected()
{
    const int index = m_list->indexOfTopLevelItem(m_list->currentItem());
    if (index < 0)
        return;
    m_recorder.remove(index);
    m_colours.erase(m_colours.begin() + index);
    showLines();
    m_list->setCurrentItem(m_list->topLevelItem(std::min(index, m_list->topLevelItemCount() - 1)));
}

void PlotsDock::clear()
{
    m_recorder.clear();
    refreshPlot();
    refreshValues();
}

/// What was entered stays, and so does a list that somebody chooses from.
void PlotsDock::showQuantities()
{
    QStringList names;
    for (const Quantity& quantity : m_quantities.all())
        names += quantity.inWords(m_device);
    if (names != m_names.stringList()) {
        const QString entered = m_chooser->currentText();
        m_names.setStringList(names);
        m_chooser->setCurrentIndex(-1);
        m_chooser->setEditText(entered);
    }
    enable();
}

void PlotsDock::showLines()
{
    const int current = m_list->indexOfTopLevelItem(m_list->currentItem());
    m_list->clear();
    std::vector<PlotView::Shown> shown;
    for (std::size_t i = 0; i < m_recorder.lines().size(); ++i) {
        const Line& line = *m_recorder.lines()[i];
        const QString name = line.quantity.inWords(m_device);
        auto* const item = new QTreeWidgetItem(m_list, {name});
        item->setToolTip(NameColumn, values::plainToolTip(name));
        item->setTextAlignment(ValueColumn, Qt::AlignRight | Qt::AlignVCenter);
        shown.push_back(
            {&line.series, m_colours[i], line.quantity.kind == Quantity::Kind::Variable});
    }
    m_list->setCurrentItem(m_list->topLevelItem(current));
    m_view->setLines(shown);
    showColours();
    refreshValues();
    if (isVisible()) // and otherwise when it is opened
        refreshPlot();
    enable();
}

void PlotsDock::showColours()
{
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        QPixmap swatch(m_list->iconSize().isValid() ? m_list->iconSize() : QSize(14, 14));
        swatch.fill(PlotView::colour(m_colours[static_cast<std::size_t>(i)], palette()));
        QIcon icon(swatch);
        icon.addPixmap(swatch, QIcon::Selected); // not tinted
        m_list->topLevelItem(i)->setIcon(NameColumn, icon);
    }
}

void PlotsDock::enable()
{
    const bool hasLines = !m_recorder.lines().empty();
    m_add->setEnabled(m_recorder.lines().size() < PlotView::colourCount &&
                      m_quantities.find(m_chooser->currentText().trimmed()));
    m_remove->setEnabled(!m_list->selectedItems().isEmpty());
    m_clear->setEnabled(hasLines);
    m_save->setEnabled(hasLines);
}

void PlotsDock::onRecorded()
{
    if (m_view->isLive())
        m_plot.request(m_view->refreshInterval());
}

void PlotsDock::refreshPlot()
{
    m_view->refresh(Recorder::now());
}

void PlotsDock::refreshValues()
{
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        const Line& line = *m_recorder.lines()[static_cast<std::size_t>(i)];
        const auto value = line.series.current(Recorder::now());
        QString unit = line.quantity.unit(m_device);
        if (!unit.isEmpty() && unit.at(0).isLetter())
            unit.prepend(' ');
        const QString words =
            value ? QLocale().toString(*value, 'g', 5) + unit : QStringLiteral("–");
        m_list->topLevelItem(i)->setText(ValueColumn, words);
    }
}

void PlotsDock::askForFile()
{
    values::saveTableAs([this] { return values::tableText(m_points); },
                        tr("Save the plotted values"), *this,
                        [this](const QString& words) { Q_EMIT problem(words); });
}

} // namespace host::workbench::plots
