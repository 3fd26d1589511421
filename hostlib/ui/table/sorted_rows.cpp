#include "hostlib/ui/table/sorted_rows.h"

#include <algorithm>
#include <numeric>

#include "hostlib/ui/table/cell_access.h"
#include "hostlib/ui/table/column.h"
#include "hostlib/ui/table/number_text.h"

namespace mrl::table {

namespace {

using Cells = std::vector<const QTableWidgetItem*>;

/// Sorts row numbers by keys, stably. Leaves `rows` alone when they are in order.
template <typename Key, typename Less>
void sortByKeys(std::vector<int>& rows, const std::vector<Key>& keys, Qt::SortOrder order, Less less)
{
    const auto before = [&](int a, int b) {
        const Key& left = keys[static_cast<std::size_t>(a)];
        const Key& right = keys[static_cast<std::size_t>(b)];
        return order == Qt::AscendingOrder ? less(left, right) : less(right, left);
    };
    if (!std::is_sorted(rows.begin(), rows.end(), before)) {
        std::stable_sort(rows.begin(), rows.end(), before);
    }
}

/// Keys taken once: comparing through the cells would touch their memory at every comparison.
template <typename Key, typename KeyOf>
std::vector<Key> keysOf(const Cells& cells, KeyOf keyOf)
{
    std::vector<Key> keys(cells.size());
    std::transform(cells.begin(), cells.end(), keys.begin(), keyOf);
    return keys;
}

bool isNumberCell(const QTableWidgetItem* item)
{
    const auto* cell = MRL_H_TwSimpleLineEditItem::fromItem(item);
    return cell != nullptr && MRL_H_TwCellAccess::column(*cell)->isNumber();
}

bool isCell(const QTableWidgetItem* item) { return MRL_H_TwItem::fromItem(item) != nullptr; }

void sortNumbers(std::vector<int>& rows, const Cells& cells, Qt::SortOrder order)
{
    const auto keys = keysOf<double>(cells, [](const QTableWidgetItem* item) {
        return MRL_H_TwCellAccess::number(*MRL_H_TwSimpleLineEditItem::fromItem(item));
    });
    sortByKeys(rows, keys, order, numberLess);
}

void sortTexts(std::vector<int>& rows, const Cells& cells, Qt::SortOrder order)
{
    const auto keys = keysOf<QString>(cells, [](const QTableWidgetItem* item) {
        return MRL_H_TwCellAccess::text(*MRL_H_TwItem::fromItem(item));
    });
    sortByKeys(rows, keys, order, [](const QString& a, const QString& b) { return a < b; });
}

/// Items of any kind, by their own comparison.
void sortItems(std::vector<int>& rows, const Cells& cells, Qt::SortOrder order)
{
    const auto empty = std::stable_partition(
        rows.begin(), rows.end(), [&](int row) { return cells[static_cast<std::size_t>(row)] != nullptr; });
    std::vector<int> filled(rows.begin(), empty);
    sortByKeys(filled, cells, order, [](const auto* a, const auto* b) { return *a < *b; });
    std::copy(filled.begin(), filled.end(), rows.begin());
}

} // namespace

std::vector<int> sortedRows(const QTableWidget& table, int column, Qt::SortOrder order)
{
    std::vector<int> rows(static_cast<std::size_t>(table.rowCount()));
    std::iota(rows.begin(), rows.end(), 0);
    Cells cells(rows.size());
    std::transform(rows.begin(), rows.end(), cells.begin(), [&](int row) { return table.item(row, column); });
    if (std::all_of(cells.begin(), cells.end(), isNumberCell)) {
        sortNumbers(rows, cells, order);
    } else if (std::all_of(cells.begin(), cells.end(), isCell)) {
        sortTexts(rows, cells, order);
    } else {
        sortItems(rows, cells, order);
    }
    return rows;
}

} // namespace mrl::table
