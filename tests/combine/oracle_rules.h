#pragma once

/// What the oracle reads in an expression before any load case acts.

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/combine/oracle_acts.h"

namespace oracle {

/// Actions go by their place in `m_acts`.
class Rules
{
  protected:
    /// All outlive this object.
    Rules(const mrl::combine::Model& model, const LCM_Situation& situation, int expression);

    bool isVariable(std::size_t i) const;
    /// Whether it excludes the other suffixes of its first part.
    bool isExex(std::size_t i) const;
    /// Whether it does so with actions of its own block.
    bool isPool(std::size_t i) const;
    bool isMust(std::size_t i) const;
    /// Whether a pool stands in several alternatives of a sum.
    bool isSpread(std::size_t i) const;
    bool isShort(const std::string& name) const;
    const LCM_RoleEntry* entry(LCM_Role role, std::size_t i, const std::vector<std::string>& present) const;
    /// The bracket and the alternative of an action in the sum.
    std::pair<int, int> place(std::size_t i) const;
    bool canLead(std::size_t i, const std::string& accident) const;
    bool plainTerm(std::size_t i) const;
    bool mustByPlain(std::size_t i) const;
    /// A pool is short-term as a whole.
    bool shortUnit(std::size_t i) const;
    double value(const LCM_Term& term, std::size_t i) const;

    const mrl::combine::Model& m_model;
    const LCM_Situation& m_situation;
    const LCM_Expression& m_expression;
    std::vector<Act> m_acts;
    std::map<std::string, std::set<std::string>> m_poolBlocks; ///< of a pool's first part
};

} // namespace oracle
