#include "tests/combine/oracle.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "combine/decimal.h"
#include "tests/combine/oracle_rules.h"

namespace oracle {

namespace {

using namespace mrl::combine;

/// Tries one expression.
class Trial : Rules
{
  public:
    Trial(const Model& model, const LCM_Situation& situation, int number,
          const std::function<void(const Found&)>& tell)
        : Rules(model, situation, number), m_chosen(m_acts.size()), m_roles(m_acts.size()), m_tell(tell)
    {
        m_found.expression = number;
        choose(0);
    }

  private:
    bool acts(std::size_t i) const
    {
        return occurrences(m_chosen[i], "0") < static_cast<long>(m_chosen[i].size());
    }
    void choose(std::size_t at)
    {
        if (at == m_acts.size()) {
            if (constantPartFits() && exclusionsFit()) {
                leaders();
            }
            return;
        }
        for (const Selection& selection : m_acts[at].selections) {
            m_chosen[at] = selection;
            choose(at + 1);
        }
    }

    bool constantPartFits()
    {
        int accidents = 0;
        std::map<std::string, int> pools;
        m_accident.clear();
        for (std::size_t i = 0; i < m_acts.size(); ++i) {
            const Act& act = m_acts[i];
            if (act.category == Category::Variable && !act.isImperfection) {
                continue;
            }
            const LCM_Role role = act.isImperfection                     ? LCM_Role::Imperfection
                                  : act.category == Category::Permanent  ? LCM_Role::Permanent
                                  : act.category == Category::Prestress  ? LCM_Role::Prestress
                                  : act.category == Category::Accidental ? LCM_Role::Accidental
                                                                         : LCM_Role::Seismic;
            const bool isPermanent = role == LCM_Role::Permanent || role == LCM_Role::Prestress;
            m_roles[i] = entry(role, i, {});
            if (acts(i) && m_roles[i] == nullptr) {
                return false;
            }
            const bool isMustAct =
                isPermanent && (act.code == LC_SUPERPOSITION_PERM || act.code == LC_SUPERPOSITION_PERC ||
                                act.code == LC_SUPERPOSITION_ALEX);
            if (isMustAct && m_roles[i] != nullptr && !acts(i)) {
                return false;
            }
            if (isPermanent && act.code == LC_SUPERPOSITION_EXEX && acts(i) &&
                ++pools[first(act.name) + std::to_string(static_cast<int>(act.category))] > 1) {
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

    bool exclusionsFit()
    {
        std::map<std::string, int> pools;
        std::set<int> groups;
        m_acting.clear();
        for (std::size_t i = 0; i < m_acts.size(); ++i) {
            if (!isVariable(i) || !acts(i)) {
                continue;
            }
            if (isExex(i) && ++pools[first(m_acts[i].name)] > 1) {
                return false;
            }
            if (m_acts[i].group > 0) {
                groups.insert(m_acts[i].group);
            }
            m_acting.insert(m_acts[i].block);
        }
        m_group = groups.empty() ? 0 : *groups.begin();
        return (m_situation.groups != LCM_Groups::Exclude || groups.size() <= 1) &&
               (m_situation.atMost == 0 || static_cast<int>(m_acting.size()) <= m_situation.atMost);
    }

    bool poolActs(std::size_t i) const
    {
        for (std::size_t j = 0; j < m_acts.size(); ++j) {
            if (isVariable(j) && acts(j) &&
                (j == i || (isExex(i) && isExex(j) && first(m_acts[i].name) == first(m_acts[j].name)))) {
                return true;
            }
        }
        return false;
    }

    bool sumFits()
    {
        std::map<int, std::set<int>> actingIn;
        std::map<int, std::set<int>> mustIn;
        for (std::size_t i = 0; i < m_acts.size(); ++i) {
            if (!isVariable(i)) {
                continue;
            }
            const auto [bracket, alternative] = place(i);
            if (acts(i) && bracket < 0) {
                return false;
            }
            if (acts(i)) {
                actingIn[bracket].insert(alternative);
            }
        }
        for (std::size_t i = 0; i < m_acts.size(); ++i) {
            if (isVariable(i) && place(i).first >= 0) {
                // A pool acts by any of its actions, so that all of them must.
                for (std::size_t j = 0; j < m_acts.size(); ++j) {
                    const bool isSame =
                        j == i || (isExex(i) && isExex(j) && m_acts[i].block == m_acts[j].block &&
                                   first(m_acts[i].name) == first(m_acts[j].name));
                    if (isVariable(j) && isSame && isMust(j)) {
                        mustIn[place(i).first].insert(place(i).second);
                    }
                }
            }
        }
        for (const auto& [bracket, alternatives] : actingIn) {
            if (alternatives.size() > 1) {
                return false;
            }
        }
        for (std::size_t i = 0; i < m_acts.size(); ++i) {
            if (!isVariable(i) || !isMust(i) || place(i).first < 0 || poolActs(i)) {
                continue;
            }
            const auto [bracket, alternative] = place(i);
            const auto& acting = actingIn[bracket];
            const std::size_t all = (*m_expression.sum)[static_cast<std::size_t>(bracket)].size();
            if (acting.empty() ? mustIn[bracket].size() == all : acting.count(alternative) > 0) {
                return false;
            }
        }
        return true;
    }

    void leaders()
    {
        if (m_expression.sum) {
            if (sumFits()) {
                m_leader.clear();
                m_leaderNames.clear();
                firsts();
            }
            return;
        }
        m_leader.clear();
        m_leaderNames.clear();
        firsts();
        for (const std::string& block : m_acting) {
            m_leader = block;
            m_leaderNames.clear();
            for (std::size_t i = 0; i < m_acts.size(); ++i) {
                if (isVariable(i) && m_acts[i].block == block && (m_acts[i].group > 0 || acts(i))) {
                    m_leaderNames.push_back(m_acts[i].name);
                }
            }
            firsts();
        }
    }

    void firsts()
    {
        std::vector<std::string> candidates;
        for (const std::string& block : m_acting) {
            for (std::size_t i = 0; i < m_acts.size(); ++i) {
                if (isVariable(i) && m_acts[i].block == block && block != m_leader &&
                    isShort(m_acts[i].name)) {
                    candidates.push_back(block);
                    break;
                }
            }
        }
        m_short.clear();
        m_short.insert(candidates.begin(), candidates.end());
        if (candidates.empty()) {
            candidates.push_back("");
        }
        for (const std::string& block : candidates) {
            m_first = block;
            roles(0, false);
        }
    }

    /// Whether an action that must act rests by right.
    bool mayRest(std::size_t i) const
    {
        if (m_expression.sum) {
            return true; // sumFits has looked
        }
        if (isExex(i)) {
            bool anyTerm = false;
            for (std::size_t j = 0; j < m_acts.size(); ++j) {
                const bool isSame = isVariable(j) && isExex(j) && m_acts[i].block == m_acts[j].block &&
                                    first(m_acts[i].name) == first(m_acts[j].name);
                anyTerm = anyTerm || (isSame && entry(LCM_Role::Others, j, m_leaderNames) != nullptr);
            }
            if (!anyTerm) {
                return true;
            }
        } else if (entry(LCM_Role::Others, i, m_leaderNames) == nullptr) {
            return true;
        }
        if (poolActs(i)) {
            return true;
        }
        if (m_situation.groups != LCM_Groups::Exclude || m_acts[i].group == 0 || m_group == m_acts[i].group) {
            return false;
        }
        if (m_group != 0) {
            return true;
        }
        std::map<int, bool> must; // nothing acts: right only if one of the groups may rest
        for (std::size_t j = 0; j < m_acts.size(); ++j) {
            if (isVariable(j) && m_acts[j].group > 0) {
                must[m_acts[j].group] = must[m_acts[j].group] ||
                                        (isMust(j) && entry(LCM_Role::Others, j, m_leaderNames) != nullptr);
            }
        }
        return std::any_of(must.begin(), must.end(), [](const auto& each) { return !each.second; });
    }

    void roles(std::size_t at, bool someLead)
    {
        if (at == m_acts.size()) {
            if (m_leader.empty() || someLead) {
                finish();
            }
            return;
        }
        if (!isVariable(at)) {
            roles(at + 1, someLead);
            return;
        }
        const bool leadable = canLead(at, m_accident);
        m_leads[at] = false;
        if (!acts(at)) {
            if (!isMust(at) || !mustByPlain(at) || mayRest(at)) {
                m_roles[at] = nullptr;
                roles(at + 1, someLead);
            }
            return;
        }
        if (m_acts[at].block == m_leader) {
            if (leadable) {
                m_leads[at] = true;
                m_roles[at] = entry(LCM_Role::Lead, at,
                                    m_accident.empty() ? std::vector<std::string>{}
                                                       : std::vector<std::string>{m_accident});
                if (leadsWell(at)) {
                    roles(at + 1, true);
                }
                m_leads[at] = false;
            }
            if (!leadable || isMust(at)) {
                other(at, LCM_Role::Others, someLead);
            }
            return;
        }
        if (m_leader.empty() && leadable && !isMust(at)) {
            return;
        }
        const bool isSecond =
            m_short.count(m_acts[at].block) > 0 && m_first != m_acts[at].block && shortUnit(at);
        other(at, isSecond ? LCM_Role::Second : LCM_Role::Others, someLead);
    }

    void other(std::size_t at, LCM_Role role, bool someLead)
    {
        if (m_expression.sum) {
            const auto [bracket, alternative] = place(at);
            m_sumEntries[at].unfavourable =
                (*m_expression.sum)[static_cast<std::size_t>(bracket)][static_cast<std::size_t>(alternative)]
                    .term;
            m_roles[at] = &m_sumEntries[at];
        } else {
            m_roles[at] = entry(role, at, role == LCM_Role::Second ? m_leaderNames : m_leaderNames);
        }
        if (m_roles[at] != nullptr) {
            roles(at + 1, someLead);
        }
    }

    /// A leading action that must act has the unfavourable factor somewhere.
    bool leadsWell(std::size_t i) const
    {
        const Superposition code = m_acts[i].code;
        if (code == LC_SUPERPOSITION_PERC) {
            return occurrences(m_chosen[i], "u") > 0;
        }
        return (code != LC_SUPERPOSITION_PERM && code != LC_SUPERPOSITION_ALEX) ||
               occurrences(m_chosen[i], "f") == 0;
    }

    void finish()
    {
        m_found.factors.assign(m_model.loadCases.size(), 0);
        for (std::size_t i = 0; i < m_acts.size(); ++i) {
            if (!acts(i)) {
                continue;
            }
            const double u = value(*m_roles[i]->unfavourable, i);
            const double f = value(*lcm_favourable_term(*m_roles[i]), i);
            for (std::size_t k = 0; k < m_chosen[i].size(); ++k) {
                const char c = m_chosen[i][k];
                const bool isRepeated =
                    (u == f && (c == 'f' || c == 'F')) || (u == 0 && (c == 'U' || c == 'C' || c == 'D')) ||
                    (f == 0 && c == 'F') || (m_situation.otherComponents == 0 && c == 'D');
                if (isRepeated) {
                    return;
                }
                double x = 0;
                switch (c) {
                case 'u':
                case 'U':
                    x = u;
                    break;
                case 'f':
                case 'F':
                    x = f;
                    break;
                case 'c':
                case 'C':
                    x = rounded(u * m_situation.firstComponent);
                    break;
                case 'd':
                case 'D':
                    x = rounded(u * m_situation.otherComponents);
                    break;
                default:
                    break;
                }
                m_found.factors[m_acts[i].cases[k]] = c >= 'A' && c <= 'Z' ? -x : x;
            }
            if (m_acts[i].category == Category::Permanent || m_acts[i].category == Category::Prestress) {
                // COND with a factor of 0 has one choice.
                if (m_acts[i].code == LC_SUPERPOSITION_COND && u == 0) {
                    return;
                }
            }
        }
        m_tell(m_found);
    }

    std::vector<Selection> m_chosen;
    std::vector<const LCM_RoleEntry*> m_roles;
    std::map<std::size_t, LCM_RoleEntry> m_sumEntries;
    std::map<std::size_t, bool> m_leads;
    std::string m_accident;
    std::set<std::string> m_acting;
    int m_group = 0;
    std::string m_leader;
    std::vector<std::string> m_leaderNames;
    std::set<std::string> m_short;
    std::string m_first;
    Found m_found;
    const std::function<void(const Found&)>& m_tell;
};

} // namespace

double selections(const mrl::combine::Model& model, const LCM_Situation& situation)
{
    double product = 1;
    for (const Act& act : actsOf(model, situation)) {
        product *= static_cast<double>(act.selections.size());
    }
    return product;
}

void all(const mrl::combine::Model& model, const LCM_Situation& situation,
         const std::function<void(const Found&)>& tell)
{
    for (std::size_t i = 0; i < situation.expressions.size(); ++i) {
        Trial(model, situation, static_cast<int>(i), tell);
    }
}

} // namespace oracle
