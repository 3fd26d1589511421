#pragma once

/// What happens to the actions of a project when it gets another design code. Pure: who asks reads and writes.

#include <map>
#include <string>
#include <vector>

#include "check/design_code_check.h"
#include "lcdata/stored_actions.h"

/// What becomes of a stored action.
enum class LCM_RecodeFate {
    TakesDefault, ///< it was the old code's default and takes the new one
    KeepsValues,  ///< the new code has the action; its own values stay
    BecomesOwn    ///< the new code doesn't have it; it stays as an own action
};

struct LCM_RecodeRow
{
    int oldCode = 0;
    int newCode = 0; ///< another one where the action is mapped
    LCM_RecodeFate fate = LCM_RecodeFate::KeepsValues;
    tagCDB_LC_ACT before{};
    tagCDB_LC_ACT after{};
    std::vector<std::string> dropped; ///< factors that stay stored, but that an accepted dialog drops
    LCM_Findings broken;              ///< the rules that the action breaks under the new code

    bool isChanged() const;
};

struct LCM_RecodePlan
{
    std::vector<LCM_RecodeRow> rows; ///< in the order of the stored actions
    std::string refusal;             ///< why nothing may be done; empty: it may
};

/// Plans the change. An action is matched by name and category, else by the map. Where none matches and nothing is
/// mapped, opening the project would activate all defaults of the new code: refused.
/// @param map from the code of a stored action to that of an action of the new code
LCM_RecodePlan lcm_plan_recode(const std::vector<LCM_StoredAction>& stored, const LCM_DesignCodeData& from,
                               const LCM_DesignCodeData& to, const std::map<int, int>& map);
