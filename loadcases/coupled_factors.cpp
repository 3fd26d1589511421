#include "loadcases/coupled_factors.h"

#include "loadcases/cell_value.h"
#include "loadcases/load_case_cells.h"
#include "rules/load_case_row.h"

void lcm_couple_factors(const LCM_LoadCaseCells& cells, int column, const tagCDB_LC_ACT* action)
{
    QTableWidgetItem* edited = cells[column];
    const bool wasFromAction = lcm_cell_from_action(edited);
    const bool follows = lcm_cell_value(edited) == LC_UNDEFINED;
    lcm_set_cell_from_action(edited, follows);
    const LCM_Factor* factor = lcm_factor_of_load_case_column(column);
    const LCM_Factor* mate = factor ? lcm_partner_of(*factor) : nullptr;
    QTableWidgetItem* mateCell = mate ? cells[mate->loadCaseColumn] : nullptr;
    if (!mateCell || follows == wasFromAction) {
        return;
    }
    const float actionValue = action ? lcm_stored_factor(*action, *mate) : LC_UNDEFINED;
    if (follows || action) {
        const bool own = lcm_has_own_factors(cells.actionId());
        lcm_set_cell_value(mateCell, follows ? LC_UNDEFINED : actionValue,
                           own ? LCM_CellInput::Open : LCM_CellInput::Locked, actionValue);
    }
}
