#include "tests/combine/oracle.h"

#include "combine/decimal.h"
#include "tests/combine/oracle_selected.h"

namespace oracle {

namespace {

using namespace mrl::combine;

/// Tries one expression.
class Trial : Selected
{
  public:
    Trial(const Model& model, const LCM_Situation& situation, int expression,
          const std::function<void(const Found&)>& tell)
        : Selected(model, situation, expression), m_canLead(m_acts.size()), m_sumEntries(m_acts.size()),
          m_tell(tell)
    {
        m_found.expression = expression;
        for (std::size_t i = m_constants; i < m_acts.size() && m_expression.sum; ++i) {
            const auto [bracket, alternative] = place(i);
            if (bracket >= 0) {
                const auto& terms = (*m_expression.sum)[static_cast<std::size_t>(bracket)];
                m_sumEntries[i].unfavourable = terms[static_cast<std::size_t>(alternative)].term;
            }
        }
        choose(0);
    }

  private:
    void choose(std::size_t at);
    void leaders();
    void firsts();
    void roles(std::size_t at, bool someLead);
    void leadingRole(std::size_t at, bool someLead);
    void other(std::size_t at, LCM_Role role, bool someLead);
    bool leadsWell(std::size_t i) const;
    void finish();
    bool addFactors(std::size_t i);

    std::vector<bool> m_canLead;             ///< by action, beside the accidental action that acts
    std::vector<LCM_RoleEntry> m_sumEntries; ///< of variable actions in a sum
    std::string m_leader;                    ///< the block that leads; empty: none
    std::set<std::string> m_short;           ///< blocks that act short-term beside the leading one
    std::string m_first;                     ///< the first of them
    Found m_found;
    const std::function<void(const Found&)>& m_tell;
};

void Trial::choose(std::size_t at)
{
    if (at == m_constants) {
        if (!constantPartFits()) {
            return;
        }
        for (std::size_t i = m_constants; i < m_acts.size(); ++i) {
            m_canLead[i] = canLead(i, m_accident);
        }
    }
    if (at == m_acts.size()) {
        if (exclusionsFit() && (!m_expression.sum || sumFits())) {
            leaders();
        }
        return;
    }
    for (const Selection& selection : m_acts[at].selections) {
        take(at, selection);
        choose(at + 1);
    }
}

void Trial::leaders()
{
    m_leader.clear();
    m_leaderNames.clear();
    firsts();
    if (m_expression.sum) {
        return;
    }
    for (const std::string& block : m_actingBlocks) {
        m_leader = block;
        m_leaderNames.clear();
        for (std::size_t i = m_constants; i < m_acts.size(); ++i) {
            if (m_acts[i].block == block && (m_acts[i].group > 0 || acts(i))) {
                m_leaderNames.push_back(m_acts[i].name);
            }
        }
        firsts();
    }
}

void Trial::firsts()
{
    m_short.clear();
    for (std::size_t i = m_constants; i < m_acts.size(); ++i) {
        const std::string& block = m_acts[i].block;
        if (block != m_leader && m_actingBlocks.count(block) > 0 && isShort(i)) {
            m_short.insert(block);
        }
    }
    std::set<std::string> candidates = m_short;
    if (candidates.empty()) {
        candidates.insert("");
    }
    for (const std::string& block : candidates) {
        m_first = block;
        roles(m_constants, false);
    }
}

void Trial::roles(std::size_t at, bool someLead)
{
    if (at == m_acts.size()) {
        if (m_leader.empty() || someLead) {
            finish();
        }
        return;
    }
    if (!acts(at)) {
        if (!isMust(at) || !mustByPlain(at) || mayRest(at)) {
            m_roles[at] = nullptr;
            roles(at + 1, someLead);
        }
        return;
    }
    if (m_acts[at].block == m_leader) {
        leadingRole(at, someLead);
        return;
    }
    if (m_leader.empty() && !isMust(at) && m_canLead[at]) {
        return;
    }
    const bool isSecond = m_short.count(m_acts[at].block) > 0 && m_first != m_acts[at].block && shortUnit(at);
    other(at, isSecond ? LCM_Role::Second : LCM_Role::Others, someLead);
}

/// An action of the leading block leads where it can, and may also accompany where it must act.
void Trial::leadingRole(std::size_t at, bool someLead)
{
    if (m_canLead[at] && leadsWell(at)) {
        m_roles[at] =
            entry(LCM_Role::Lead, at,
                  m_accident.empty() ? std::vector<std::string>{} : std::vector<std::string>{m_accident});
        roles(at + 1, true);
    }
    if (!m_canLead[at] || isMust(at)) {
        other(at, LCM_Role::Others, someLead);
    }
}

void Trial::other(std::size_t at, LCM_Role role, bool someLead)
{
    m_roles[at] = m_expression.sum ? &m_sumEntries[at] : entry(role, at, m_leaderNames);
    if (m_roles[at] != nullptr) {
        roles(at + 1, someLead);
    }
}

/// A leading action that must act has the unfavourable factor somewhere.
bool Trial::leadsWell(std::size_t i) const
{
    const Superposition code = m_acts[i].code;
    if (code == LC_SUPERPOSITION_PERC) {
        return occurrences(m_chosen[i], "u") > 0;
    }
    return (code != LC_SUPERPOSITION_PERM && code != LC_SUPERPOSITION_ALEX) ||
           occurrences(m_chosen[i], "f") == 0;
}

/// Sets the factors of an action that acts. @return false for a selection that another one stands for
bool Trial::addFactors(std::size_t i)
{
    const auto [u, f] = factors(*m_roles[i], i);
    const bool isConstant =
        m_acts[i].category == Category::Permanent || m_acts[i].category == Category::Prestress;
    if (isConstant && m_acts[i].code == LC_SUPERPOSITION_COND && u == 0) {
        return false; // with a factor of 0 there is one choice
    }
    for (std::size_t k = 0; k < m_chosen[i].size(); ++k) {
        const char c = m_chosen[i][k];
        const bool isRepeated = (u == f && (c == 'f' || c == 'F')) ||
                                (u == 0 && (c == 'U' || c == 'C' || c == 'D')) || (f == 0 && c == 'F') ||
                                (m_situation.otherComponents == 0 && c == 'D');
        if (isRepeated) {
            return false;
        }
        const double factor = c == 'u' || c == 'U'   ? u
                              : c == 'f' || c == 'F' ? f
                              : c == 'c' || c == 'C' ? rounded(u * m_situation.firstComponent)
                              : c == 'd' || c == 'D' ? rounded(u * m_situation.otherComponents)
                                                     : 0;
        m_found.factors[m_acts[i].cases[k]] = c >= 'A' && c <= 'Z' ? -factor : factor;
    }
    return true;
}

void Trial::finish()
{
    m_found.factors.assign(m_model.loadCases.size(), 0);
    for (std::size_t i = 0; i < m_acts.size(); ++i) {
        if (acts(i) && !addFactors(i)) {
            return;
        }
    }
    m_tell(m_found);
}

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
