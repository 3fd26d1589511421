#pragma once

/// What the oracle reads in an expression before any load case acts.

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/combine/oracle_acts.h"

namespace oracle {

/// Actions go by their place in `m_acts`, the variable ones behind all others. What does not change from one selection
/// to the next is found once.
class Rules
{
  protected:
    /// All outlive this object.
    Rules(const mrl::combine::Model& model, const LCM_Situation& situation, int expression);

    /// Whether two variable actions exclude each other within one block.
    bool isSamePool(std::size_t i, std::size_t j) const;
    bool isMust(std::size_t i) const { return m_isMust[i]; }
    bool isShort(std::size_t i) const;
    const LCM_RoleEntry* entry(LCM_Role role, std::size_t i, const std::vector<std::string>& present) const;
    /// The bracket and the alternative of an action in the sum; -1 without one.
    std::pair<int, int> place(std::size_t i) const { return m_places[i]; }
    bool canLead(std::size_t i, const std::string& accident) const;
    bool mustByPlain(std::size_t i) const;
    /// A pool is short-term as a whole.
    bool shortUnit(std::size_t i) const;
    /// The unfavourable and the favourable factor of an action by an entry.
    std::pair<double, double> factors(const LCM_RoleEntry& entry, std::size_t i) const;

    const mrl::combine::Model& m_model;
    const LCM_Situation& m_situation;
    const LCM_Expression& m_expression;
    std::vector<Act> m_acts;
    std::size_t m_constants = 0; ///< actions ahead of the variable ones

  private:
    bool findMust(std::size_t i) const;
    std::pair<int, int> findPlace(std::size_t i) const;
    /// Whether a pool stands in several alternatives of a sum.
    bool isSpread(std::size_t i) const;
    double value(const LCM_Term& term, std::size_t i) const;

    std::map<std::string, std::set<std::string>> m_poolBlocks; ///< of a pool's first part
    std::vector<std::pair<int, int>> m_places;
    std::vector<bool> m_isMust;

    using OfRoleAndAction = std::map<std::pair<LCM_Role, std::size_t>, const LCM_RoleEntry*>;
    mutable std::map<std::vector<std::string>, OfRoleAndAction> m_entries;
    mutable std::map<std::pair<const LCM_RoleEntry*, std::size_t>, std::pair<double, double>> m_factors;
};

} // namespace oracle
