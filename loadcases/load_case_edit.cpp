// Edits of cells and the judgement of rows.

#include "actions/actions_widget.h"
#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"
#include "loadcases/cell.h"
#include "loadcases/columns.h"
#include "loadcases/load_case_cells.h"
#include "loadcases/loadcase_widget.h"
#include "loadcases/row_context.h"
#include "loadcases/table_loadcases.h"
#include "model/data_class.h"
#include "rules/load_case_rules.h"

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

void LCM_LoadcaseWidget::slot_cellChanged(int row, int col)
{
    const MRL_QT_SignalBlocker signalBlocker(loadcaseTable);
    modified = true;
    const int column = loadcaseTable->getColumnId(col);
    LCM_RowContext context = rowContext();
    if (column == LC_COL_ACTION) {
        forgetUsedActions();
        LCM_LoadCaseCells cells(*loadcaseTable, row);
        const int word = actionWord(cells);
        cells.keepWord(m_actionList.isMarker(cells.actionId()) ? std::optional<int>(word) : std::nullopt);
        followAction(cells, context);
    }
    if (column != LC_COL_TITLE) {
        updateCoupledItem(row, column);
    }
    judgeRows(getSelectedRows(loadcaseTable), context);
}

void LCM_LoadcaseWidget::followAction(LCM_LoadCaseCells& cells, LCM_RowContext& context)
{
    const int word = actionWord(cells);
    tagCDB_LC_CTRL record{};
    lcm_store_dead_weight(cells.deadWeight(), context.setup, record);
    record = lcm_record_with_action(record, word);
    cells.showDeadWeight(lcm_shown_dead_weight(record, context.setup.gravity));
    cells.showFactors(lcm_shown_factors(record, shownAction(cells, context)), lcm_has_own_factors(word));
    lcm_set_cell_from_action(cells[LC_COL_ACTION], true);
}

void LCM_LoadcaseWidget::updateCoupledItem(int row, int colId)
{
    const LCM_LoadCaseCells cells(*loadcaseTable, row);
    const bool enabled = lcm_has_own_factors(cells.actionId());
    const bool wasFromAction = isItemFromAction(row, colId);
    const bool follows = lcm_cell_value(cells[colId]) == LC_UNDEFINED;
    const int mate = mateOf(colId);
    QTableWidgetItem* mateCell = mate < 0 ? nullptr : cells[mate];
    if (mateCell && follows && !wasFromAction) {
        setItemVal(row, mate, LC_UNDEFINED, enabled);
    }
    if (mateCell && !follows && wasFromAction && actionsWidget) {
        tagCDB_LC_ACT action{};
        if (actionsWidget->findAction(actionWord(cells), action)) {
            setItemVal(row, mate, lcm_action_factor(action, mate), enabled);
        }
    }
    setItemFromAction(row, colId, follows);
}

float LCM_LoadcaseWidget::getActionVal(int row, int colId)
{
    if (!actionsWidget) {
        return LC_UNDEFINED;
    }
    const auto& actions = actionsWidget->getActionMap();
    const auto action = actions.find(lcm_cell_id(loadcaseTable->itemOnColId(row, LC_COL_ACTION)));
    return action == actions.end() ? LC_UNDEFINED : lcm_action_factor(action->second, colId);
}

bool LCM_LoadcaseWidget::checkRow(int row)
{
    if (!actionsWidget) {
        return true;
    }
    const MRL_QT_UpdateBlocker updateBlocker(loadcaseTable);
    const MRL_QT_SignalBlocker signalBlocker(loadcaseTable);
    LCM_RowContext context = rowContext();
    return judge(row, LCM_LoadCaseCells(*loadcaseTable, row), context);
}

void LCM_LoadcaseWidget::judgeRows(const std::set<int>& rows, LCM_RowContext& context)
{
    const MRL_QT_UpdateBlocker updateBlocker(loadcaseTable);
    const MRL_QT_SignalBlocker signalBlocker(loadcaseTable);
    for (const int row : rows) {
        setRowValid(row, judge(row, LCM_LoadCaseCells(*loadcaseTable, row), context));
    }
}

bool LCM_LoadcaseWidget::judge(int row, const LCM_LoadCaseCells& cells, LCM_RowContext& context)
{
    if (!actionsWidget) {
        return true;
    }
    tagCDB_LC_CTRL record{};
    record.action = actionWord(cells);
    const tagCDB_LC_ACT* action = shownAction(cells, context);
    if (action) {
        lcm_store_factors(cells.factors(), context.setup, record);
    }
    const LCM_LoadCaseVerdict verdict = lcm_judge_load_case(record, action, *model->availabilityRecord());
    // Without an action nothing was examined, and the colours stay as they were.
    if (action) {
        markRowErrors(loadcaseTable, row, verdict.findings);
    }
    return verdict.valid;
}
