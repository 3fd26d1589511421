#include "actions/table_helpers.h"

#include "actions/row_cells.h"

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
    if (table->rowCount() == 0) {
        return rows;
    }
    for (const QTableWidgetSelectionRange& range : table->selectedRanges()) {
        for (int row = range.topRow(); row <= range.bottomRow(); ++row) {
            rows.insert(rows.end(), row);
        }
    }
    return rows;
}

void markRowErrors(MRL_H_TableWidget* table, int row, const LCM_Findings& findings)
{
    LCM_RowCells(table, row).markErrors(findings);
}

void removeRows(QTableWidget* table, const std::set<int>& rows)
{
    const int first = rows.empty() ? 0 : *rows.begin();
    // The selection gives way to a row at the end anyway; until then each of its cells would be carried
    // along.
    if (!rows.empty() && first >= 0) {
        table->clearSelection();
    }
    if (auto* ownTable = qobject_cast<MRL_H_TableWidget*>(table)) {
        ownTable->removeRows(
            rows); // in one pass; the view counts the rows below anew for each single removal
    } else {
        for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
            table->removeRow(*row);
        }
    }
    table->selectRow(table->rowCount() > first ? first : table->rowCount() - 1);
}
