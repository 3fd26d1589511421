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
    const auto variable =
        std::stable_partition(m_acts.begin(), m_acts.end(), [](const Act& act) { return !act.isVariable(); });
    m_constants = static_cast<std::size_t>(variable - m_acts.begin());
    for (auto act = variable; act != m_acts.end(); ++act) {
        if (act->isExex) {
            m_poolBlocks[act->first].insert(act->block);
        }
    }
    for (std::size_t i = 0; i < m_acts.size(); ++i) {
        m_places.push_back(findPlace(i));
    }
    for (std::size_t i = 0; i < m_acts.size(); ++i) {
        m_isMust.push_back(findMust(i));
    }
}

bool Rules::isSamePool(std::size_t i, std::size_t j) const
{
    const Act& a = m_acts[i];
    const Act& b = m_acts[j];
    return a.isVariable() && b.isVariable() && a.isExex && b.isExex && a.block == b.block &&
           a.first == b.first;
}

bool Rules::findMust(std::size_t i) const
{
    const Act& act = m_acts[i];
    const auto blocks = m_poolBlocks.find(act.first);
    const bool isShared = act.isExex && blocks != m_poolBlocks.end() && blocks->second.size() > 1;
    const bool isLoose = m_expression.sum && act.group > 0 && m_situation.groups == LCM_Groups::Exclude;
    return !isShared && !isLoose && !isSpread(i) && (m_expression.sum || mustByPlain(i)) &&
           (act.code == LC_SUPERPOSITION_PERM || act.code == LC_SUPERPOSITION_PERC ||
            act.code == LC_SUPERPOSITION_ALEX);
}

bool Rules::isSpread(std::size_t i) const
{
    for (std::size_t j = m_constants; j < m_acts.size() && m_expression.sum; ++j) {
        if (isSamePool(i, j) && place(i) != place(j)) {
            return true;
        }
    }
    return false;
}

bool Rules::isShort(std::size_t i) const
{
    return std::any_of(m_expression.shortActions.begin(), m_expression.shortActions.end(),
                       [&](const std::string& each) { return lcm_action_matches(each, m_acts[i].name) > 0; });
}

const LCM_RoleEntry* Rules::entry(LCM_Role role, std::size_t i, const std::vector<std::string>& present) const
{
    const auto [known, isNew] = m_entries[present].try_emplace({role, i}, nullptr);
    if (isNew) {
        const LCM_RoleEntry* found = lcm_role_entry(m_expression, role, m_acts[i].name, present);
        known->second = found != nullptr && found->unfavourable ? found : nullptr;
    }
    return known->second;
}

std::pair<int, int> Rules::findPlace(std::size_t i) const
{
    std::pair<int, int> found{-1, -1};
    int best = 0;
    for (std::size_t b = 0; m_expression.sum && b < m_expression.sum->size(); ++b) {
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

bool Rules::mustByPlain(std::size_t i) const
{
    for (std::size_t j = 0; j < m_acts.size(); ++j) {
        const bool isHere = j == i || isSamePool(i, j);
        if (isHere && (m_expression.sum || entry(LCM_Role::Others, j, {}) != nullptr)) {
            return true;
        }
    }
    return false;
}

bool Rules::shortUnit(std::size_t i) const
{
    for (std::size_t j = 0; j < m_acts.size(); ++j) {
        if ((j == i || isSamePool(i, j)) && isShort(j)) {
            return true;
        }
    }
    return false;
}

std::pair<double, double> Rules::factors(const LCM_RoleEntry& entry, std::size_t i) const
{
    const auto [known, isNew] = m_factors.try_emplace({&entry, i});
    if (isNew) {
        known->second = {value(*entry.unfavourable, i), value(*lcm_favourable_term(entry), i)};
    }
    return known->second;
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
