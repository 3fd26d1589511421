#include "actions/table_helpers.h"

#include <utility>

#include "actions/row_cells.h"

namespace {

/// Moves the cells of the rows that stay up over those that go, and cuts the table once: taking rows out one
/// by one makes the view count all rows below anew each time.
void compactRows(QTableWidget* table, const std::set<int>& rows)
{
    auto next = rows.lower_bound(0);
    if (next == rows.end() || *next >= table->rowCount())
        return;
    int target = *next;
    for (int source = target; source < table->rowCount(); ++source) {
        if (next != rows.end() && *next == source) {
            ++next;
            continue;
        }
        for (int column = 0; column < table->columnCount(); ++column)
            table->setItem(target, column, table->takeItem(source, column));
        ++target;
    }
    table->setRowCount(target);
}

} // namespace

MRL_H_TwHeaderLineEditItem* createLineEditHeader(MRL_H_TableWidget* table, int id,
                                                 const StructLineEdit& description, const QString& caption,
                                                 const QString& toolTip, int position)
{
    // Child of the table from the next line on.
    auto* header =
        new MRL_H_TwHeaderLineEditItem(id, description, caption, toolTip, true, true, Qt::AlignLeft);
    table->setHorizontalHeaderItem(position, header);
    return header;
}

std::set<int> getSelectedRows(const QTableWidget* table)
{
    std::set<int> rows;
    if (table->rowCount() == 0)
        return rows;
    for (const QTableWidgetSelectionRange& range : table->selectedRanges())
        for (int row = range.topRow(); row <= range.bottomRow(); ++row)
            rows.insert(rows.end(), row);
    return rows;
}

void markRowErrors(MRL_H_TableWidget* table, int row, const LCM_Findings& findings)
{
    LCM_RowCells(table, row).markErrors(findings);
}

void removeRows(QTableWidget* table, const std::set<int>& rows)
{
    const int first = rows.empty() ? 0 : *rows.begin();
    {
        const MRL_QT_SignalBlocker signalBlocker(table);
        const MRL_QT_SortingBlocker sortingBlocker(table);
        compactRows(table, rows);
    }
    table->selectRow(table->rowCount() > first ? first : table->rowCount() - 1);
}
