#include "hostlib/ui/table/table_private.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include "hostlib/ui/table/row_moves.h"

namespace {

/// Puts a selection in the place of the table's own, with the connections that QTableWidget makes only once.
void installSelection(MRL_H_TableWidget& table, mrl::table::FilteredSelection& selection)
{
    const std::unique_ptr<QItemSelectionModel> former(table.selectionModel()); // a view doesn't delete it
    table.setSelectionModel(&selection);
    const bool told = QObject::connect(&selection, SIGNAL(currentChanged(QModelIndex, QModelIndex)), &table,
                                       SLOT(_q_emitCurrentItemChanged(QModelIndex, QModelIndex)));
    Q_ASSERT(told);
    Q_UNUSED(told)
    QObject::connect(&selection, &QItemSelectionModel::selectionChanged, &table,
                     &QTableWidget::itemSelectionChanged);
}

} // namespace

MRL_H_TableWidget::Private::Private(MRL_H_TableWidget& owner)
    : table(owner), columns(table), order(table), changes(table, order), entry(table, changes),
      contextMenu(table), selection(new mrl::table::FilteredSelection(table)), marks(table)
{
    installSelection(table, *selection);
    // Qt's own way of reporting goes through the model for each cell, searches the cells for the item that
    // changed, and sorts in the middle of it.
    QAbstractItemModel* model = table.model();
    const bool reportOff = QObject::disconnect(model, SIGNAL(dataChanged(QModelIndex, QModelIndex)), &table,
                                               SLOT(_q_emitItemChanged(QModelIndex)));
    Q_ASSERT(reportOff);
    Q_UNUSED(reportOff)
    QObject::connect(
        model, &QAbstractItemModel::dataChanged, &context,
        [this](const QModelIndex& from, const QModelIndex& to) { changes.noteModelChange(from, to); });
    QObject::connect(model, &QAbstractItemModel::rowsInserted, &context, [this] {
        if (!appending) {
            order.noteAllUnsorted();
            breakJournal();
        }
    });
    QObject::connect(model, &QAbstractItemModel::rowsRemoved, &context, [this] {
        if (!removing) {
            breakJournal();
        }
    });
    QObject::connect(model, &QAbstractItemModel::modelReset, &context, [this] {
        order.noteAllUnsorted();
        breakJournal();
    });
    QObject::connect(model, &QAbstractItemModel::columnsInserted, &context, [this] { columns.renumber(); });
    QObject::connect(model, &QAbstractItemModel::columnsRemoved, &context, [this] { columns.renumber(); });
    table.horizontalHeader()->setSortIndicator(0, Qt::AscendingOrder);
    columns.renumber();
}

void MRL_H_TableWidget::Private::breakJournal()
{
    if (journal) {
        journal->noteBroken();
    }
}

mrl::table::HeldCells MRL_H_TableWidget::Private::takeRows(const std::vector<int>& rows)
{
    std::vector<int> kept;
    kept.reserve(static_cast<std::size_t>(table.rowCount()) - rows.size());
    auto next = rows.begin();
    for (int row = 0; row < table.rowCount(); ++row) {
        if (next != rows.end() && *next == row) {
            ++next;
        } else {
            kept.push_back(row);
        }
    }
    mrl::table::HeldCells cells = mrl::table::dropRows(table, kept, rows);
    const QScopedValueRollback<bool> guard(removing, true);
    table.model()->removeRows(static_cast<int>(kept.size()), static_cast<int>(rows.size()));
    return cells;
}

void MRL_H_TableWidget::Private::putRows(mrl::table::HeldCells cells)
{
    const int columnCount = table.columnCount();
    const int first = table.rowCount();
    {
        const QScopedValueRollback<bool> guard(appending, true);
        table.setRowCount(first + static_cast<int>(cells.size()) / columnCount);
    }
    const QSignalBlocker quiet(table.model());
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const int row = first + static_cast<int>(i) / columnCount;
        const int column = static_cast<int>(i) % columnCount;
        if (MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(cells[i].get())) {
            MRL_H_TwCellAccess::row(*cell) = row;
            MRL_H_TwCellAccess::noted(*cell) = 0;
        }
        if (cells[i]) {
            table.setItem(row, column, cells[i].release()); // the table's
        }
    }
}
