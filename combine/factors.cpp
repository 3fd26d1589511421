#include "combine/factors.h"

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

/// A permanent action: one factor for all of it, whichever is worse. COND leaves out what is favourable instead.
std::vector<Pattern> permanent(Superposition superposition, const FactorPair& factors)
{
    const std::vector<double> choice = both(factors);
    std::vector<Pattern> patterns;
    switch (superposition) {
    case Superposition::Perc:
        return {always(choice)};
    case Superposition::Cond:
        return {factors.unfavourable == 0 ? always({0}) : always({0, factors.unfavourable})};
    case Superposition::Excl:
    case Superposition::Exex:
    case Superposition::Alex:
        return {one(choice)};
    case Superposition::Perm:
        for (const double factor : choice) {
            patterns.push_back(always({factor}));
        }
        return patterns;
    case Superposition::Unsi:
    case Superposition::Usex:
        break;
    }
    for (const double factor : choice) {
        patterns.push_back(superposition == Superposition::Unsi ? some(signs(factor)) : one(signs(factor)));
    }
    return patterns;
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

bool RoleFactors::mustAct(const Member& member) const
{
    switch (member.superposition) {
    case Superposition::Perm:
    case Superposition::Perc:
    case Superposition::Alex:
        return true;
    case Superposition::Cond:
    case Superposition::Excl:
    case Superposition::Exex:
        return m_situation.always;
    case Superposition::Unsi:
    case Superposition::Usex:
        break;
    }
    return false;
}

std::vector<Pattern> RoleFactors::variable(LCM_Role role, Superposition superposition,
                                           const FactorPair& factors) const
{
    const bool leads = role == LCM_Role::Lead;
    const double worse = factors.unfavourable;
    const std::vector<double> choice = leads ? std::vector<double>{worse} : both(factors);
    switch (superposition) {
    case Superposition::Cond:
        return {some({worse})};
    case Superposition::Excl:
    case Superposition::Exex:
        return {one({worse})};
    case Superposition::Unsi:
        return {some(signs(worse))};
    case Superposition::Usex:
        return {one(signs(worse))};
    case Superposition::Alex:
        return {one(choice)};
    case Superposition::Perc:
        if (leads && worse != factors.favourable) {
            return {{{factors.favourable}, {worse}, Marks::Some}};
        }
        return {always(choice)};
    case Superposition::Perm:
        break;
    }
    std::vector<Pattern> patterns;
    for (const double factor : choice) {
        patterns.push_back(always({factor}));
    }
    return patterns;
}

std::vector<Pattern> RoleFactors::patterns(LCM_Role role, const Member& member,
                                           const FactorPair& factors) const
{
    if (role == LCM_Role::Permanent || role == LCM_Role::Prestress) {
        return permanent(member.superposition, factors);
    }
    const double first = m_situation.firstComponent;
    if (role == LCM_Role::Seismic && first > 0) {
        return {{scaled(signs(factors.unfavourable), m_situation.otherComponents),
                 scaled(signs(factors.unfavourable), first), Marks::One}};
    }
    Superposition superposition = member.superposition;
    const bool isVariable = role == LCM_Role::Lead || role == LCM_Role::Others || role == LCM_Role::Second;
    if (isVariable && m_situation.always && superposition == Superposition::Cond) {
        superposition = Superposition::Perm;
    } else if (isVariable && mustAct(member) && superposition != Superposition::Perc &&
               superposition != Superposition::Perm) {
        superposition = Superposition::Alex;
    }
    return variable(role, superposition, factors);
}

} // namespace mrl::combine
