#pragma once

#include <set>

#include "lcdata/values/records.h"
#include "rules/load_case_rules.h"

class LCM_RowActions;
class LCM_LoadCaseCells;
class TableLoadCases;
struct LCM_LoadcaseEntry;
struct LCM_RowContext;

/// The rows of the load-case table: how they show an entry, what entry they mean, and what the rules say of
/// them. The caller blocks the table's signals while it writes cells.
class LCM_LoadCaseRows
{
  public:
    /// @param limits the availability record of the design code. All outlive this.
    LCM_LoadCaseRows(TableLoadCases& table, LCM_RowActions& actions, const tagCDB_LC_ACT& limits)
        : m_table(table), m_actions(actions), m_limits(limits)
    {
    }

    void fill(LCM_LoadCaseCells& cells, const LCM_LoadcaseEntry& entry, LCM_RowContext& context);
    void read(const LCM_LoadCaseCells& cells, LCM_LoadcaseEntry& entry, const LCM_RowContext& context) const;
    /// Shows the row as it is after reading and filling it again: what follows from its action, its dead
    /// weight as it will be stored.
    void refresh(LCM_LoadCaseCells& cells, LCM_RowContext& context);
    /// Lets the row follow its newly chosen action; factors of its own are dropped.
    void followAction(LCM_LoadCaseCells& cells, LCM_RowContext& context);

    /// Judges a row, colours its cells and gives them their tool tips. The verdict isn't stored.
    /// What a judgement finds; nothing without an actions tab. Shows nothing.
    LCM_LoadCaseVerdict verdict(const LCM_LoadCaseCells& cells, LCM_RowContext& context) const;
    /// @return true for a valid row, and always without an actions tab
    bool judge(int row, const LCM_LoadCaseCells& cells, LCM_RowContext& context) const;
    /// Judges rows and stores the verdicts.
    void judgeAndStore(const std::set<int>& rows, LCM_RowContext& context) const;

  private:
    /// The action that the row shows; null for none, the imperfection and a missing one.
    const tagCDB_LC_ACT* shownAction(const LCM_LoadCaseCells& cells, LCM_RowContext& context) const;

    TableLoadCases& m_table;
    LCM_RowActions& m_actions;
    const tagCDB_LC_ACT& m_limits;
};
