#include "hostlib/ui/table/cell_rows.h"

#include "hostlib/ui/table/cell_access.h"
#include "hostlib/ui/table/column.h"

namespace mrl::table {

namespace {

/// How far on both sides of its old place a cell is looked for first: single rows come and go.
constexpr int NEAR_ROWS = 16;

} // namespace

int rowOf(const QTableWidget& table, const MRL_H_TwItem& cell)
{
    const int column = MRL_H_TwCellAccess::column(cell)->position;
    int& seen = MRL_H_TwCellAccess::row(cell);
    for (int distance = 0; seen >= 0 && distance <= NEAR_ROWS; ++distance) {
        if (table.item(seen + distance, column) == &cell) {
            return seen += distance;
        }
        if (table.item(seen - distance, column) == &cell) {
            return seen -= distance;
        }
    }
    seen = -1;
    for (int row = 0; row < table.rowCount(); ++row) {
        if (const MRL_H_TwItem* other = MRL_H_TwItem::fromItem(table.item(row, column))) {
            MRL_H_TwCellAccess::row(*other) = row;
        }
    }
    return seen;
}

} // namespace mrl::table
