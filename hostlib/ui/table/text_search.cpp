#include "hostlib/ui/table/text_search.h"

#include <algorithm>

#include "hostlib/ui/table/selection.h"

namespace mrl::table {

QModelIndex findText(const QTableWidget& table, const QString& text, const QModelIndex& from,
                     MRL_H_TableWidget::Search search)
{
    const std::vector<int> columns = shownColumns(table);
    const auto width = static_cast<qint64>(columns.size());
    const qint64 count = width * table.rowCount();
    if (count == 0 || text.isEmpty()) {
        return {};
    }
    const bool forward = search == MRL_H_TableWidget::Search::Forward;
    const qint64 step = forward ? 1 : count - 1;
    const auto place = std::find(columns.begin(), columns.end(), from.column()) - columns.begin();
    // Without a start the first step leads to one end of the table.
    qint64 at = forward ? count - 1 : 0;
    if (from.isValid()) {
        at = from.row() * width + std::min<qint64>(place, width - 1);
    }
    for (qint64 looked = 0; looked < count; ++looked) {
        at = (at + step) % count;
        const int row = static_cast<int>(at / width);
        const int column = columns[static_cast<std::size_t>(at % width)];
        const QTableWidgetItem* item = table.isRowHidden(row) ? nullptr : table.item(row, column);
        if (item != nullptr && item->text().contains(text, Qt::CaseInsensitive)) {
            return table.model()->index(row, column);
        }
    }
    return {};
}

} // namespace mrl::table
