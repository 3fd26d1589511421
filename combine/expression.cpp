#include "combine/expression.h"

#include <algorithm>

namespace mrl::combine {

namespace {

/// How each `when` of a role fits a set of names.
std::vector<int> fits(const LCM_Expression& expression, LCM_Role role, const std::vector<std::string>& names)
{
    std::vector<int> result;
    for (const LCM_RoleEntry& entry : expression.entries) {
        if (entry.role == role && !entry.when.empty()) {
            int fit = 0;
            for (const std::string& name : names) {
                fit = std::max(fit, lcm_action_matches(entry.when, name));
            }
            result.push_back(fit);
        }
    }
    return result;
}

/// The kind that a set of names belongs to, a new one where there is none yet.
int kindOf(const LCM_Expression& expression, LCM_Role role, std::vector<std::vector<std::string>>& kinds,
           const std::vector<std::string>& names)
{
    const std::vector<int> wanted = fits(expression, role, names);
    for (std::size_t kind = 0; kind < kinds.size(); ++kind) {
        if (fits(expression, role, kinds[kind]) == wanted) {
            return static_cast<int>(kind);
        }
    }
    kinds.push_back(names);
    return static_cast<int>(kinds.size()) - 1;
}

} // namespace

ResolvedExpression::ResolvedExpression(const LCM_Situation& situation, const LCM_Expression& expression,
                                       const Prepared& prepared,
                                       const std::map<std::string, float>& constants)
    : m_situation(situation), m_expression(expression), m_prepared(prepared),
      m_factors(situation, expression, constants), m_places(prepared.members.size()),
      m_accidentOf(prepared.members.size()), m_leaderOf(prepared.members.size())
{
    placeInSum();
    sortLeaders();
}

void ResolvedExpression::placeInSum()
{
    for (std::size_t member = 0; isSum() && member < m_places.size(); ++member) {
        int closest = 0;
        for (int bracket = 0; bracket < brackets(); ++bracket) {
            for (int i = 0; i < alternatives(bracket); ++i) {
                const LCM_SumTerm& term =
                    m_expression.sum->at(static_cast<std::size_t>(bracket))[static_cast<std::size_t>(i)];
                const int close = lcm_action_matches(term.action, m_prepared.members[member].name);
                if (close > closest) {
                    closest = close;
                    m_places[member] = {bracket, i, term.term};
                }
            }
        }
    }
}

int ResolvedExpression::alternatives(int bracket) const
{
    return static_cast<int>(m_expression.sum->at(static_cast<std::size_t>(bracket)).size());
}

std::vector<std::string> ResolvedExpression::namesOf(int member) const
{
    const Member& own = m_prepared.members[static_cast<std::size_t>(member)];
    if (own.group == 0) {
        return {own.name};
    }
    std::vector<std::string> names;
    for (const Member& each : m_prepared.members) {
        if (each.group == own.group) {
            names.push_back(each.name);
        }
    }
    return names;
}

void ResolvedExpression::sortLeaders()
{
    for (const Unit& unit : m_prepared.units) {
        for (const int member : unit.members) {
            const auto place = static_cast<std::size_t>(member);
            if (unit.kind == UnitKind::Accidental) {
                m_accidentOf[place] =
                    kindOf(m_expression, LCM_Role::Lead, m_accidents, {m_prepared.members[place].name});
            } else if (unit.kind == UnitKind::Variable && !isSum()) {
                m_leaderOf[place] = kindOf(m_expression, LCM_Role::Others, m_leaders, namesOf(member));
            }
        }
    }
}

int ResolvedExpression::accidentKind(int member) const
{
    return m_accidentOf[static_cast<std::size_t>(member)];
}

bool ResolvedExpression::mustAct(const Unit& unit) const
{
    const auto actsAnyway = [&](int number) {
        const Member& each = m_prepared.members[static_cast<std::size_t>(number)];
        return m_factors.meaning(each).isAlwaysThere &&
               (isSum() || m_factors.pair(LCM_Role::Others, each, {}));
    };
    if (unit.pool >= 0 || std::none_of(unit.members.begin(), unit.members.end(), actsAnyway)) {
        return false; // a pool across load groups need not act, on the safe side
    }
    // Neither need, in a sum, a pool across alternatives, nor a load group that another one excludes.
    const SumPlace& first = place(unit.members.front());
    const bool isExcluded = unit.group > 0 && m_situation.groups == LCM_Groups::Exclude;
    return !isSum() || (!isExcluded && first.bracket >= 0 &&
                        std::all_of(unit.members.begin(), unit.members.end(), [&](int number) {
                            const SumPlace& other = place(number);
                            return other.bracket == first.bracket && other.alternative == first.alternative;
                        }));
}

bool ResolvedExpression::isShort(const Unit& unit) const
{
    const auto& names = m_expression.shortActions;
    return std::any_of(unit.members.begin(), unit.members.end(), [&](int member) {
        return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
            return lcm_action_matches(name, m_prepared.members[static_cast<std::size_t>(member)].name) > 0;
        });
    });
}

bool ResolvedExpression::needsAccident() const
{
    return !m_situation.mayBeNone &&
           std::any_of(m_expression.entries.begin(), m_expression.entries.end(),
                       [](const LCM_RoleEntry& entry) {
                           return (entry.role == LCM_Role::Accidental || entry.role == LCM_Role::Seismic) &&
                                  entry.unfavourable;
                       });
}

} // namespace mrl::combine
