// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_POSITIONTABLE_H
#define QUANDREL_POSITIONTABLE_H

#include "Delivery.h"
#include "PositionDelegate.h"
#include "PositionModel.h"
#include "PositionView.h"
#include "Positions.h"

#include <QTest>

#include <memory>

/// A device widget around the view of a model.
class TableOwner : public Owner
{
public:
    explicit TableOwner(plugin::gui::DeviceDelegate& host)
        : Owner(host),
          model(new PositionModel(this)),
          view(new PositionView(this))
    {
        view->setModel(model);
        view->setItemDelegate(new PositionDelegate(this));
        resize(1200, 500);
        view->setGeometry(rect());
    }

    // The view asks even while its window closes.
    ~TableOwner() override { view->setModel(nullptr); }

    using plugin::gui::DeviceWidget::update;
    void update(const plugin::gui::DeviceHistoryBundle& bundle) override { model->update(bundle); }

    PositionModel* const model;
    PositionView* const view;
};

/// The table of stored positions on a host of its own, as it is in the window of a tab.
struct PositionTable
{
    FakeHost host;
    std::unique_ptr<TableOwner> owner;

    PositionTable(int count, int maximum)
    {
        setPositions(host, count, maximum);
        owner = std::make_unique<TableOwner>(host);
    }

    PositionView& view() const { return *owner->view; }

    /// False where no window comes up.
    bool show() const
    {
        owner->show();
        owner->activateWindow();
        const bool active = QTest::qWaitForWindowActive(owner.get(), 20000);
        host.calls.clear();
        return active;
    }

    /// In the viewport: the middle of the cell, or below all rows where there is none.
    QPoint place(int row, int column) const
    {
        const QModelIndex index = view().model()->index(row, column);
        return index.isValid() ? view().visualRect(index).center()
                               : QPoint(20, view().viewport()->height() - 5);
    }

    /// Runs the menu's event loop where it opens one; the view may be gone afterwards.
    void press(int row, int column, Qt::MouseButton button = Qt::RightButton) const
    {
        QTest::mousePress(view().viewport(), button, Qt::NoModifier, place(row, column));
    }
};

#endif
