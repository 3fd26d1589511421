#pragma once

/// What is known of the variable units of an expression before any of them acts: where blocks and brackets begin and end,
/// which are short-term, and which must act. A block is a load group, or a unit without one.

#include <vector>

#include "combine/expression.h"

namespace mrl::combine {

/// Where a bracket of a sum is open.
struct BracketSpan
{
    int firstUnit = -1; ///< -1: no action of the model stands in it
    int lastUnit = -1;
    std::vector<bool> must; ///< of each alternative: it has an action that must act
};

class Blocks
{
  public:
    /// @param expression outlives this object
    explicit Blocks(const ResolvedExpression& expression);

    int firstVariable() const { return m_firstVariable; } ///< -1: there is no variable unit
    bool opens(int unit) const;                           ///< the first unit of its block
    bool closes(int unit) const;                          ///< the last one
    /// Its load group, or the unit itself, is short-term.
    bool isShort(int unit) const { return m_isShort[static_cast<std::size_t>(unit)]; }
    bool mustAct(int unit) const { return m_mustAct[static_cast<std::size_t>(unit)]; }
    const std::vector<BracketSpan>& brackets() const { return m_brackets; }

  private:
    void readGroups();
    void readBrackets();

    const ResolvedExpression& m_expression;
    const Prepared& m_prepared;
    int m_firstVariable = -1;
    std::vector<bool> m_isShort;
    std::vector<bool> m_mustAct;
    std::vector<BracketSpan> m_brackets;
};

} // namespace mrl::combine
