#include "hostlib/ui/table/column_fit.h"

#include <QHeaderView>

#include <algorithm>

#include "hostlib/ui/table/cell_access.h"

namespace mrl::table {

namespace {

/// Calls `visit` for the rows whose cells a column is fitted to: from the first one in sight downward, then
/// those above it, as many as the header wants; with a precision of 0 only those in sight.
template <class Visit>
void visitFittedRows(const QTableWidget& table, Visit visit)
{
    const int rows = table.rowCount();
    const int precision = table.horizontalHeader()->resizeContentsPrecision();
    const int first = std::max(0, table.rowAt(0));
    const int lastInSight = table.rowAt(table.viewport()->height() - 1);
    const int end = precision == 0 && lastInSight >= 0 ? lastInSight + 1 : rows;
    int left = precision > 0 ? precision : rows;
    const auto visitOne = [&](int row) {
        if (table.isRowHidden(row)) {
            return;
        }
        visit(row);
        --left;
    };
    for (int row = first; row < end && left > 0; ++row) {
        visitOne(row);
    }
    for (int row = first - 1; row >= 0 && left > 0 && precision != 0; --row) {
        visitOne(row);
    }
}

} // namespace

std::optional<int> ColumnFit::widthOf(const QTableWidget& table, int column)
{
    if (!m_widths || m_widths->font() != table.font()) {
        m_widths.emplace(table.font(), &table);
    }
    int widest = 0;
    bool foreign = false;
    visitFittedRows(table, [&](int row) {
        const QTableWidgetItem* item = table.item(row, column);
        if (const MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(item)) {
            widest = std::max(widest, m_widths->of(MRL_H_TwCellAccess::text(*cell)));
        } else {
            foreign = foreign || item != nullptr;
        }
    });
    if (foreign) {
        return std::nullopt;
    }
    return widest + 2 * CELL_TEXT_MARGIN + (table.showGrid() ? 1 : 0);
}

void ColumnFit::show(QTableWidget& table, int column)
{
    table.showColumn(column);
    if (m_shown.insert(table.horizontalHeaderItem(column)).second) {
        table.resizeColumnToContents(column);
    }
}

} // namespace mrl::table
