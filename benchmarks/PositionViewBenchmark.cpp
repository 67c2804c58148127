// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Benchmarks.h"
#include "PositionDelegate.h"
#include "PositionModel.h"
#include "PositionView.h"
#include "QuietHost.h"
#include "Ratios.h"
#include "tests/src/Positions.h"

#include <QHeaderView>
#include <QImage>
#include <QStandardItemModel>

#include <memory>

namespace {

const int columnWidth = 80;
const int rowHeight = 28; // no less than every Qt allows

/// Paints the whole view into a picture that every cell has room in.
void paint(benchmark::State& state, QTableView& view)
{
    view.horizontalHeader()->setDefaultSectionSize(columnWidth);
    view.verticalHeader()->setDefaultSectionSize(rowHeight);
    QAbstractItemModel& model = *view.model();
    view.resize(columnWidth * (model.columnCount() + 2), rowHeight * (model.rowCount() + 3));
    view.ensurePolished();
    QImage picture(view.size(), QImage::Format_ARGB32_Premultiplied);
    view.render(&picture);
    const QModelIndex last = model.index(model.rowCount() - 1, model.columnCount() - 1);
    if (!view.viewport()->rect().contains(view.visualRect(last)))
        state.SkipWithError("the last cell is not painted");
    measure(state, [&] { view.render(&picture); });
}

void paintPositions(benchmark::State& state, int rows)
{
    QuietHost host;
    host.setPositions(rows, rows);
    Owner owner(host);
    PositionModel model(&owner);
    PositionDelegate delegate(nullptr);
    PositionView view(&owner);
    view.setModel(&model);
    view.setItemDelegate(&delegate);
    paint(state, view);
}

/// The same texts in a table of Qt's own.
void paintItems(benchmark::State& state, int rows, bool withPositionDelegate)
{
    QuietHost host;
    host.setPositions(rows, rows);
    Owner owner(host);
    const PositionModel source(&owner);
    QStandardItemModel model(rows, source.columnCount());
    for (int row = 0; row < rows; ++row) {
        model.setHeaderData(row, Qt::Vertical, source.headerData(row, Qt::Vertical));
        for (int column = 0; column < source.columnCount(); ++column)
            model.setItem(row, column,
                          new QStandardItem(source.index(row, column).data().toString()));
    }
    for (int column = 0; column < source.columnCount(); ++column)
        model.setHeaderData(column, Qt::Horizontal, source.headerData(column, Qt::Horizontal));
    PositionDelegate delegate(nullptr);
    QTableView view(&owner);
    view.setModel(&model);
    if (withPositionDelegate)
        view.setItemDelegate(&delegate);
    paint(state, view);
}

} // namespace

void addPositionView(Ratios& ratios)
{
    for (const int rows : {16, 1000}) {
        const std::string suffix = ", " + std::to_string(rows) + " x 10";
        const std::string positions = "table: repaint" + suffix;
        const std::string items = "table: repaint of items" + suffix;
        const std::string delegate = "table: same, our delegate" + suffix;
        benchmark::RegisterBenchmark(positions.c_str(), paintPositions, rows);
        benchmark::RegisterBenchmark(items.c_str(), paintItems, rows, false);
        benchmark::RegisterBenchmark(delegate.c_str(), paintItems, rows, true);
        ratios.compare(positions, items, 1.25);
        ratios.compare(positions, delegate, 1.25);
    }
}
