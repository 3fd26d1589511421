#include "tests/combine/oracle_rules.h"

#include <algorithm>

#include "combine/decimal.h"

namespace oracle {

using namespace mrl::combine;

Rules::Rules(const Model& model, const LCM_Situation& situation, int expression)
    : m_model(model), m_situation(situation),
      m_expression(situation.expressions[static_cast<std::size_t>(expression)]),
      m_acts(actsOf(model, situation))
{
    for (const Action& action : model.actions) { // pools and their blocks, load cases or not
        if (action.superposition == LC_SUPERPOSITION_EXEX && action.category == Category::Variable) {
            for (const Act& act : m_acts) {
                if (act.name == action.name) {
                    m_poolBlocks[first(action.name)].insert(act.block);
                }
            }
        }
    }
}

bool Rules::isVariable(std::size_t i) const
{
    return m_acts[i].category == Category::Variable && !m_acts[i].isImperfection;
}

bool Rules::isPool(std::size_t i) const
{
    return m_poolBlocks.count(first(m_acts[i].name)) > 0 &&
           m_poolBlocks.at(first(m_acts[i].name)).count(m_acts[i].block) > 0 && isExex(i);
}

bool Rules::isExex(std::size_t i) const
{
    return std::any_of(m_model.actions.begin(), m_model.actions.end(), [&](const Action& a) {
        return a.name == m_acts[i].name && a.superposition == LC_SUPERPOSITION_EXEX;
    });
}

bool Rules::isMust(std::size_t i) const
{
    const Superposition code = m_acts[i].code;
    const bool isShared = isPool(i) && m_poolBlocks.at(first(m_acts[i].name)).size() > 1;
    const bool isLoose = m_expression.sum && m_acts[i].group > 0 && m_situation.groups == LCM_Groups::Exclude;
    return !isShared && !isLoose && !isSpread(i) && (m_expression.sum || mustByPlain(i)) &&
           (code == LC_SUPERPOSITION_PERM || code == LC_SUPERPOSITION_PERC || code == LC_SUPERPOSITION_ALEX);
}

bool Rules::isSpread(std::size_t i) const
{
    for (std::size_t j = 0; j < m_acts.size() && m_expression.sum && isExex(i); ++j) {
        const bool isSame = isVariable(j) && isExex(j) && m_acts[i].block == m_acts[j].block &&
                            first(m_acts[i].name) == first(m_acts[j].name);
        if (isSame && place(i) != place(j)) {
            return true;
        }
    }
    return false;
}

bool Rules::isShort(const std::string& name) const
{
    return std::any_of(m_expression.shortActions.begin(), m_expression.shortActions.end(),
                       [&](const std::string& each) { return lcm_action_matches(each, name) > 0; });
}

const LCM_RoleEntry* Rules::entry(LCM_Role role, std::size_t i, const std::vector<std::string>& present) const
{
    const LCM_RoleEntry* found = lcm_role_entry(m_expression, role, m_acts[i].name, present);
    return found != nullptr && found->unfavourable ? found : nullptr;
}

std::pair<int, int> Rules::place(std::size_t i) const
{
    std::pair<int, int> found{-1, -1};
    int best = 0;
    for (std::size_t b = 0; b < m_expression.sum->size(); ++b) {
        for (std::size_t a = 0; a < (*m_expression.sum)[b].size(); ++a) {
            const int close = lcm_action_matches((*m_expression.sum)[b][a].action, m_acts[i].name);
            if (close > best) {
                best = close;
                found = {static_cast<int>(b), static_cast<int>(a)};
            }
        }
    }
    return found;
}

bool Rules::canLead(std::size_t i, const std::string& accident) const
{
    const LCM_RoleEntry* lead =
        entry(LCM_Role::Lead, i,
              accident.empty() ? std::vector<std::string>{} : std::vector<std::string>{accident});
    const LCM_RoleEntry* others = entry(LCM_Role::Others, i, {});
    const bool isAsked =
        std::any_of(m_expression.entries.begin(), m_expression.entries.end(), [&](const LCM_RoleEntry& e) {
            return e.role == LCM_Role::Others && !e.when.empty() &&
                   lcm_action_matches(e.when, m_acts[i].name) > 0;
        });
    return !m_expression.sum && lead != nullptr &&
           (isAsked || others == nullptr || *lead->unfavourable != *others->unfavourable);
}

bool Rules::plainTerm(std::size_t i) const { return entry(LCM_Role::Others, i, {}) != nullptr; }

bool Rules::mustByPlain(std::size_t i) const
{
    if (!isExex(i)) {
        return m_expression.sum || plainTerm(i);
    }
    for (std::size_t j = 0; j < m_acts.size(); ++j) {
        const bool isSame = isVariable(j) && isExex(j) && m_acts[i].block == m_acts[j].block &&
                            first(m_acts[i].name) == first(m_acts[j].name);
        if (isSame && (m_expression.sum || plainTerm(j))) {
            return true;
        }
    }
    return false;
}

bool Rules::shortUnit(std::size_t i) const
{
    for (std::size_t j = 0; j < m_acts.size(); ++j) {
        const bool isSame =
            j == i || (isVariable(j) && isExex(i) && isExex(j) && m_acts[i].block == m_acts[j].block &&
                       first(m_acts[i].name) == first(m_acts[j].name));
        if (isSame && isShort(m_acts[j].name)) {
            return true;
        }
    }
    return false;
}

double Rules::value(const LCM_Term& term, std::size_t i) const
{
    double product = term.number;
    for (const std::string& name : term.constants) {
        product *= shortest(m_model.constants.at(name));
    }
    for (const LCM_SituationFactor f : term.factors) {
        product *= m_acts[i].factors[static_cast<std::size_t>(f)];
    }
    return rounded(product);
}

} // namespace oracle
