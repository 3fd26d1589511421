#include "actions/table_helpers.h"

#include <QApplication>

#include "actions/row_cells.h"
#include "lcdata/values/roles.h"
#include "rules/action_columns.h"

MRL_H_TwHeaderLineEditItem* createLineEditHeader(MRL_H_TableWidget* table, int id,
                                                 const StructLineEdit& description, const QString& caption,
                                                 const QString& toolTip, int position)
{
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

void markRowErrors(MRL_H_TableWidget* table, int row, const LCM_ErrorList& errors)
{
    LCM_RowCells(table, row).markErrors(errors);
}

void lcm_commit_edit(MRL_H_TableWidget& table)
{
    // An open editor commits its value when the table takes the focus.
    if (table.viewport()->isAncestorOf(QApplication::focusWidget())) {
        table.setFocus();
    }
}

void lcm_set_row_valid(MRL_H_TableWidget* table, int row, bool valid)
{
    if (auto* cell = MRL_H_TwSimpleLineEditItem::fromItem(table->itemOnColId(row, ACT_COL_ACTION))) {
        cell->setData(ROLE_ROW_VALID, valid);
    }
}

void removeRows(QTableWidget* table, const std::set<int>& rows)
{
    const int first = rows.empty() ? 0 : *rows.begin();
    // The selection gives way to a row at the end anyway; until then each of its cells would be updated.
    if (!rows.empty() && first >= 0) {
        table->clearSelection();
    }
    if (auto* ownTable = qobject_cast<MRL_H_TableWidget*>(table)) {
        // In one pass: the view recounts the rows below for each single removal.
        ownTable->removeRows(rows);
    } else {
        for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
            table->removeRow(*row);
        }
    }
    table->selectRow(table->rowCount() > first ? first : table->rowCount() - 1);
}
