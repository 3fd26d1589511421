#include "loadcases/coupled_factors.h"

#include "loadcases/cell.h"
#include "loadcases/load_case_cells.h"
#include "rules/load_case_row.h"

namespace {

/// The column whose factor shares a field of the record with that of the given one; -1 for none.
int mateOf(int column)
{
    switch (column) {
    case LC_COL_GAMU:
        return LC_COL_GAMA;
    case LC_COL_GAMA:
        return LC_COL_GAMU;
    case LC_COL_PSI1:
        return LC_COL_PSI1S;
    case LC_COL_PSI1S:
        return LC_COL_PSI1;
    default:
        return -1;
    }
}

} // namespace

void lcm_couple_factors(const LCM_LoadCaseCells& cells, int column, const tagCDB_LC_ACT* action)
{
    QTableWidgetItem* edited = cells[column];
    const bool wasFromAction = lcm_cell_from_action(edited);
    const bool follows = lcm_cell_value(edited) == LC_UNDEFINED;
    lcm_set_cell_from_action(edited, follows);
    const int mate = mateOf(column);
    QTableWidgetItem* mateCell = mate < 0 ? nullptr : cells[mate];
    if (!mateCell || follows == wasFromAction) {
        return;
    }
    const float actionValue = action ? lcm_action_factor(*action, mate) : LC_UNDEFINED;
    if (follows || action) {
        const bool own = lcm_has_own_factors(cells.actionId());
        lcm_set_cell_value(mateCell, follows ? LC_UNDEFINED : actionValue,
                           own ? LCM_CellInput::Open : LCM_CellInput::Locked, actionValue);
    }
}
