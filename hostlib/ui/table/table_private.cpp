#include "hostlib/ui/table/table_private.h"

#include <QHeaderView>

MRL_H_TableWidget::Private::Private(MRL_H_TableWidget& table)
    : columns(table), order(table), changes(table, order), entry(table, changes), contextMenu(table)
{
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
