#include "tests/combine/oracle_selected.h"

#include <algorithm>

namespace oracle {

using namespace mrl::combine;

namespace {

LCM_Role constantRoleOf(const Act& act)
{
    return act.isImperfection                     ? LCM_Role::Imperfection
           : act.category == Category::Permanent  ? LCM_Role::Permanent
           : act.category == Category::Prestress  ? LCM_Role::Prestress
           : act.category == Category::Accidental ? LCM_Role::Accidental
                                                  : LCM_Role::Seismic;
}

} // namespace

void Selected::take(std::size_t i, const Selection& selection)
{
    m_chosen[i] = selection;
    m_acting[i] = occurrences(selection, "0") < static_cast<long>(selection.size());
}

/// A permanent action that must act and has a term acts.
bool Selected::acceptsConstant(std::size_t i)
{
    const Act& act = m_acts[i];
    const LCM_Role role = constantRoleOf(act);
    m_roles[i] = entry(role, i, {});
    if (m_roles[i] == nullptr) {
        return !acts(i);
    }
    const bool isMustAct = (role == LCM_Role::Permanent || role == LCM_Role::Prestress) &&
                           (act.code == LC_SUPERPOSITION_PERM || act.code == LC_SUPERPOSITION_PERC ||
                            act.code == LC_SUPERPOSITION_ALEX);
    return acts(i) || !isMustAct;
}

bool Selected::constantPartFits()
{
    int accidents = 0;
    std::map<std::string, int> pools;
    m_accident.clear();
    for (std::size_t i = 0; i < m_constants; ++i) {
        const Act& act = m_acts[i];
        if (!acceptsConstant(i)) {
            return false;
        }
        const bool isPermanent = !act.isImperfection &&
                                 (act.category == Category::Permanent || act.category == Category::Prestress);
        if (isPermanent && act.code == LC_SUPERPOSITION_EXEX && acts(i) &&
            ++pools[act.first + std::to_string(static_cast<int>(act.category))] > 1) {
            return false;
        }
        if (acts(i) && (act.category == Category::Accidental || act.category == Category::Seismic)) {
            ++accidents;
            m_accident = act.name;
        }
    }
    const bool isNeeded =
        !m_situation.mayBeNone &&
        std::any_of(m_expression.entries.begin(), m_expression.entries.end(), [](const LCM_RoleEntry& e) {
            return (e.role == LCM_Role::Accidental || e.role == LCM_Role::Seismic) && e.unfavourable;
        });
    return accidents <= 1 && (accidents == 1 || !isNeeded);
}

bool Selected::exclusionsFit()
{
    std::map<std::string, int> pools;
    std::set<int> groups;
    m_actingBlocks.clear();
    for (std::size_t i = m_constants; i < m_acts.size(); ++i) {
        if (!acts(i)) {
            continue;
        }
        if (m_acts[i].isExex && ++pools[m_acts[i].first] > 1) {
            return false;
        }
        if (m_acts[i].group > 0) {
            groups.insert(m_acts[i].group);
        }
        m_actingBlocks.insert(m_acts[i].block);
    }
    m_group = groups.empty() ? 0 : *groups.begin();
    return (m_situation.groups != LCM_Groups::Exclude || groups.size() <= 1) &&
           (m_situation.atMost == 0 || static_cast<int>(m_actingBlocks.size()) <= m_situation.atMost);
}

bool Selected::poolActs(std::size_t i) const
{
    for (std::size_t j = m_constants; j < m_acts.size(); ++j) {
        const bool isOfPool = m_acts[i].isExex && m_acts[j].isExex && m_acts[i].first == m_acts[j].first;
        if ((j == i || isOfPool) && acts(j)) {
            return true;
        }
    }
    return false;
}

/// Of each bracket the alternatives with an action that must act. A pool acts by any of its actions, so that all of them
/// must.
std::map<int, std::set<int>> Selected::mustInBrackets() const
{
    std::map<int, std::set<int>> mustIn;
    for (std::size_t i = m_constants; i < m_acts.size(); ++i) {
        const auto [bracket, alternative] = place(i);
        for (std::size_t j = m_constants; j < m_acts.size() && bracket >= 0; ++j) {
            if ((j == i || isSamePool(i, j)) && isMust(j)) {
                mustIn[bracket].insert(alternative);
            }
        }
    }
    return mustIn;
}

bool Selected::sumFits() const
{
    std::map<int, std::set<int>> actingIn;
    for (std::size_t i = m_constants; i < m_acts.size(); ++i) {
        const auto [bracket, alternative] = place(i);
        if (acts(i) && bracket < 0) {
            return false;
        }
        if (acts(i)) {
            actingIn[bracket].insert(alternative);
        }
    }
    for (const auto& [bracket, alternatives] : actingIn) {
        if (alternatives.size() > 1) {
            return false;
        }
    }
    for (std::size_t i = m_constants; i < m_acts.size(); ++i) {
        if (isMust(i) && !poolActs(i) && !sumAllowsRest(i, actingIn)) {
            return false;
        }
    }
    return true;
}

/// An action that must act rests by right where another alternative of its bracket acts, or where not all of them must.
bool Selected::sumAllowsRest(std::size_t i, std::map<int, std::set<int>>& actingIn) const
{
    const auto [bracket, alternative] = place(i);
    if (bracket < 0) {
        return true;
    }
    const std::set<int>& acting = actingIn[bracket];
    const std::size_t all = (*m_expression.sum)[static_cast<std::size_t>(bracket)].size();
    return acting.empty() ? mustInBrackets()[bracket].size() < all : acting.count(alternative) == 0;
}

/// Whether the action, or any of its pool, has a term beside the leading one.
bool Selected::hasOthersTerm(std::size_t i) const
{
    for (std::size_t j = m_constants; j < m_acts.size(); ++j) {
        if ((j == i || isSamePool(i, j)) && entry(LCM_Role::Others, j, m_leaderNames) != nullptr) {
            return true;
        }
    }
    return false;
}

bool Selected::someGroupMayRest() const
{
    std::map<int, bool> must;
    for (std::size_t j = m_constants; j < m_acts.size(); ++j) {
        if (m_acts[j].group > 0) {
            bool& isMustGroup = must[m_acts[j].group];
            isMustGroup = isMustGroup || (isMust(j) && entry(LCM_Role::Others, j, m_leaderNames) != nullptr);
        }
    }
    return std::any_of(must.begin(), must.end(), [](const auto& each) { return !each.second; });
}

bool Selected::mayRest(std::size_t i) const
{
    if (m_expression.sum || !hasOthersTerm(i) || poolActs(i)) {
        return true; // of a sum sumFits has looked
    }
    if (m_situation.groups != LCM_Groups::Exclude || m_acts[i].group == 0 || m_group == m_acts[i].group) {
        return false;
    }
    return m_group != 0 || someGroupMayRest(); // nothing acts: right only if one of the groups may rest
}

} // namespace oracle
