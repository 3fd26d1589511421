// What is wrong with a situation as far as only the rest of its design code tells.

#include <algorithm>

#include "hostlib/data/designcode/situations.h"
#include "lcdata/values/factors.h"
#include "lcdata/values/partition.h"
#include "lcdata/values/situation_terms.h"

namespace mrl::designcode {

namespace {

int categoryOf(const DefaultAction& action) { return action.record.partition >> 4 & 0xF; }

double valueOf(const LCM_Term& term, const tagCDB_LC_ACT& record, const DesignCode& code)
{
    double value = term.number;
    for (const std::string& name : term.constants) {
        value *= static_cast<double>(code.constants.at(name));
    }
    for (const LCM_FactorId id : term.factors) {
        value *= static_cast<double>(lcm_shown_factor(record, lcm_factor(id)));
    }
    return value;
}

/// Judges one expression after the other, and keeps which actions they use.
class Judge
{
  public:
    Judge(const DesignCode& code, std::vector<Warning>& out)
        : m_code(code), m_out(out), m_isUsed(code.actions.size(), false)
    {
        for (const DefaultAction& action : code.actions) {
            m_names.push_back(action.name);
        }
    }

    void expression(const LCM_Situation& situation, const LCM_Expression& expression);
    void unusedActions() const;

  private:
    void tell(WarningRule rule, int place, const std::string& text, const std::string& cure = {}) const;
    void factors(const LCM_Term& term, int place) const;
    void action(const std::string& name, int place) const;
    void role(const LCM_RoleEntry& entry);
    void order(const LCM_RoleEntry& entry, const LCM_Expression& expression) const;
    void use(const LCM_Expression& expression);
    bool uses(const LCM_Expression& expression, const DefaultAction& action) const;

    const DesignCode& m_code;
    std::vector<Warning>& m_out;
    std::vector<bool> m_isUsed;
    std::vector<std::string> m_names;
    std::string m_where; ///< "situation persistent / 6.10a"
};

void Judge::tell(WarningRule rule, int place, const std::string& text, const std::string& cure) const
{
    const auto file = static_cast<std::size_t>(fileOfPlace(place));
    m_out.push_back({rule, m_code.files.at(file).file, lineOfPlace(place), 0, m_where + ": " + text, cure});
}

void Judge::factors(const LCM_Term& term, int place) const
{
    for (const LCM_FactorId id : term.factors) {
        const LCM_Factor& factor = lcm_factor(id);
        if (!(m_code.availability.*factor.actionField > 0.0f)) {
            tell(WarningRule::SituationFactorNotMarked, place,
                 std::string(factor.key) + " is named, but not marked as known");
        }
    }
}

void Judge::action(const std::string& name, int place) const
{
    const auto isMeant = [&](const std::string& known) { return lcm_action_matches(name, known) > 0; };
    if (name.empty() || std::any_of(m_names.begin(), m_names.end(), isMeant)) {
        return;
    }
    const std::string nearest = lcm_nearest_word(name, m_names);
    tell(WarningRule::SituationActionUnknown, place, "there is no action '" + name + "'",
         nearest.empty() ? "" : "write " + nearest);
}

void Judge::role(const LCM_RoleEntry& entry)
{
    action(entry.action, entry.place);
    action(entry.when, entry.place);
    for (const auto* term : {&entry.unfavourable, &entry.favourable}) {
        if (*term) {
            factors(**term, entry.place);
        }
    }
}

/// Of a permanent action the unfavourable factor is the greater one. Told once for each entry.
void Judge::order(const LCM_RoleEntry& entry, const LCM_Expression& expression) const
{
    const bool isPermanent = entry.role == LCM_Role::Permanent || entry.role == LCM_Role::Prestress;
    if (!isPermanent || !entry.unfavourable || !entry.favourable) {
        return;
    }
    const int category = entry.role == LCM_Role::Permanent ? LC_CATEGORY_PERMANENT : LC_CATEGORY_PRESTRESS;
    const auto wrong =
        std::find_if(m_code.actions.begin(), m_code.actions.end(), [&](const DefaultAction& each) {
            return categoryOf(each) == category &&
                   lcm_role_entry(expression, entry.role, each.name) == &entry &&
                   valueOf(*entry.unfavourable, each.record, m_code) <
                       valueOf(*entry.favourable, each.record, m_code);
        });
    if (wrong != m_code.actions.end()) {
        tell(WarningRule::SituationUnfavourableBelowFavourable, entry.place,
             "of action " + wrong->name + " the unfavourable factor is below the favourable one");
    }
}

bool Judge::uses(const LCM_Expression& expression, const DefaultAction& action) const
{
    const auto acts = [&](LCM_Role role) {
        const LCM_RoleEntry* entry = lcm_role_entry(expression, role, action.name);
        return entry != nullptr && entry->unfavourable.has_value();
    };
    switch (categoryOf(action)) {
    case LC_CATEGORY_PERMANENT:
        return acts(LCM_Role::Permanent);
    case LC_CATEGORY_PRESTRESS:
        return acts(LCM_Role::Prestress);
    case LC_CATEGORY_ACCIDENTAL:
        return acts(LCM_Role::Accidental);
    case LC_CATEGORY_EARTHQUAKE:
        return acts(LCM_Role::Seismic);
    default:
        break;
    }
    if (!expression.sum) {
        return acts(LCM_Role::Lead) || acts(LCM_Role::Others);
    }
    return std::any_of(expression.sum->begin(), expression.sum->end(), [&](const LCM_Bracket& bracket) {
        return std::any_of(bracket.begin(), bracket.end(), [&](const LCM_SumTerm& term) {
            return lcm_action_matches(term.action, action.name) > 0;
        });
    });
}

void Judge::use(const LCM_Expression& expression)
{
    for (std::size_t i = 0; i < m_isUsed.size(); ++i) {
        m_isUsed[i] = m_isUsed[i] || uses(expression, m_code.actions[i]);
    }
}

void Judge::expression(const LCM_Situation& situation, const LCM_Expression& expression)
{
    m_where = "situation " + situation.name + (expression.name.empty() ? "" : " / " + expression.name);
    for (const LCM_RoleEntry& entry : expression.entries) {
        role(entry);
        order(entry, expression);
    }
    for (const std::string& name : expression.shortActions) {
        action(name, expression.shortPlace);
    }
    for (const LCM_Bracket& bracket : expression.sum.value_or(std::vector<LCM_Bracket>())) {
        for (const LCM_SumTerm& term : bracket) {
            action(term.action, expression.sumPlace);
            factors(term.term, expression.sumPlace);
        }
    }
    use(expression);
}

void Judge::unusedActions() const
{
    for (std::size_t i = 0; i < m_isUsed.size(); ++i) {
        if (!m_isUsed[i]) {
            const DefaultAction& action = m_code.actions[i];
            m_out.push_back({WarningRule::ActionInNoSituation,
                             action.file,
                             action.line,
                             0,
                             "action " + action.name + ": no expression of a situation uses it",
                             {}});
        }
    }
}

} // namespace

void checkSituations(const DesignCode& code, std::vector<Warning>& out)
{
    if (code.situations.empty()) {
        return;
    }
    Judge judge(code, out);
    for (const LCM_Situation& situation : code.situations) {
        for (const LCM_Expression& expression : situation.expressions) {
            judge.expression(situation, expression);
        }
    }
    judge.unusedActions();
}

} // namespace mrl::designcode
