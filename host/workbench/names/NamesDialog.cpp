// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/names/NamesDialog.h"

#include "host/device/Device.h"
#include "host/workbench/names/JointsBox.h"
#include "host/workbench/names/PlainLabel.h"

#include <QCompleter>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QStringListModel>
#include <QVBoxLayout>

namespace host::workbench::names {

using device::connection::Offer;
using device::connection::Remappings;

namespace {

enum Column
{
    NameColumn,
    PurposeColumn,
    TheirsColumn,
    StateColumn,
    ColumnCount,
};

constexpr int fewestLines = 12;

void makeBold(QWidget* widget, bool isBold)
{
    QFont font = widget->font();
    font.setBold(isBold);
    widget->setFont(font);
}

} // namespace

NamesDialog::NamesDialog(device::Device& device, QWidget* parent)
    : QDialog(parent),
      m_device(device),
      m_hint(makePlainLabel()),
      m_topics(new QLabel),
      m_commands(new QLabel),
      m_services(new QLabel),
      m_joints(new QLabel),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Close)),
      m_reset(m_buttons->addButton(QString(), QDialogButtonBox::ResetRole))
{
    setObjectName("NamesDialog");
    auto* content = new QWidget;
    auto* grid = new QGridLayout(content);
    grid->addWidget(m_hint, 0, 0, 1, ColumnCount);
    for (int column = 0; column < ColumnCount; ++column) {
        m_titles.push_back(new QLabel);
        grid->addWidget(m_titles.back(), 1, column);
    }
    grid->setColumnStretch(PurposeColumn, 2);
    grid->setColumnStretch(TheirsColumn, 2);
    grid->setColumnStretch(StateColumn, 2);
    grid->setHorizontalSpacing(12);
    m_rows.reserve(Remappings::all().size());
    addSection(Remappings::Kind::Topic, m_topics, grid);
    addSection(Remappings::Kind::Command, m_commands, grid);
    addSection(Remappings::Kind::Service, m_services, grid);
    makeBold(m_joints, true);
    grid->addWidget(m_joints, grid->rowCount(), 0, 1, ColumnCount);
    grid->addWidget(new JointsBox(device.joints()), grid->rowCount(), 0, 1, ColumnCount);
    grid->setRowStretch(grid->rowCount(), 1);

    auto* area = new QScrollArea;
    area->setWidget(content);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus); // it follows the fields
    area->setMinimumHeight(fewestLines * fontMetrics().lineSpacing());
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(area, 1);
    layout->addWidget(m_buttons);

    // Return is for the field that it was pressed in.
    const auto buttons = m_buttons->buttons();
    for (QAbstractButton* button : buttons)
        qobject_cast<QPushButton*>(button)->setAutoDefault(false);
    m_reset->setObjectName("reset");
    connect(m_reset, &QPushButton::clicked, this, [this] {
        m_device.remappings().reset();
        m_device.joints().reset();
        discard();
    });
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    connect(&device.offer(), &Offer::changed, this, &NamesDialog::refresh);
    connect(&device, &device::Device::connectionStateChanged, this, &NamesDialog::refresh);

    translate();
    const int character = fontMetrics().averageCharWidth();
    setMinimumWidth(40 * character);
    resize(130 * character, 80 * character);
}

/// A field is left, at the latest, by this, and takes effect while all is still there.
NamesDialog::~NamesDialog()
{
    hide();
}

void NamesDialog::addSection(Remappings::Kind kind, QLabel* title, QGridLayout* grid)
{
    makeBold(title, true);
    grid->addWidget(title, grid->rowCount(), 0, 1, ColumnCount);
    for (const Remappings::Entry& entry : Remappings::all()) {
        if (entry.kind == kind)
            addRow(entry, grid);
    }
}

void NamesDialog::addRow(const Remappings::Entry& entry, QGridLayout* grid)
{
    const int line = grid->rowCount();
    const Row row{entry,
                  new QLabel,
                  makePlainLabel(),
                  new QLineEdit,
                  makePlainLabel(),
                  makePlainLabel(),
                  new QStringListModel(this)};
    row.name->setTextFormat(Qt::PlainText);
    row.name->setText(entry.name);
    row.name->setToolTip(entry.type);
    row.name->setBuddy(row.theirs);
    row.theirs->setObjectName(entry.name);
    row.theirs->setMinimumWidth(24 * fontMetrics().averageCharWidth());
    row.problem->setObjectName(entry.name + " problem");
    row.state->setObjectName(entry.name + " state");
    auto* completer = new QCompleter(row.candidates, row.theirs);
    completer->setFilterMode(Qt::MatchContains);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    row.theirs->setCompleter(completer);

    grid->addWidget(row.name, line, NameColumn);
    grid->addWidget(row.purpose, line, PurposeColumn);
    grid->addWidget(row.theirs, line, TheirsColumn);
    grid->addWidget(row.state, line, StateColumn);
    grid->addWidget(row.problem, line + 1, PurposeColumn, 1, -1);
    row.problem->hide();

    connect(row.theirs, &QLineEdit::textChanged, this, [this, row] { check(row); });
    connect(row.theirs, &QLineEdit::editingFinished, this, [this, row] { take(row); });
    connect(completer, QOverload<const QString&>::of(&QCompleter::activated), this,
            [this, row] { take(row); });
    m_rows.push_back(row);
}

void NamesDialog::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

/// Something may have been started on the robot since it was asked last.
void NamesDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    discard();
    m_device.offer().ask();
}

void NamesDialog::translate()
{
    setWindowTitle(tr("Names used by the robot of %1").arg(m_device.name()));
    m_hint->setText(
        tr("Enter what this robot calls the topics and services used here. Type \"/\" in a field "
           "to list what the robot offers; clear a field to restore the standard name."));
    const QString titles[] = {tr("Name here"), tr("Purpose"), tr("Name on the robot"), tr("State")};
    for (int column = 0; column < ColumnCount; ++column)
        m_titles[static_cast<std::size_t>(column)]->setText(titles[column]);
    m_topics->setText(tr("Topics"));
    m_commands->setText(tr("Topics for commands"));
    m_services->setText(tr("Services"));
    m_joints->setText(tr("Joints of the arm"));
    m_reset->setText(tr("&Reset to standard"));
    m_reset->setToolTip(tr("Restores the names that are used here, and the joints."));
    for (const Row& row : m_rows) {
        row.purpose->setText(row.entry.purpose());
        row.theirs->setAccessibleName(tr("Name of %1 on the robot").arg(row.entry.name));
        row.theirs->setAccessibleDescription(row.entry.purpose());
        row.theirs->setToolTip(tr("Type: %1").arg(row.entry.type));
    }
    refresh();
}

/// A name that was entered and refused stays in the field, to be corrected.
void NamesDialog::refresh()
{
    for (const Row& row : m_rows) {
        const QString theirs = m_device.remappings().theirs(row.entry.name);
        if (!row.theirs->isModified())
            row.theirs->setText(theirs);
        makeBold(row.theirs, theirs != row.entry.name);
        row.state->setText(stateInWords(row.entry));
        const QStringList candidates = m_device.offer().candidates(row.entry);
        if (candidates != row.candidates->stringList()) // the list may be open
            row.candidates->setStringList(candidates);
        check(row);
    }
}

/// All fields hold what is in effect.
void NamesDialog::discard()
{
    for (const Row& row : m_rows)
        row.theirs->setModified(false);
    refresh();
}

void NamesDialog::check(const Row& row)
{
    const QString text = row.theirs->text().trimmed();
    const QString problem = text.isEmpty() ? QString() : Remappings::fault(text);
    row.problem->setText(problem);
    row.problem->setVisible(!problem.isEmpty());
}

void NamesDialog::take(const Row& row)
{
    const QString text = row.theirs->text().trimmed();
    if (!m_device.remappings().set(row.entry.name, text.isEmpty() ? row.entry.name : text))
        return;
    row.theirs->setModified(false);
    row.theirs->setText(m_device.remappings().theirs(row.entry.name));
}

QString NamesDialog::stateInWords(const Remappings::Entry& entry) const
{
    if (m_device.connectionState() < device::connection::Connection::connected)
        return tr("not connected");
    switch (m_device.offer().state(entry.name)) {
    case Offer::State::Unknown:
        return tr("unknown");
    case Offer::State::Offered:
        return tr("offered");
    case Offer::State::Missing:
        return entry.isRequired ? tr("not offered") : tr("not offered, not needed");
    case Offer::State::OtherType:
        return tr("another type: %1").arg(m_device.offer().typeOf(entry.name));
    }
    return {};
}

} // namespace host::workbench::names
