#pragma once

#include <set>
#include <vector>

#include "lcdata/values/records.h"

class LCM_RowActions;
class LCM_ActionsWidget;
class LCM_LoadCaseCells;
class LCM_LoadCaseRows;
class LCM_LoadcaseWidget;
class TableLoadCases;

/// How the rows of the load-case table follow the changes of the actions tab.
class LCM_LoadCaseReconciliation
{
  public:
    /// @param actionsTab null without one; then the working model tells the actions. All outlive this.
    LCM_LoadCaseReconciliation(LCM_LoadcaseWidget& tab, TableLoadCases& table, LCM_RowActions& actions,
                               LCM_LoadCaseRows& rows, LCM_ActionsWidget* actionsTab)
        : m_tab(tab), m_table(table), m_actions(actions), m_rows(rows), m_actionsTab(actionsTab)
    {
    }

    /// Offers the present actions, moves every row to its new entry and judges all rows.
    /// @return whether a row came to another entry or another text
    bool rebuildList();
    /// Shows the present values of an action in its load cases. Judges nothing.
    void refreshLoadCasesOf(int code);
    /// Shows re-initialised actions in their load cases.
    /// @param rows positions in the actions table @return whether a cell changed
    bool reinitialise(const std::set<int>& rows);

  private:
    std::vector<tagCDB_LC_ACT> presentActions() const;
    static bool showReinitialised(const LCM_LoadCaseCells& cells, const tagCDB_LC_ACT& action);

    LCM_LoadcaseWidget& m_tab;
    TableLoadCases& m_table;
    LCM_RowActions& m_actions;
    LCM_LoadCaseRows& m_rows;
    LCM_ActionsWidget* m_actionsTab;
};
