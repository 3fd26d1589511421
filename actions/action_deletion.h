#pragma once

#include <set>
#include <vector>

#include "lcdata/values/records.h"

class LCM_ActionsWidget;
class LCM_LoadCaseTab;
class MRL_H_TableWidget;

/// What the deletion of the selected actions takes with it. Actions that load cases use go only if the user
/// agrees, and their load cases with them; a refusal spares these alone.
class LCM_ActionDeletion
{
  public:
    /// Gathers the selected actions. @param loadCaseTab null: no action counts as used
    LCM_ActionDeletion(LCM_ActionsWidget& tab, LCM_LoadCaseTab* loadCaseTab);

    /// Asks about the used actions if there are any; on agreement removes their load cases and takes the
    /// actions along.
    void askForUsed();
    /// Action codes that leave the project.
    const std::set<int>& codes() const { return m_codes; }
    /// The positions of their rows; -1 for one that has none.
    const std::set<int>& rows() const { return m_rows; }

  private:
    std::vector<int> rowsInSelectionOrder() const;
    bool userAgrees() const;
    void addUsed();
    std::vector<tagCDB_LC_ACT> usedActions() const;
    tagCDB_LC_ACT actionOf(int code) const;

    LCM_ActionsWidget& m_tab;
    const MRL_H_TableWidget* m_table;
    LCM_LoadCaseTab* m_loadCaseTab;
    std::set<int> m_codes;
    std::set<int> m_rows;
    std::vector<int> m_used; ///< selected actions that load cases refer to, in the order of their discovery
};
