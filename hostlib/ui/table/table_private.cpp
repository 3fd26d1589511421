#include "hostlib/ui/table/table_private.h"

#include <QHeaderView>

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

MRL_H_TableWidget::Private::Private(MRL_H_TableWidget& table)
    : columns(table), order(table), changes(table, order), entry(table, changes), contextMenu(table),
      selection(new mrl::table::FilteredSelection(table)), marks(table)
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
        }
    });
    QObject::connect(model, &QAbstractItemModel::modelReset, &context, [this] { order.noteAllUnsorted(); });
    QObject::connect(model, &QAbstractItemModel::columnsInserted, &context, [this] { columns.renumber(); });
    QObject::connect(model, &QAbstractItemModel::columnsRemoved, &context, [this] { columns.renumber(); });
    table.horizontalHeader()->setSortIndicator(0, Qt::AscendingOrder);
    columns.renumber();
}
