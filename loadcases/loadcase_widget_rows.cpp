// The operations on rows and cells that other code calls on the tab; the parts of the tab do the work.

#include "actions/actions_widget.h"
#include "actions/command_log.h"
#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"
#include "loadcases/cell_value.h"
#include "loadcases/coupled_factors.h"
#include "loadcases/load_case_cells.h"
#include "loadcases/load_case_reconciliation.h"
#include "loadcases/load_case_rows.h"
#include "loadcases/loadcase_widget.h"
#include "loadcases/row_actions.h"
#include "loadcases/row_context.h"
#include "loadcases/table_loadcases.h"
#include "rules/action_columns.h"
#include "rules/load_case_rules.h"

void LCM_LoadcaseWidget::fillRow(int row, const LCM_LoadcaseEntry& entry)
{
    const MRL_QT_SignalBlocker signalBlocker(loadcaseTable);
    LCM_RowContext context = rowContext();
    LCM_LoadCaseCells cells(*loadcaseTable, row);
    m_rows->fill(cells, entry, context);
}

void LCM_LoadcaseWidget::readRow(int row, LCM_LoadcaseEntry& entry)
{
    m_rows->read(LCM_LoadCaseCells(*loadcaseTable, row), entry, rowContext());
}

bool LCM_LoadcaseWidget::checkRow(int row)
{
    if (!actionsWidget) {
        return true;
    }
    const MRL_QT_UpdateBlocker updateBlocker(loadcaseTable);
    const MRL_QT_SignalBlocker signalBlocker(loadcaseTable);
    LCM_RowContext context = rowContext();
    return m_rows->judge(row, LCM_LoadCaseCells(*loadcaseTable, row), context);
}

void LCM_LoadcaseWidget::judgeAllRows()
{
    const LCM_CommandScope command(commandLog(), LCM_Command::CheckAgain);
    const MRL_QT_UpdateBlocker updateBlocker(loadcaseTable);
    const MRL_QT_SignalBlocker signalBlocker(loadcaseTable);
    LCM_RowContext context = rowContext();
    for (int row = 0; row < loadcaseTable->rowCount(); ++row) {
        const bool valid = m_rows->judge(row, LCM_LoadCaseCells(*loadcaseTable, row), context);
        if (valid) {
            markRowErrors(loadcaseTable, row, {});
        }
        setRowValid(row, valid);
    }
}

LCM_ErrorList LCM_LoadcaseWidget::errorsOf(int row) const
{
    LCM_RowContext context = rowContext();
    const LCM_LoadCaseVerdict verdict = m_rows->verdict(LCM_LoadCaseCells(*loadcaseTable, row), context);
    LCM_ErrorList errors = lcm_error_list(verdict.findings);
    if (!verdict.valid && errors.empty()) {
        errors.emplace(LC_COL_ACTION, tr("The action of this load case is missing."));
    }
    return errors;
}

void LCM_LoadcaseWidget::slot_cellChanged(int row, int col)
{
    const MRL_QT_SignalBlocker signalBlocker(loadcaseTable);
    modified = true;
    const int column = loadcaseTable->getColumnId(col);
    LCM_RowContext context = rowContext();
    if (column == LC_COL_ACTION) {
        LCM_LoadCaseCells cells(*loadcaseTable, row);
        m_actions->takeChoice(cells);
        m_rows->followAction(cells, context);
    }
    if (column != LC_COL_TITLE) {
        updateCoupledItem(row, column);
    }
    m_rows->judgeAndStore(getSelectedRows(loadcaseTable), context);
}

void LCM_LoadcaseWidget::updateCoupledItem(int row, int colId)
{
    const LCM_LoadCaseCells cells(*loadcaseTable, row);
    LCM_ActionLookup lookup(actionsWidget, *model);
    lcm_couple_factors(cells, colId, actionsWidget ? lookup.find(m_actions->word(cells)) : nullptr);
}

float LCM_LoadcaseWidget::getActionVal(int row, int colId)
{
    if (!actionsWidget) {
        return LC_UNDEFINED;
    }
    const auto& actions = actionsWidget->getActionMap();
    const auto action = actions.find(lcm_cell_id(loadcaseTable->itemOnColId(row, LC_COL_ACTION)));
    const LCM_Factor* factor = lcm_factor_of_load_case_column(colId);
    return factor && action != actions.end() ? lcm_stored_factor(action->second, *factor) : LC_UNDEFINED;
}

void LCM_LoadcaseWidget::setItemVal(int row, int colId, float val, bool enabled)
{
    QTableWidgetItem* cell = loadcaseTable->itemOnColId(row, colId);
    const bool asksAction = val == LC_UNDEFINED && MRL_H_TwEditableComboBoxItem::fromItem(cell);
    lcm_set_cell_value(cell, val, enabled ? LCM_CellInput::Open : LCM_CellInput::Locked,
                       asksAction ? getActionVal(row, colId) : LC_UNDEFINED);
    if (cell && colId == LC_COL_NUMBER) {
        cell->setData(Qt::DisplayRole, static_cast<int>(val));
    }
}

float LCM_LoadcaseWidget::getItemVal(int row, int colId)
{
    return lcm_cell_value(loadcaseTable->itemOnColId(row, colId));
}

QString LCM_LoadcaseWidget::getItemText(int row, int colId)
{
    return lcm_cell_text(loadcaseTable->itemOnColId(row, colId));
}

bool LCM_LoadcaseWidget::isItemFromAction(int row, int colId)
{
    return lcm_cell_from_action(loadcaseTable->itemOnColId(row, colId));
}

void LCM_LoadcaseWidget::setItemFromAction(int row, int colId, bool fromAction)
{
    lcm_set_cell_from_action(loadcaseTable->itemOnColId(row, colId), fromAction);
}

void LCM_LoadcaseWidget::setActionItem(int row, int colId, int code)
{
    if (colId == LC_COL_ACTION) {
        LCM_LoadCaseCells cells(*loadcaseTable, row);
        m_actions->bindAgain(cells, code);
    }
}

std::shared_ptr<const LCM_ActionList> LCM_LoadcaseWidget::offeredActions() const
{
    return m_actions->snapshot();
}

void LCM_LoadcaseWidget::offerActions(const LCM_ActionList& actions) { m_actions->restore(actions); }

void LCM_LoadcaseWidget::forgetUsedActions() { m_actions->forgetUsed(); }

LCM_LoadCaseReconciliation LCM_LoadcaseWidget::reconciliation()
{
    return {*this, *loadcaseTable, *m_actions, *m_rows, actionsWidget};
}

void LCM_LoadcaseWidget::slot_actionCountChanged()
{
    if (reconciliation().rebuildList()) {
        modified = true;
    }
}

void LCM_LoadcaseWidget::slot_actionValuesChanged(int row, int col)
{
    if (!actionsWidget) {
        return;
    }
    tagCDB_LC_ACT action{};
    const int code = actionsWidget->readRow(row, action);
    if (actionsWidget->tableWidget()->getColumnId(col) == ACT_COL_DESCRIPTION) {
        slot_actionCountChanged();
    }
    reconciliation().refreshLoadCasesOf(code);
}

// By value, as the signal gives it.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void LCM_LoadcaseWidget::slot_reinitActions(std::set<int> rows)
{
    if (actionsWidget && reconciliation().reinitialise(rows)) {
        modified = true;
    }
}
