#include <map>

#include "exchange/decimals.h"
#include "exchange/planning.h"
#include "exchange/raw_records.h"
#include "exchange/record_cells.h"
#include "exchange/row_numbering.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/packing.h"
#include "rules/load_case_columns.h"
#include "rules/load_case_rules.h"

namespace mrl::exchange {

namespace {

/// Plans one row whose load case is known.
class LoadCaseRow : RowPlan
{
  public:
    using RowPlan::RowPlan;

    void plan()
    {
        const auto stored = m_state.loadCases.find(m_row.id);
        m_row.isNew = stored == m_state.loadCases.end();
        if (!m_row.isNew) {
            m_row.storedLoadCase = m_row.loadCase = stored->second;
        }
        m_row.loadCase.factor = m_row.isNew ? 1.0f : m_row.loadCase.factor;
        changeTitle(CASE_TITLE, m_row.loadCase.title);
        changeAction();
        changeNumbers();
        changeFactors();
        conclude(m_row, bytesOf(m_row.loadCase) == bytesOf(m_row.storedLoadCase));
        if (isWritten()) {
            judge();
        }
    }

  private:
    /// The action word of a name: of a stored action as it stands, else in upper case.
    int wordOf(const std::string& name) const
    {
        const int typed = lcm_pack_word(QString::fromStdString(name));
        return m_state.actions.count(typed) != 0 ? typed : actionWordOf(name);
    }
    void changeAction()
    {
        const bool hasColumn = m_cells.cell(CASE_ACTION) != nullptr;
        const std::string name = m_cells.text(CASE_ACTION);
        const int old = m_row.loadCase.action;
        if (m_row.isNew || (hasColumn && name != actionWordText(old))) {
            const float factor = m_row.loadCase.factor;
            m_row.loadCase =
                lcm_record_with_action(m_row.loadCase, hasColumn ? wordOf(name) : LC_ACTION_NONE);
            m_row.loadCase.factor = factor;
        }
    }
    void changeNumbers()
    {
        const std::vector<Column>& columns = columnsOf(Sheet::LoadCases);
        for (std::size_t i = CASE_ACTION + 1; i < columns.size(); ++i) {
            const std::string* cell = columns[i].kind == Kind::Number ? m_cells.cell(i) : nullptr;
            if (cell == nullptr) {
                continue;
            }
            float& value = m_row.loadCase.*columns[i].value;
            if (*cell != numberText(value)) {
                value = numberIn(*cell, columns[i], m_row).value_or(value);
            }
        }
    }
    /// The factors that the row states, with what the record holds where it states nothing. An empty cell
    /// follows the action.
    void changeFactors()
    {
        const LCM_LoadCaseFactors before = lcm_stored_factors(m_row.loadCase);
        LCM_LoadCaseFactors after = before;
        LCM_PerFactor<bool> isChanged;
        const std::vector<Column>& columns = columnsOf(Sheet::LoadCases);
        for (std::size_t i = CASE_ACTION + 1; i < columns.size(); ++i) {
            const std::string* cell = columns[i].kind == Kind::Factor ? m_cells.cell(i) : nullptr;
            const LCM_FactorId id =
                columns[i].kind == Kind::Factor ? columns[i].factor->id : LCM_FactorId::Gamu;
            if (cell != nullptr && !isText(*cell, before[id])) {
                after[id] = numberIn(*cell, columns[i], m_row).value_or(LC_UNDEFINED);
                isChanged[id] = true;
            }
        }
        for (const LCM_Factor& factor : LCM_FACTORS) {
            store(factor, isChanged, after);
        }
    }
    static bool isText(const std::string& cell, float value)
    {
        return value == LC_UNDEFINED ? trimmed(cell).empty() : cell == numberText(value);
    }
    void store(const LCM_Factor& factor, const LCM_PerFactor<bool>& isChanged,
               const LCM_LoadCaseFactors& after)
    {
        float& field = m_row.loadCase.*factor.loadCaseField;
        const LCM_Factor* partner = lcm_partner_of(factor);
        if (partner == nullptr) {
            field = isChanged[factor.id] ? after[factor.id] : field;
        } else if (factor.packing == LCM_FactorPacking::Main &&
                   (isChanged[factor.id] || isChanged[partner->id])) {
            field = packed(factor, *partner, after);
        }
    }
    /// A pair is stored whole or not at all: where one follows the action, it takes the action's value.
    float packed(const LCM_Factor& main, const LCM_Factor& minor, const LCM_LoadCaseFactors& cells)
    {
        if (cells[main.id] == LC_UNDEFINED && cells[minor.id] == LC_UNDEFINED) {
            return LC_UNDEFINED;
        }
        const auto action = m_state.actions.find(m_row.loadCase.action);
        const tagCDB_LC_ACT values =
            action == m_state.actions.end() ? tagCDB_LC_ACT{} : action->second.record;
        const auto value = [&](const LCM_Factor& factor) {
            if (cells[factor.id] != LC_UNDEFINED) {
                return cells[factor.id];
            }
            m_row.notes.push_back(
                {QT_TRANSLATE_NOOP("Exchange",
                                   "\"%1\" takes the value of the action, since a pair is stored whole"),
                 {factor.key}});
            return lcm_shown_factor(values, factor);
        };
        const float mainValue = value(main);
        return lcm_pack_pair(mainValue, value(minor));
    }
    void judge()
    {
        const auto action = m_state.actions.find(m_row.loadCase.action);
        const bool isKnown = action != m_state.actions.end();
        const bool isOldNumber = m_row.loadCase.action > 0 && m_row.loadCase.action < LC_BLANK_WORD;
        const LCM_LoadCaseVerdict verdict = lcm_judge_stored_load_case(
            m_row.loadCase, isKnown ? &action->second.record : nullptr, m_state.setup, m_state.limits);
        if (verdict.actionMissing && !isOldNumber) {
            refuse(m_row, {LCM_Finding{LCM_Rule::ActionMissing,
                                       LCM_Subject::LoadCase,
                                       m_row.id,
                                       LC_COL_ACTION,
                                       {lcm_word_name(m_row.loadCase.action)}}});
        }
        refuse(m_row, verdict.findings);
    }
};

/// Takes an action that a load case names and the project lacks from the design code.
void createAction(const std::string& name, int line, ProjectState& state, Plan& plan)
{
    const int code = name.empty() ? LC_ACTION_NONE : actionWordOf(name);
    const auto known = state.defaultActions.find(code);
    if (known == state.defaultActions.end() || state.actions.count(code) != 0) {
        return;
    }
    PlannedRow row;
    row.outcome = Outcome::Added;
    row.sheet = Sheet::Actions;
    row.line = line;
    row.id = code;
    row.name = name;
    row.isNew = true;
    row.action = std::make_unique<ActionRecords>(ActionRecords{{}, known->second});
    state.actions[code] = {code, known->second, 0};
    plan.rows.push_back(std::move(row));
}

} // namespace

void planLoadCase(const RowCells& cells, const ProjectState& state, PlannedRow& row)
{
    LoadCaseRow(cells, state, row).plan();
}

void planLoadCases(const Table& table, ProjectState& state, const PlanOptions& options,
                   RowNumbering& numbering, Plan& plan)
{
    RowCells cells(table.head);
    for (const Row& tableRow : table.rows) {
        cells.moveTo(tableRow);
        if (options.createActions) {
            createAction(cells.text(CASE_ACTION), tableRow.line, state, plan);
        }
        PlannedRow& row = plan.rows.emplace_back(); // in its place: there are very many, and they are large
        row.line = tableRow.line;
        row.notes = tableRow.notes;
        numbering.identify(cells, row);
        if (row.outcome != Outcome::Refused) {
            planLoadCase(cells, state, row);
        }
    }
}

} // namespace mrl::exchange
