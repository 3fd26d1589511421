#include "hostlib/ui/table/navigation.h"

#include <QItemSelectionModel>

#include <algorithm>

#include "hostlib/ui/table/selection.h"

namespace mrl::table {

namespace {

bool isEditable(const QTableWidget& table, const QModelIndex& index)
{
    return index.isValid() && (index.flags() & Qt::ItemIsEditable) != 0 &&
           !table.isColumnHidden(index.column());
}

/// The next shown row in a direction, beyond the table where there is none.
int nextShownRow(const QTableWidget& table, int row, int step)
{
    do {
        row += step;
    } while (row >= 0 && row < table.rowCount() && table.isRowHidden(row));
    return row;
}

} // namespace

QModelIndex neighbour(const QTableWidget& table, const QModelIndex& index, int rows, int columns)
{
    const std::vector<int> shown = shownColumns(table);
    if (!index.isValid() || shown.empty()) {
        return index;
    }
    const int count = static_cast<int>(shown.size());
    const auto found = std::find(shown.begin(), shown.end(), index.column());
    int place = static_cast<int>(found - shown.begin()) + columns;
    if (place >= count || place < 0) {
        rows += place < 0 ? -1 : 1;
        place = place < 0 ? count - 1 : 0;
    }
    const int row = rows == 0 ? index.row() : nextShownRow(table, index.row(), rows < 0 ? -1 : 1);
    if (row < 0 || row >= table.rowCount()) {
        return index;
    }
    return index.sibling(row, shown[static_cast<std::size_t>(place)]);
}

QModelIndex typingIndex(const QTableWidget& table)
{
    const QModelIndex current = table.currentIndex();
    if (isEditable(table, current) || !current.isValid() ||
        !table.selectionModel()->isRowSelected(current.row(), QModelIndex())) {
        return current;
    }
    for (const int column : shownColumns(table)) {
        if (const QModelIndex index = current.sibling(current.row(), column); isEditable(table, index)) {
            return index;
        }
    }
    return current;
}

} // namespace mrl::table
