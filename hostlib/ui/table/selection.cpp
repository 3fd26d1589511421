#include "hostlib/ui/table/selection.h"

#include <QHeaderView>
#include <QItemSelectionModel>

#include <algorithm>

namespace mrl::table {

std::vector<int> selectedRows(const QTableWidget& table)
{
    std::vector<int> rows;
    for (const QItemSelectionRange& range : table.selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            rows.push_back(row);
        }
    }
    if (!std::is_sorted(rows.begin(), rows.end())) {
        std::sort(rows.begin(), rows.end());
    }
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

std::vector<int> shownColumns(const QTableWidget& table)
{
    std::vector<int> columns;
    const QHeaderView* header = table.horizontalHeader();
    for (int visual = 0; visual < header->count(); ++visual) {
        if (const int column = header->logicalIndex(visual); !header->isSectionHidden(column)) {
            columns.push_back(column);
        }
    }
    return columns;
}

std::vector<int> selectedColumns(const QTableWidget& table)
{
    std::vector<int> columns;
    const QItemSelection selection = table.selectionModel()->selection();
    for (const int column : shownColumns(table)) {
        if (std::any_of(selection.begin(), selection.end(), [column](const QItemSelectionRange& range) {
                return range.left() <= column && column <= range.right();
            })) {
            columns.push_back(column);
        }
    }
    return columns;
}

} // namespace mrl::table
