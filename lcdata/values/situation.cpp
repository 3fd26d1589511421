#include "lcdata/values/situation.h"

#include <algorithm>

namespace {

/// How closely an entry fits; 0: not at all.
int closeness(const LCM_RoleEntry& entry, const std::string& action, const std::vector<std::string>& present)
{
    const int byName = entry.action.empty() ? 1 : lcm_action_matches(entry.action, action) * 2;
    int byWhen = entry.when.empty() ? 1 : 0;
    if (!entry.when.empty()) {
        for (const std::string& name : present) {
            byWhen = std::max(byWhen, lcm_action_matches(entry.when, name) * 2);
        }
    }
    return byName == 0 || byWhen == 0 ? 0 : byName * 8 + byWhen;
}

} // namespace

int lcm_action_matches(const std::string& said, const std::string& action)
{
    if (said == action) {
        return 2;
    }
    const bool isSuffix = said.find('_') == std::string::npos && action.size() > said.size() &&
                          action.compare(0, said.size(), said) == 0 && action[said.size()] == '_';
    return isSuffix ? 1 : 0;
}

const LCM_RoleEntry* lcm_role_entry(const LCM_Expression& expression, LCM_Role role,
                                    const std::string& action, const std::vector<std::string>& present)
{
    const LCM_RoleEntry* best = nullptr;
    int closest = 0;
    for (const LCM_RoleEntry& entry : expression.entries) {
        const int close = entry.role == role ? closeness(entry, action, present) : 0;
        if (close > closest) {
            closest = close;
            best = &entry;
        }
    }
    return best;
}

std::optional<LCM_Term> lcm_favourable_term(const LCM_RoleEntry& entry)
{
    if (entry.favourable || !entry.unfavourable) {
        return entry.favourable;
    }
    LCM_Term term = *entry.unfavourable;
    const auto gamu = std::find(term.factors.begin(), term.factors.end(), LCM_SituationFactor::Gamu);
    if (gamu != term.factors.end()) {
        *gamu = LCM_SituationFactor::Gamf;
        std::sort(term.factors.begin(), term.factors.end());
        term.constants.erase(std::remove(term.constants.begin(), term.constants.end(), "KFI"),
                             term.constants.end());
    }
    return term;
}
