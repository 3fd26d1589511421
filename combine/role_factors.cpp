#include "combine/role_factors.h"

#include <algorithm>

#include "combine/decimal.h"

namespace mrl::combine {

namespace {

/// The two factors of an action, equal ones once.
std::vector<double> both(const FactorPair& factors)
{
    if (factors.unfavourable == factors.favourable) {
        return {factors.unfavourable};
    }
    return {factors.unfavourable, factors.favourable};
}

/// A factor with both signs.
std::vector<double> signs(double factor)
{
    return factor == 0 ? std::vector<double>{0.0} : std::vector<double>{factor, -factor};
}

Pattern always(std::vector<double> factors) { return {std::move(factors), {}, Marks::None}; }
Pattern some(std::vector<double> factors) { return {{0}, std::move(factors), Marks::Some}; }
Pattern one(std::vector<double> factors) { return {{0}, std::move(factors), Marks::One}; }

std::vector<Pattern> alwaysEach(const std::vector<double>& factors)
{
    std::vector<Pattern> patterns(factors.size());
    std::transform(factors.begin(), factors.end(), patterns.begin(),
                   [](double factor) { return always({factor}); });
    return patterns;
}

/// A permanent action: one factor for all of it, whichever is worse. What needn't act is left out where it is favourable
/// instead.
std::vector<Pattern> permanent(const LCM_SuperpositionMeaning& means, const FactorPair& factors)
{
    const std::vector<double> choice = both(factors);
    if (means.hasBothSigns) {
        std::vector<Pattern> patterns;
        patterns.reserve(choice.size());
        for (const double factor : choice) {
            patterns.push_back(means.acting == LCM_Acting::One ? one(signs(factor)) : some(signs(factor)));
        }
        return patterns;
    }
    switch (means.acting) {
    case LCM_Acting::One:
        return {one(choice)};
    case LCM_Acting::Any:
        return {factors.unfavourable == 0 ? always({0}) : always({0, factors.unfavourable})};
    case LCM_Acting::All:
        break;
    }
    return means.choosesEach ? std::vector<Pattern>{always(choice)} : alwaysEach(choice);
}

/// A variable action. One that must act takes the favourable factor where that is worse, unless it leads.
std::vector<Pattern> variable(const LCM_SuperpositionMeaning& means, bool leads, const FactorPair& factors)
{
    const double worse = factors.unfavourable;
    const bool takesBoth = means.isAlwaysThere && !leads;
    const std::vector<double> choice = takesBoth ? both(factors) : std::vector<double>{worse};
    const std::vector<double> signedChoice = means.hasBothSigns ? signs(worse) : choice;
    switch (means.acting) {
    case LCM_Acting::One:
        return {one(signedChoice)};
    case LCM_Acting::Any:
        return {some(signedChoice)};
    case LCM_Acting::All:
        break;
    }
    if (!means.choosesEach) {
        return alwaysEach(choice);
    }
    if (leads && worse != factors.favourable) {
        return {{{factors.favourable}, {worse}, Marks::Some}};
    }
    return {always(choice)};
}

std::vector<double> scaled(std::vector<double> factors, double scale)
{
    std::transform(factors.begin(), factors.end(), factors.begin(),
                   [&](double f) { return rounded(f * scale); });
    factors.erase(std::unique(factors.begin(), factors.end()), factors.end()); // both signs of 0
    return factors;
}

} // namespace

double RoleFactors::value(const LCM_Term& term, const Member& member) const
{
    double product = term.number;
    for (const std::string& name : term.constants) {
        const auto constant = m_constants.find(name);
        product *= constant == m_constants.end() ? 0 : shortest(constant->second);
    }
    for (const LCM_SituationFactor each : term.factors) {
        product *= member.factors[static_cast<std::size_t>(each)];
    }
    return rounded(product);
}

std::optional<FactorPair> RoleFactors::pair(LCM_Role role, const Member& member,
                                            const std::vector<std::string>& present) const
{
    const LCM_RoleEntry* entry = lcm_role_entry(m_expression, role, member.name, present);
    if (entry == nullptr || !entry->unfavourable) {
        return std::nullopt;
    }
    return FactorPair{value(*entry->unfavourable, member), value(*lcm_favourable_term(*entry), member)};
}

FactorPair RoleFactors::pair(const LCM_Term& term, const Member& member) const
{
    LCM_RoleEntry entry;
    entry.unfavourable = term;
    return {value(term, member), value(*lcm_favourable_term(entry), member)};
}

bool RoleFactors::canLead(const Member& member, const std::vector<std::string>& accidental) const
{
    const LCM_RoleEntry* lead = lcm_role_entry(m_expression, LCM_Role::Lead, member.name, accidental);
    const LCM_RoleEntry* others = lcm_role_entry(m_expression, LCM_Role::Others, member.name);
    if (lead == nullptr || !lead->unfavourable) {
        return false;
    }
    const bool isNamed =
        std::any_of(m_expression.entries.begin(), m_expression.entries.end(), [&](const auto& entry) {
            return entry.role == LCM_Role::Others && !entry.when.empty() &&
                   lcm_action_matches(entry.when, member.name) > 0;
        });
    return isNamed || others == nullptr || lead->unfavourable != others->unfavourable;
}

LCM_SuperpositionMeaning RoleFactors::meaning(const Member& member) const
{
    LCM_SuperpositionMeaning means = lcm_superposition_meaning(member.superposition);
    if (m_situation.always && !means.hasBothSigns && !means.isAlwaysThere) {
        means.isAlwaysThere = true;
        means.acting = means.acting == LCM_Acting::Any ? LCM_Acting::All : means.acting;
    }
    return means;
}

std::vector<Pattern> RoleFactors::patterns(LCM_Role role, const Member& member,
                                           const FactorPair& factors) const
{
    const double first = m_situation.firstComponent;
    switch (role) {
    case LCM_Role::Permanent:
    case LCM_Role::Prestress:
        return permanent(lcm_superposition_meaning(member.superposition), factors);
    case LCM_Role::Lead:
    case LCM_Role::Others:
    case LCM_Role::Second:
        return variable(meaning(member), role == LCM_Role::Lead, factors);
    case LCM_Role::Seismic:
        if (first > 0) {
            return {{scaled(signs(factors.unfavourable), m_situation.otherComponents),
                     scaled(signs(factors.unfavourable), first), Marks::One}};
        }
        break;
    case LCM_Role::Accidental:
    case LCM_Role::Imperfection:
        break;
    }
    return variable(lcm_superposition_meaning(member.superposition), false, factors);
}

} // namespace mrl::combine
