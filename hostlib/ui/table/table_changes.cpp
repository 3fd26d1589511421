#include <QHeaderView>

#include "hostlib/ui/table/table_private.h"

namespace {

/// A cell whose row isn't where it was is looked for this far on both sides first: single rows come and go.
constexpr int nearRows = 16;

} // namespace

MRL_H_TableWidget::Private::Private(MRL_H_TableWidget& owner) : table(owner)
{
    // Qt's own way of reporting goes through the model for each cell, searches the cells for the item that
    // changed, and sorts in the middle of it.
    QAbstractItemModel* model = table.model();
    const bool reportOff = QObject::disconnect(model, SIGNAL(dataChanged(QModelIndex, QModelIndex)), &table,
                                               SLOT(_q_emitItemChanged(QModelIndex)));
    Q_ASSERT(reportOff);
    Q_UNUSED(reportOff)
    QObject::connect(model, &QAbstractItemModel::dataChanged, &context,
                     [this](const QModelIndex& from, const QModelIndex& to) { modelChanged(from, to); });
    QObject::connect(model, &QAbstractItemModel::rowsInserted, &context, [this] {
        if (!appending) {
            noteAllUnsorted();
        }
    });
    QObject::connect(model, &QAbstractItemModel::modelReset, &context, [this] {
        clearUnsorted();
        noteAllUnsorted();
    });
    QObject::connect(model, &QAbstractItemModel::columnsInserted, &context, [this] { renumberColumns(); });
    QObject::connect(model, &QAbstractItemModel::columnsRemoved, &context, [this] { renumberColumns(); });
    table.horizontalHeader()->setSortIndicator(0, Qt::AscendingOrder);
    renumberColumns();
}

MRL_H_TableWidget::Private::~Private() = default;

void MRL_H_TableWidget::Private::valueChanged(MRL_H_TwItem& cell)
{
    const MRL_H_TwColumn* column = MRL_H_TwCellAccess::column(cell);
    if (cell.tableWidget() != nullptr && column != nullptr && column->table == cell.tableWidget()) {
        of(*column->table).noteChange(cell);
    } else if (cell.tableWidget() != nullptr) {
        cell.tableWidget()->viewport()->update();
    }
}

void MRL_H_TableWidget::Private::looksChanged(const MRL_H_TwItem& cell)
{
    const MRL_H_TwColumn* column = MRL_H_TwCellAccess::column(cell);
    if (cell.tableWidget() != nullptr && column != nullptr && column->table == cell.tableWidget()) {
        of(*column->table).noteLooks();
    } else if (cell.tableWidget() != nullptr) {
        cell.tableWidget()->viewport()->update();
    }
}

int MRL_H_TableWidget::Private::rowOf(const MRL_H_TwItem& cell) const
{
    const int column = MRL_H_TwCellAccess::column(cell)->position;
    const int rows = table.rowCount();
    int& seen = MRL_H_TwCellAccess::row(cell);
    for (int distance = 0; seen >= 0 && distance <= nearRows; ++distance) {
        if (table.item(seen + distance, column) == &cell) {
            return seen += distance;
        }
        if (table.item(seen - distance, column) == &cell) {
            return seen -= distance;
        }
    }
    seen = -1;
    for (int row = 0; row < rows; ++row) {
        if (const MRL_H_TwItem* other = MRL_H_TwItem::fromItem(table.item(row, column))) {
            MRL_H_TwCellAccess::row(*other) = row;
        }
    }
    return seen;
}

void MRL_H_TableWidget::Private::noteChange(MRL_H_TwItem& cell)
{
    const int column = MRL_H_TwCellAccess::column(cell)->position;
    if (column == sortColumn) {
        noteUnsorted(cell);
    }
    if (table.signalsBlocked()) {
        valuesDirty = true;
        noteLooks();
        return;
    }
    const int row = rowOf(cell);
    if (row >= 0) {
        report(row, column, &cell);
    }
}

void MRL_H_TableWidget::Private::noteLooks()
{
    if (!table.signalsBlocked()) {
        table.viewport()->update();
        return;
    }
    looksDirty = true;
    if (catchUpPosted) {
        return;
    }
    // Not everybody blocks signals with this library's blocker, which calls catchUp() itself.
    catchUpPosted = true;
    QMetaObject::invokeMethod(
        &context,
        [this] {
            catchUpPosted = false;
            catchUp();
        },
        Qt::QueuedConnection);
}

void MRL_H_TableWidget::Private::report(int row, int column, QTableWidgetItem* item)
{
    const MRL_H_TwReportScope scope(*this);
    const QPointer<MRL_H_TableWidget> alive(&table);
    const QModelIndex index = table.model()->index(row, column);
    emit table.model()->dataChanged(index, index, {Qt::DisplayRole, Qt::EditRole});
    if (alive != nullptr) {
        emit table.itemChanged(item);
    }
    if (alive != nullptr) {
        emit table.cellChanged(row, column);
    }
}

void MRL_H_TableWidget::Private::modelChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight)
{
    if (topLeft != bottomRight) {
        return;
    }
    QTableWidgetItem* item = table.item(topLeft.row(), topLeft.column());
    if (MRL_H_TwItem::fromItem(item) != nullptr) {
        // Put here by setItem, or reported by its table, which knows whether it is out of order.
        if (topLeft.column() == sortColumn && reports == 0) {
            noteAllUnsorted();
        }
        return;
    }
    if (topLeft.column() == sortColumn) {
        noteAllUnsorted();
    }
    if (item == nullptr || table.signalsBlocked()) {
        return;
    }
    const MRL_H_TwReportScope scope(*this); // a plain item: told as QTableWidget tells it
    const QPointer<MRL_H_TableWidget> alive(&table);
    emit table.itemChanged(item);
    if (alive != nullptr) {
        emit table.cellChanged(topLeft.row(), topLeft.column());
    }
}

void MRL_H_TableWidget::Private::catchUp()
{
    if (table.signalsBlocked()) {
        return;
    }
    if (valuesDirty && table.rowCount() > 0 && table.columnCount() > 0) {
        const QAbstractItemModel* model = table.model();
        emit table.model()->dataChanged(model->index(0, 0),
                                        model->index(table.rowCount() - 1, table.columnCount() - 1));
    } else if (looksDirty) {
        table.viewport()->update();
    }
    valuesDirty = false;
    looksDirty = false;
    sortIfDue();
}
