#pragma once

/// One selection of load cases for every action, and whether an expression allows it before anybody leads.

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/combine/oracle_rules.h"

namespace oracle {

class Selected : protected Rules
{
  protected:
    Selected(const mrl::combine::Model& model, const LCM_Situation& situation, int expression)
        : Rules(model, situation, expression), m_chosen(m_acts.size()), m_acting(m_acts.size()),
          m_roles(m_acts.size())
    {
    }

    void take(std::size_t i, const Selection& selection);
    bool acts(std::size_t i) const { return m_acting[i]; }
    /// Whether any action of its pool acts, or the action itself.
    bool poolActs(std::size_t i) const;
    /// Permanent, accidental and seismic actions, and imperfections. Gives each its role.
    bool constantPartFits();
    /// Pools, load groups and the number of variable actions.
    bool exclusionsFit();
    /// The alternatives of the brackets.
    bool sumFits() const;
    /// Whether an action that must act rests by right.
    bool mayRest(std::size_t i) const;

    std::vector<Selection> m_chosen;           ///< by action
    std::vector<bool> m_acting;                ///< by action
    std::vector<const LCM_RoleEntry*> m_roles; ///< by action; null: it rests
    std::string m_accident;                    ///< the accidental or seismic action that acts
    std::set<std::string> m_actingBlocks;
    int m_group = 0;                        ///< the first load group that acts
    std::vector<std::string> m_leaderNames; ///< the names under which the leading block leads

  private:
    bool acceptsConstant(std::size_t i);
    bool sumAllowsRest(std::size_t i, std::map<int, std::set<int>>& actingIn) const;
    std::map<int, std::set<int>> mustInBrackets() const;
    bool hasOthersTerm(std::size_t i) const;
    bool someGroupMayRest() const;
};

} // namespace oracle
