#include "check/design_code_check.h"

#include <algorithm>
#include <array>

#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"

namespace {

bool isLower(char c) { return c >= 'a' && c <= 'z'; }

std::array<char, sizeof(std::int32_t)> suffixOf(const tagCDB_LC_ACT& record)
{
    std::array<char, sizeof(std::int32_t)> bytes{};
    lcm_word_to_chars(record.suffix, bytes.data());
    return bytes;
}

/// The rules that the name of a default action breaks.
std::vector<LCM_Rule> brokenByName(const tagCDB_LC_ACT& record)
{
    std::vector<LCM_Rule> broken;
    const auto suffix = suffixOf(record);
    if (std::any_of(std::begin(record.name), std::end(record.name), isLower) ||
        std::any_of(suffix.begin(), suffix.end(), isLower)) {
        broken.push_back(LCM_Rule::ActionNameLowerCase);
    }
    if (lcm_has_suffix(record.suffix) && suffix[1] != ' ') {
        broken.push_back(LCM_Rule::ActionSuffixTooLong);
    }
    if (lcm_is_reserved_action(lcm_field_word(record.name))) {
        broken.push_back(LCM_Rule::ActionNameReserved);
    }
    return broken;
}

} // namespace

LCM_Findings lcm_check_design_code(const LCM_DesignCodeData& code)
{
    LCM_Findings findings;
    if (code.limits.psi1 != 0.0f && code.limits.psi2 == 0.0f) {
        findings.push_back({LCM_Rule::Psi1WithoutPsi2, LCM_Subject::DesignCode, 0, 0, {}});
    }
    for (const tagCDB_LC_ACT& action : code.actions) {
        const int id = lcm_action_code(action);
        for (const LCM_Rule rule : brokenByName(action)) {
            findings.push_back({rule, LCM_Subject::Action, id, 0, {}});
        }
        for (LCM_Finding& finding : lcm_check_action(action, code.limits, code.identity)) {
            finding.id = id;
            findings.push_back(std::move(finding));
        }
    }
    return findings;
}
