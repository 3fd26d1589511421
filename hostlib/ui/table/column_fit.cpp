// How wide a column has to be for its cells.

#include <QHeaderView>

#include <algorithm>

#include "hostlib/ui/table/table_private.h"

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

int MRL_H_TableWidget::sizeHintForColumn(int column) const
{
    const bool ours = d->header(column) != nullptr && itemDelegateForColumn(column) == nullptr &&
                      qobject_cast<MRL_H_DelegateItem*>(itemDelegate()) != nullptr;
    // An open editor may want more room than its cell.
    if (!ours || state() == EditingState) {
        return MRL_QT_TableWidget::sizeHintForColumn(column);
    }
    ensurePolished();
    if (!d->textWidths || d->textWidths->font() != font()) {
        d->textWidths.emplace(font(), this);
    }
    int widest = 0;
    bool foreign = false;
    visitFittedRows(*this, [&](int row) {
        const QTableWidgetItem* cell = item(row, column);
        if (const MRL_H_TwItem* own = MRL_H_TwItem::fromItem(cell)) {
            widest = std::max(widest, d->textWidths->of(MRL_H_TwCellAccess::text(*own)));
        } else {
            foreign = foreign || cell != nullptr;
        }
    });
    if (foreign) {
        return MRL_QT_TableWidget::sizeHintForColumn(column);
    }
    return widest + 2 * cellTextMargin + (showGrid() ? 1 : 0);
}
