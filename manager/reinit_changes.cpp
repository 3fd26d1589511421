#include "manager/reinit_changes.h"

#include <algorithm>

#include "actions/actions_widget.h"
#include "actions/table_helpers.h"
#include "check/factor_origin.h"
#include "lcdata/values/action_code.h"
#include "model/working_model.h"
#include "rules/action_columns.h"
#include "rules/action_row.h"

namespace {

/// The text of an entry of a combo column.
QString entryText(const MRL_H_TableWidget& table, int columnId, int id)
{
    const auto* header =
        dynamic_cast<const MRL_H_TwHeaderComboBoxItem*>(table.horizontalHeaderItemOnColId(columnId));
    const std::list<ComboList> entries = header ? header->getComboEntries(0) : std::list<ComboList>();
    const auto found =
        std::find_if(entries.begin(), entries.end(), [id](const ComboList& entry) { return entry.id == id; });
    return found == entries.end() ? QString::number(id) : found->text;
}

QString textOf(const MRL_H_TableWidget& table, const LCM_ActionCells& cells, int columnId)
{
    switch (columnId) {
    case ACT_COL_DESCRIPTION:
        return cells.title;
    case ACT_COL_PARTITION:
        return entryText(table, columnId, cells.partition);
    case ACT_COL_SUPERPOSITION:
        return entryText(table, columnId, cells.superposition);
    default:
        break;
    }
    const LCM_Factor* factor = lcm_factor_of_action_column(columnId);
    return factor ? lcm_factor_text(cells.factors[factor->id]) : QString();
}

void addChanges(std::vector<LCM_ReinitChange>& changes, LCM_ActionsWidget& tab, int row)
{
    tagCDB_LC_ACT now;
    tagCDB_LC_ACT then;
    const int code = tab.readRow(row, now);
    if (tab.workingModel()->findAction(code, then, true) == 0) {
        return; // an own action stays as it is
    }
    const MRL_H_TableWidget& table = *tab.tableWidget();
    const LCM_ActionCells before = lcm_action_cells(now);
    const LCM_ActionCells after = lcm_action_cells(then);
    for (int column = 0; column < table.columnCount(); ++column) {
        const QString old = textOf(table, before, table.getColumnId(column));
        const QString fresh = textOf(table, after, table.getColumnId(column));
        if (old != fresh) {
            changes.push_back(
                {row, column,
                 QStringLiteral("%1 %2: %3 > %4")
                     .arg(lcm_code_name(code), table.horizontalHeaderItem(column)->text(), old, fresh)});
        }
    }
}

} // namespace

std::vector<LCM_ReinitChange> lcm_reinit_changes(LCM_ActionsWidget& tab)
{
    const std::set<int> selected = getSelectedRows(tab.tableWidget());
    std::vector<LCM_ReinitChange> changes;
    for (int row = 0; row < tab.tableWidget()->rowCount(); ++row) {
        if (selected.empty() || selected.count(row) != 0) {
            addChanges(changes, tab, row);
        }
    }
    return changes;
}
