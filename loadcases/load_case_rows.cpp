#include "loadcases/load_case_rows.h"

#include "actions/table_helpers.h"
#include "check/finding_text.h"
#include "host/mrl_widgets.h"
#include "lcdata/values/packed_text.h"
#include "loadcases/cell_value.h"
#include "loadcases/load_case_cells.h"
#include "loadcases/row_actions.h"
#include "loadcases/row_context.h"
#include "loadcases/table_loadcases.h"
#include "model/working_model.h"
#include "rules/load_case_rules.h"

namespace {

LCM_CellInput factorInput(int actionWord)
{
    return lcm_has_own_factors(actionWord) ? LCM_CellInput::Open : LCM_CellInput::Locked;
}

} // namespace

void LCM_LoadCaseRows::fill(LCM_LoadCaseCells& cells, const LCM_LoadcaseEntry& entry, LCM_RowContext& context)
{
    const int word = entry.record.action;
    cells.showNumber(entry.number);
    cells.showTitle(lcm_title_text(entry.record.title));
    m_actions.bind(cells, word, word);
    cells.showDeadWeight(lcm_shown_dead_weight(entry.record, context.setup.gravity));
    cells.showFactors(lcm_shown_factors(entry.record, shownAction(cells, context)), factorInput(word));
}

const tagCDB_LC_ACT* LCM_LoadCaseRows::shownAction(const LCM_LoadCaseCells& cells,
                                                   LCM_RowContext& context) const
{
    // By the entry that the row shows: it may be the lower-case form of the word that the row came with.
    const int id = cells.actionId();
    return m_actions.isMarker(id) ? nullptr : context.actions.find(id);
}

void LCM_LoadCaseRows::read(const LCM_LoadCaseCells& cells, LCM_LoadcaseEntry& entry,
                            const LCM_RowContext& context) const
{
    const LCM_LoadCaseRow row{cells.number(), cells.title(), m_actions.word(cells), cells.deadWeight(),
                              cells.factors()};
    entry.number = row.number;
    entry.record = lcm_record_of_row(row, context.setup);
}

void LCM_LoadCaseRows::refresh(LCM_LoadCaseCells& cells, LCM_RowContext& context)
{
    tagCDB_LC_CTRL record{};
    record.action = m_actions.word(cells);
    lcm_store_dead_weight(cells.deadWeight(), context.setup, record);
    lcm_store_factors(cells.factors(), context.setup, record);
    cells.showDeadWeight(lcm_shown_dead_weight(record, context.setup.gravity));
    cells.showFactors(lcm_shown_factors(record, shownAction(cells, context)), factorInput(record.action));
}

void LCM_LoadCaseRows::followAction(LCM_LoadCaseCells& cells, LCM_RowContext& context)
{
    const int word = m_actions.word(cells);
    tagCDB_LC_CTRL record{};
    lcm_store_dead_weight(cells.deadWeight(), context.setup, record);
    record = lcm_record_with_action(record, word);
    cells.showDeadWeight(lcm_shown_dead_weight(record, context.setup.gravity));
    cells.showFactors(lcm_shown_factors(record, shownAction(cells, context)), factorInput(word));
    lcm_set_cell_from_action(cells[LC_COL_ACTION], true);
}

LCM_LoadCaseVerdict LCM_LoadCaseRows::verdict(const LCM_LoadCaseCells& cells, LCM_RowContext& context) const
{
    if (!context.actions.hasTab()) {
        return {};
    }
    tagCDB_LC_CTRL record{};
    record.action = m_actions.word(cells);
    const tagCDB_LC_ACT* action = shownAction(cells, context);
    if (action) {
        lcm_store_factors(cells.factors(), context.setup, record);
    }
    return lcm_judge_load_case(record, action, m_limits);
}

bool LCM_LoadCaseRows::judge(int row, const LCM_LoadCaseCells& cells, LCM_RowContext& context) const
{
    const LCM_LoadCaseVerdict result = verdict(cells, context);
    // Without an action nothing was examined, and the colours stay as they were.
    if (context.actions.hasTab() && shownAction(cells, context)) {
        markRowErrors(&m_table, row, lcm_error_list(result.findings));
    }
    return result.valid;
}

void LCM_LoadCaseRows::judgeAndStore(const std::set<int>& rows, LCM_RowContext& context) const
{
    const MRL_QT_UpdateBlocker updateBlocker(&m_table);
    const MRL_QT_SignalBlocker signalBlocker(&m_table);
    for (const int row : rows) {
        lcm_set_row_valid(&m_table, row, judge(row, LCM_LoadCaseCells(m_table, row), context));
    }
}
