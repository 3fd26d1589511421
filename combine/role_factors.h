#pragma once

/// What an action takes in a role of an expression, as numbers.

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "combine/model.h"
#include "combine/pattern.h"
#include "combine/prepare.h"

namespace mrl::combine {

/// The factors of an action in a role.
struct FactorPair
{
    double unfavourable = 0;
    double favourable = 0;
};

/// Looks up terms of one expression and values them.
class RoleFactors
{
  public:
    /// All three outlive this object.
    RoleFactors(const LCM_Situation& situation, const LCM_Expression& expression,
                const std::map<std::string, float>& constants)
        : m_situation(situation), m_expression(expression), m_constants(constants)
    {
    }

    /// @param present as in lcm_role_entry
    /// @return nothing: the action doesn't act in this role
    std::optional<FactorPair> pair(LCM_Role role, const Member& member,
                                   const std::vector<std::string>& present) const;
    /// The same of a term.
    FactorPair pair(const LCM_Term& term, const Member& member) const;
    /// The value of a term for an action.
    double value(const LCM_Term& term, const Member& member) const;

    /// Whether the action can lead at all: it has a leading term, and it matters whether it leads.
    bool canLead(const Member& member, const std::vector<std::string>& accidental) const;

    /// What the superposition of a variable action says in this situation: `always = yes` lets all actions act but those
    /// with both signs.
    LCM_SuperpositionMeaning meaning(const Member& member) const;

    /// How the load cases of an acting member take part: one of these patterns. `Lead` of an action that must act
    /// takes the unfavourable factor, since it leads only where that is unfavourable.
    std::vector<Pattern> patterns(LCM_Role role, const Member& member, const FactorPair& factors) const;

  private:
    const LCM_Situation& m_situation;
    const LCM_Expression& m_expression;
    const std::map<std::string, float>& m_constants;
};

} // namespace mrl::combine
