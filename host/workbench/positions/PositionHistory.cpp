// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/positions/PositionHistory.h"

#include "host/device/Device.h"
#include "host/device/variables/Positions.h"
#include "host/device/variables/StoredValue.h"

#include <QUndoCommand>

#include <utility>

namespace host::workbench::positions {

using device::variables::Variables;
using ::plugin::gui::VariableKind;

namespace {

constexpr int mostChanges = 100;

} // namespace

QString PositionHistory::titleOf(int added)
{
    if (added == 0)
        return tr("edit positions");
    if (added > 0)
        return added == 1 ? tr("add a position") : tr("add %1 positions").arg(added);
    return added == -1 ? tr("remove a position") : tr("remove %1 positions").arg(-added);
}

class PositionHistory::Change : public QUndoCommand
{
public:
    Change(PositionHistory& history, const QString& title, Snapshot before, Snapshot after)
        : QUndoCommand(title),
          m_history(history),
          m_before(std::move(before)),
          m_after(std::move(after))
    {
    }

    void undo() override { m_history.restore(m_before, text()); }

    void redo() override
    {
        if (std::exchange(m_isUndone, true)) // at first it is done already
            m_history.restore(m_after, text());
    }

private:
    PositionHistory& m_history;
    Snapshot m_before;
    Snapshot m_after;
    bool m_isUndone = false;
};

PositionHistory::PositionHistory(device::Device& device, QObject* parent)
    : QObject(parent),
      m_device(device),
      m_present(snapshot())
{
    m_stack.setUndoLimit(mostChanges);
    m_timer.setSingleShot(true);
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &PositionHistory::take);
    connect(&device.variables(), &Variables::touched, this, [this](const Variables::Key& key) {
        if (key.first == VariableKind::Config && device::variables::isOfPositions(key.second))
            m_timer.start();
    });
}

PositionHistory::Snapshot PositionHistory::snapshot() const
{
    Snapshot snapshot;
    const Variables& variables = m_device.variables();
    for (const Variables::Key& key : variables.keys()) {
        if (key.first != VariableKind::Config || !device::variables::isOfPositions(key.second))
            continue;
        if (const auto stored =
                device::variables::toStored(variables.value(key.first, key.second.c_str())))
            snapshot.emplace(key.second, *stored);
    }
    return snapshot;
}

void PositionHistory::take()
{
    Snapshot before = std::exchange(m_present, snapshot());
    if (m_present == before)
        return;
    const auto count = [](const Snapshot& positions) {
        const auto found = positions.find("num_pos");
        return found == positions.end() ? 0 : found->second.value("value").toInt();
    };
    const QString title = titleOf(count(m_present) - count(before));
    m_stack.push(new Change(*this, title, std::move(before), m_present));
    Q_EMIT changed();
}

void PositionHistory::restore(const Snapshot& wanted, const QString& title)
{
    const Snapshot present = snapshot();
    m_device.beginTransaction(title);
    for (const auto& [name, value] : wanted) {
        const auto held = present.find(name);
        if (held == present.end() || held->second != value)
            m_device.write(VariableKind::Config, name.c_str(),
                           device::variables::fromStored(value).value());
    }
    m_device.endTransaction();
    m_present = snapshot();
    Q_EMIT changed();
}

} // namespace host::workbench::positions
