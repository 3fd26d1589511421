#include "lcdata/load_case_factors.h"

#include "host/mrl_dlib.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/packing.h"

namespace {

bool isReservedWord(std::int32_t word) { return word == LC_ACTION_NONE || word == LC_ACTION_IMPERFECTION; }

} // namespace

void lcm_load_case_from_action(const tagCDB_LC_ACT& action, tagCDB_LC_CTRL& rec, std::int32_t word)
{
    rec.action = isReservedWord(word) ? word : lcm_action_code(action);
    rec.gamu = lcm_pack_pair(action.gamu, action.gama);
    rec.psi1 = lcm_pack_pair(action.psi1, action.psi1s);
    rec.gamf = action.gamf;
    rec.psi0 = action.psi0;
    rec.psi2 = action.psi2;
}

void lcm_default_factors(std::int32_t word, tagCDB_LC_ACT& action)
{
    const float value = isReservedWord(word) ? 0.0f : LC_UNDEFINED;
    action.gamu = value;
    action.gamf = value;
    action.psi0 = value;
    action.psi1 = value;
    action.psi2 = value;
    action.psi1s = value;
    action.gama = value;
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
