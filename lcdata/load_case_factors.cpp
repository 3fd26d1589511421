#include "lcdata/load_case_factors.h"

#include "host/mrl_dlib.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/factors.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/packing.h"

namespace {

bool isReservedWord(std::int32_t word) { return word == LC_ACTION_NONE || word == LC_ACTION_IMPERFECTION; }

} // namespace

void lcm_load_case_from_action(const tagCDB_LC_ACT& action, tagCDB_LC_CTRL& rec, std::int32_t word)
{
    rec.action = isReservedWord(word) ? word : lcm_action_code(action);
    for (const LCM_Factor& factor : LCM_FACTORS) {
        const float value = action.*factor.actionField;
        if (factor.packing == LCM_FactorPacking::Alone) {
            rec.*factor.loadCaseField = value;
        } else if (factor.packing == LCM_FactorPacking::Main) {
            rec.*factor.loadCaseField = lcm_pack_pair(value, action.*lcm_partner_of(factor)->actionField);
        }
    }
}

void lcm_default_factors(std::int32_t word, tagCDB_LC_ACT& action)
{
    const float value = isReservedWord(word) ? 0.0f : LC_UNDEFINED;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        action.*factor.actionField = value;
    }
}

void lcm_resolve_action_word(std::int32_t& word)
{
    if (isReservedWord(word)) {
        return;
    }
    tagCDB_LC_ACT action{};
    if (mrl_dlib_lcact_info(word, &action) >= 0) {
        word = lcm_action_code(action);
    }
}

std::int32_t LCM_ActionWords::resolved(std::int32_t word)
{
    const auto [at, isNew] = m_resolved.try_emplace(word, word);
    if (isNew) {
        lcm_resolve_action_word(at->second);
    }
    return at->second;
}
