#include "combine/explain.h"

#include <algorithm>
#include <map>

#include "combine/decimal.h"
#include "combine/expression.h"

namespace mrl::combine {

namespace {

constexpr double NO_SCALE = 1;

/// Joins the factors of a product; a number of 1 is said only where it stands alone.
std::string joined(double number, const std::vector<std::string>& rest)
{
    std::string text = number == 1 && !rest.empty() ? "" : decimalText(number);
    for (const std::string& each : rest) {
        text += (text.empty() ? "" : "*") + each;
    }
    return text;
}

class Explanation
{
  public:
    Explanation(const Model& model, const LCM_Situation& situation, const Plan& plan,
                const Combination& combination)
        : m_model(model), m_situation(situation),
          m_expression(situation.expressions[static_cast<std::size_t>(combination.expression)]), m_plan(plan),
          m_resolved(situation, m_expression, plan.prepared, model.constants)
    {
        readParts(combination);
    }

    Origin of(const Share& share) const;

  private:
    void readParts(const Combination& combination);
    bool matches(const LCM_Term& term, const Member& member, double scale, Origin& origin) const;
    std::vector<LCM_Term> terms(const Part& part) const;
    const Member& member(int place) const { return m_plan.prepared.members[static_cast<std::size_t>(place)]; }

    const Model& m_model;
    const LCM_Situation& m_situation;
    const LCM_Expression& m_expression;
    const Plan& m_plan;
    ResolvedExpression m_resolved;
    std::map<int, Part> m_parts; // by load case
    std::vector<std::string> m_leading;
    std::vector<std::string> m_accident;
};

void Explanation::readParts(const Combination& combination)
{
    for (const Part& part : combination.parts) {
        const Member& own = member(part.member);
        for (int i = own.first; i < own.first + own.count; ++i) {
            m_parts.emplace(m_plan.prepared.numbers[static_cast<std::size_t>(i)], part);
        }
        if (part.role == LCM_Role::Accidental || part.role == LCM_Role::Seismic) {
            m_accident = {own.name};
        } else if (part.role == LCM_Role::Lead) {
            m_leading = m_resolved.leaderNames(m_resolved.leaderKind(part.member));
        }
    }
}

/// The terms that a part may have taken, the unfavourable one first.
std::vector<LCM_Term> Explanation::terms(const Part& part) const
{
    LCM_RoleEntry entry;
    const bool isVariable = part.role == LCM_Role::Others;
    if (m_resolved.isSum() && isVariable) {
        entry.unfavourable = m_resolved.place(part.member).term;
    } else {
        const bool leads = part.role == LCM_Role::Lead;
        const LCM_RoleEntry* found =
            lcm_role_entry(m_expression, part.role, member(part.member).name, leads ? m_accident : m_leading);
        if (found == nullptr || !found->unfavourable) {
            return {};
        }
        entry = *found;
    }
    return {*entry.unfavourable, *lcm_favourable_term(entry)};
}

/// Fills in the term when it gives the factor, with either sign.
bool Explanation::matches(const LCM_Term& term, const Member& member, double scale, Origin& origin) const
{
    const double value = rounded(m_resolved.factors().value(term, member) * scale);
    if (value != origin.factor && value != -origin.factor) {
        return false;
    }
    LCM_Term scaled = term;
    scaled.number *= value == origin.factor ? scale : -scale;
    std::vector<std::string> numbers;
    numbers.reserve(term.constants.size() + term.factors.size());
    for (const std::string& constant : term.constants) {
        numbers.push_back(decimalText(shortest(m_model.constants.at(constant))));
    }
    for (const LCM_SituationFactor each : term.factors) {
        numbers.push_back(decimalText(member.factors[static_cast<std::size_t>(each)]));
    }
    origin.term = termText(scaled);
    origin.values = joined(scaled.number, numbers);
    return true;
}

Origin Explanation::of(const Share& share) const
{
    Origin origin;
    origin.number = share.number;
    origin.factor = share.factor;
    const auto part = m_parts.find(share.number);
    if (part == m_parts.end()) {
        return origin;
    }
    const Member& own = member(part->second.member);
    origin.action = own.name;
    origin.role = part->second.role;
    const bool hasComponents = origin.role == LCM_Role::Seismic && m_situation.firstComponent > 0;
    const std::vector<double> scales =
        hasComponents ? std::vector<double>{m_situation.firstComponent, m_situation.otherComponents}
                      : std::vector<double>{NO_SCALE};
    for (const LCM_Term& term : terms(part->second)) {
        if (std::any_of(scales.begin(), scales.end(),
                        [&](double scale) { return matches(term, own, scale, origin); })) {
            break;
        }
    }
    return origin;
}

} // namespace

std::string termText(const LCM_Term& term)
{
    std::vector<std::string> names = term.constants;
    for (const LCM_SituationFactor each : term.factors) {
        names.emplace_back(lcm_factor(each).key);
    }
    return joined(term.number, names);
}

std::vector<Origin> explain(const Model& model, const LCM_Situation& situation, const Plan& plan,
                            const Combination& combination)
{
    const Explanation explanation(model, situation, plan, combination);
    std::vector<Origin> origins;
    for (const Share& share : combination.key) {
        origins.push_back(explanation.of(share));
    }
    return origins;
}

} // namespace mrl::combine
