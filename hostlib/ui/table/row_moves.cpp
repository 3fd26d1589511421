#include "hostlib/ui/table/row_moves.h"

#include <QSignalBlocker>

#include "hostlib/ui/table/cell_access.h"

namespace mrl::table {

namespace {

/// QAbstractItemModel keeps these to itself; the table moves rows for the model, so it needs them.
struct ModelAccess : QAbstractItemModel
{
    static QModelIndexList persistent(QAbstractItemModel& model)
    {
        return (model.*(&ModelAccess::persistentIndexList))();
    }
    static void changePersistent(QAbstractItemModel& model, const QModelIndexList& from,
                                 const QModelIndexList& to)
    {
        (model.*(&ModelAccess::changePersistentIndexList))(from, to);
    }
};

/// @param target where each row stands now
void movePersistent(QAbstractItemModel& model, const std::vector<int>& target)
{
    const QModelIndexList from = ModelAccess::persistent(model);
    QModelIndexList to;
    to.reserve(from.size());
    for (const QModelIndex& index : from) {
        to.append(index.row() < static_cast<int>(target.size())
                      ? model.index(target[static_cast<std::size_t>(index.row())], index.column())
                      : index);
    }
    ModelAccess::changePersistent(model, from, to);
}

/// The first row that an order moves, the number of rows for none.
int firstMoved(const std::vector<int>& order)
{
    int row = 0;
    while (row < static_cast<int>(order.size()) && order[static_cast<std::size_t>(row)] == row) {
        ++row;
    }
    return row;
}

/// The row behind the last one that an order moves, 0 for none.
int endMoved(const std::vector<int>& order)
{
    int end = static_cast<int>(order.size());
    while (end > 0 && order[static_cast<std::size_t>(end - 1)] == end - 1) {
        --end;
    }
    return end;
}

/// Puts a cell, which may be null, into an empty place. @param row the row that the cell remembers
void place(QTableWidget& table, int at, int column, QTableWidgetItem* item, int row)
{
    if (item != nullptr) {
        table.setItem(at, column, item);
    }
    if (MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(item)) {
        MRL_H_TwCellAccess::row(*cell) = row;
    }
}

/// All out and all in again, row by row: along the cycles of the permutation each row would be met at a place
/// far from the last, and the walk through memory would cost more than all the rest.
void permuteCells(QTableWidget& table, const std::vector<int>& order)
{
    const int columns = table.columnCount();
    const int first = firstMoved(order);
    const int end = endMoved(order);
    std::vector<QTableWidgetItem*> cells; // the table's but for the length of this walk
    cells.reserve(static_cast<std::size_t>(end - first) * static_cast<std::size_t>(columns));
    for (int row = first; row < end; ++row) {
        for (int column = 0; column < columns; ++column) {
            cells.push_back(table.takeItem(row, column));
        }
    }
    for (int row = first; row < end; ++row) {
        const auto from = static_cast<std::size_t>(order[static_cast<std::size_t>(row)] - first);
        QTableWidgetItem* const* moved = &cells[from * static_cast<std::size_t>(columns)];
        for (int column = 0; column < columns; ++column, ++moved) {
            place(table, row, column, *moved, row);
        }
    }
}

} // namespace

LayoutChange::LayoutChange(QAbstractItemModel& model) : m_model(model)
{
    emit m_model.layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
}

LayoutChange::~LayoutChange() { emit m_model.layoutChanged({}, QAbstractItemModel::VerticalSortHint); }

bool permuteRows(QTableWidget& table, const std::vector<int>& order)
{
    if (endMoved(order) == 0) {
        return false;
    }
    QAbstractItemModel& model = *table.model();
    const LayoutChange change(model);
    const QSignalBlocker quiet(&model);
    std::vector<int> target(order.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        target[static_cast<std::size_t>(order[i])] = static_cast<int>(i);
    }
    permuteCells(table, order);
    movePersistent(model, target);
    return true;
}

std::vector<std::unique_ptr<QTableWidgetItem>> dropRows(QTableWidget& table, const std::vector<int>& kept,
                                                        const std::vector<int>& gone)
{
    QAbstractItemModel& model = *table.model();
    const int columns = table.columnCount();
    const LayoutChange change(model);
    const QSignalBlocker quiet(&model);
    std::vector<int> target(kept.size() + gone.size());
    std::vector<std::unique_ptr<QTableWidgetItem>> taken;
    taken.reserve(gone.size() * static_cast<std::size_t>(columns));
    for (std::size_t i = 0; i < gone.size(); ++i) {
        target[static_cast<std::size_t>(gone[i])] = static_cast<int>(kept.size() + i);
        for (int column = 0; column < columns; ++column) {
            taken.emplace_back(table.takeItem(gone[i], column));
        }
    }
    for (std::size_t i = 0; i < kept.size(); ++i) {
        const int row = static_cast<int>(i);
        target[static_cast<std::size_t>(kept[i])] = row;
        for (int column = 0; column < columns && kept[i] != row; ++column) {
            place(table, row, column, table.takeItem(kept[i], column), row);
        }
    }
    movePersistent(model, target);
    return taken;
}

void moveRow(QTableWidget& table, int from, int to)
{
    if (from == to) {
        return;
    }
    QAbstractItemModel& model = *table.model();
    const QSignalBlocker quiet(&model);
    const int inserted = to > from ? to + 1 : to;
    model.insertRows(inserted, 1);
    const int source = from + (inserted <= from ? 1 : 0);
    for (int column = 0; column < table.columnCount(); ++column) {
        place(table, inserted, column, table.takeItem(source, column), to);
    }
    QModelIndexList old;
    QModelIndexList fresh;
    for (const QModelIndex& index : ModelAccess::persistent(model)) {
        if (index.row() == source) {
            old.append(index);
            fresh.append(model.index(inserted, index.column()));
        }
    }
    ModelAccess::changePersistent(model, old, fresh);
    model.removeRows(source, 1);
}

} // namespace mrl::table
