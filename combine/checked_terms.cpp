#include "combine/checked_terms.h"

#include <algorithm>

#include "combine/decimal.h"

namespace mrl::combine {

double CheckedTerms::product(const LCM_Term& term, const CheckedPiece& piece) const
{
    double value = term.number;
    for (const std::string& name : term.constants) {
        value *= shortest(m_constants.at(name));
    }
    for (const LCM_SituationFactor each : term.factors) {
        value *= piece.factors.at(each);
    }
    return rounded(value);
}

/// The code that holds for a piece in this situation.
Superposition CheckedTerms::coded(const CheckedPiece& piece) const
{
    const bool isFree = piece.category == Category::Variable && !piece.isImperfection;
    return m_situation.always && isFree ? codeThatAlwaysActs(piece.superposition) : piece.superposition;
}

/// The bracket and the alternative of a piece in the sum; -1 where it has none.
std::pair<int, int> CheckedTerms::place(const Guess& guess, const CheckedPiece& piece) const
{
    std::pair<int, int> found{-1, -1};
    int closest = 0;
    for (std::size_t i = 0; i < guess.expression->sum->size(); ++i) {
        const LCM_Bracket& bracket = guess.expression->sum->at(i);
        for (std::size_t j = 0; j < bracket.size(); ++j) {
            if (lcm_action_matches(bracket[j].action, piece.name) > closest) {
                closest = lcm_action_matches(bracket[j].action, piece.name);
                found = {static_cast<int>(i), static_cast<int>(j)};
            }
        }
    }
    return found;
}

const LCM_SumTerm* CheckedTerms::sumTerm(const Guess& guess, const CheckedPiece& piece) const
{
    const auto [bracket, alternative] = place(guess, piece);
    if (bracket < 0 ||
        guess.alternatives.at(static_cast<std::size_t>(bracket)) != static_cast<std::size_t>(alternative)) {
        return nullptr;
    }
    return &guess.expression->sum->at(static_cast<std::size_t>(bracket))
                .at(static_cast<std::size_t>(alternative));
}

bool CheckedTerms::term(const Guess& guess, LCM_Role role, const CheckedPiece& piece, CheckedPart& part) const
{
    LCM_RoleEntry entry;
    const bool isVariable = role == LCM_Role::Lead || role == LCM_Role::Others || role == LCM_Role::Second;
    if (isVariable && guess.expression->sum) {
        const LCM_SumTerm* found = sumTerm(guess, piece);
        if (found == nullptr) {
            return false;
        }
        entry.unfavourable = found->term;
    } else {
        std::vector<std::string> present =
            role == LCM_Role::Others ? guess.leaderNames : std::vector<std::string>{};
        if (role == LCM_Role::Lead && guess.accident != nullptr) {
            present.push_back(guess.accident->name);
        }
        const LCM_RoleEntry* found = lcm_role_entry(*guess.expression, role, piece.name, present);
        if (found == nullptr || !found->unfavourable) {
            return false;
        }
        entry = *found;
    }
    part.superposition = coded(piece);
    part.worse = product(*entry.unfavourable, piece);
    part.better = product(*lcm_favourable_term(entry), piece);
    part.isPermanent = role == LCM_Role::Permanent || role == LCM_Role::Prestress;
    part.leads = role == LCM_Role::Lead;
    part.first = role == LCM_Role::Seismic ? m_situation.firstComponent : 0;
    part.others = m_situation.otherComponents;
    return true;
}

bool CheckedTerms::canLead(const Guess& guess, const CheckedPiece& piece) const
{
    if (guess.expression->sum) {
        return false;
    }
    std::vector<std::string> accident;
    if (guess.accident != nullptr) {
        accident.push_back(guess.accident->name);
    }
    const LCM_RoleEntry* lead = lcm_role_entry(*guess.expression, LCM_Role::Lead, piece.name, accident);
    const LCM_RoleEntry* others = lcm_role_entry(*guess.expression, LCM_Role::Others, piece.name);
    bool decidesForOthers = false;
    for (const LCM_RoleEntry& entry : guess.expression->entries) {
        decidesForOthers = decidesForOthers || (entry.role == LCM_Role::Others && !entry.when.empty() &&
                                                lcm_action_matches(entry.when, piece.name) != 0);
    }
    return lead != nullptr && lead->unfavourable &&
           (decidesForOthers || others == nullptr || !(lead->unfavourable == others->unfavourable));
}

bool CheckedTerms::mustAct(const Guess& guess, const CheckedBlock& unit) const
{
    const CheckedPiece& front = *unit.front();
    const bool isSum = guess.expression->sum.has_value();
    const bool isShared =
        std::find(m_sharedPools.begin(), m_sharedPools.end(), front.pool) != m_sharedPools.end();
    const bool isExcluded = isSum && m_situation.groups == LCM_Groups::Exclude && front.group > 0;
    const bool isSpread =
        isSum && std::any_of(unit.begin(), unit.end(), [&](const CheckedPiece* piece) {
            return place(guess, *piece) != place(guess, front) || place(guess, front).first < 0;
        });
    return !isShared && !isExcluded && !isSpread &&
           std::any_of(unit.begin(), unit.end(), [&](const CheckedPiece* piece) {
               const LCM_RoleEntry* others = lcm_role_entry(*guess.expression, LCM_Role::Others, piece->name);
               return isAlwaysThere(coded(*piece)) && (isSum || (others != nullptr && others->unfavourable));
           });
}

bool CheckedTerms::isShort(const Guess& guess, const CheckedBlock& block) const
{
    return std::any_of(block.begin(), block.end(), [&](const CheckedPiece* piece) {
        return std::any_of(
            guess.expression->shortActions.begin(), guess.expression->shortActions.end(),
            [&](const std::string& name) { return lcm_action_matches(name, piece->name) != 0; });
    });
}

} // namespace mrl::combine
