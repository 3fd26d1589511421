#pragma once

/// One expression of a situation, resolved for the actions of a model: which alternatives of brackets they are, which
/// leading actions and which accidental ones make a difference, who must act. Nothing here is searched.

#include <string>
#include <vector>

#include "combine/role_factors.h"

namespace mrl::combine {

/// A variable action's place in a sum.
struct SumPlace
{
    int bracket = -1; ///< -1: the sum doesn't name the action
    int alternative = 0;
    LCM_Term term;
};

class ResolvedExpression
{
  public:
    /// All outlive this object.
    ResolvedExpression(const LCM_Situation& situation, const LCM_Expression& expression,
                       const Prepared& prepared, const std::map<std::string, float>& constants);

    const RoleFactors& factors() const { return m_factors; }
    const LCM_Situation& situation() const { return m_situation; }
    const Prepared& prepared() const { return m_prepared; }

    bool isSum() const { return m_expression.sum.has_value(); }
    int brackets() const { return isSum() ? static_cast<int>(m_expression.sum->size()) : 0; }
    int alternatives(int bracket) const;
    const SumPlace& place(int member) const { return m_places[static_cast<std::size_t>(member)]; }

    /// Whether one of the members of a unit must act by what the expression says of others.
    bool mustAct(const Unit& unit) const;
    bool isShort(const Unit& unit) const;
    /// Whether an accidental or seismic action has to act.
    bool needsAccident() const;

    /// Kinds of accidental actions, from 0: actions of one kind give the leading one the same factor.
    int accidentKind(int member) const;
    const std::vector<std::string>& accidentNames(int kind) const
    {
        return m_accidents[static_cast<std::size_t>(kind)];
    }

    /// Kinds of leading actions, from 0: actions of one kind give the others the same factor. A load group leads under
    /// the names of all its actions.
    int leaderKind(int member) const { return m_leaderOf[static_cast<std::size_t>(member)]; }
    int leaderKinds() const { return static_cast<int>(m_leaders.size()); }
    const std::vector<std::string>& leaderNames(int kind) const
    {
        return m_leaders[static_cast<std::size_t>(kind)];
    }

  private:
    void placeInSum();
    void sortLeaders();
    std::vector<std::string> namesOf(int member) const;

    const LCM_Situation& m_situation;
    const LCM_Expression& m_expression;
    const Prepared& m_prepared;
    RoleFactors m_factors;
    std::vector<SumPlace> m_places;
    std::vector<std::vector<std::string>> m_accidents;
    std::vector<int> m_accidentOf;
    std::vector<std::vector<std::string>> m_leaders;
    std::vector<int> m_leaderOf;
};

} // namespace mrl::combine
