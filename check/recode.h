#pragma once

/// What happens to a project when it gets another design code. Pure: who asks reads and writes.

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "check/design_code_check.h"
#include "lcdata/stored_actions.h"
#include "lcdata/stored_load_cases.h"

/// A design code as far as a project depends on it.
struct LCM_RecodeCode
{
    LCM_DesignCodeData data;
    std::map<int, int> oldNumbers; ///< from an old action number to the code of its action
};

/// What a project holds that another design code may change.
struct LCM_RecodeProject
{
    std::vector<LCM_StoredAction> actions;
    std::vector<LCM_StoredLoadCase> loadCases; ///< this system's own
    int rawSystem = 0;                         ///< the word of the system record
    int gravity = 1;
};

/// What the person wants beside the code.
struct LCM_RecodeWish
{
    std::map<int, int> map; ///< from the code of a stored action to that of an action of the new code
    std::optional<int> systemClass;
    std::optional<int> gravity;
    bool movesDeadWeight = false; ///< what acts along the old gravity acts along the new one
};

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
    std::vector<int> loadCases;       ///< those of the action

    bool isChanged() const;
};

/// A load case whose record changes.
struct LCM_RecodeLoadCase
{
    int number = 0;
    tagCDB_LC_CTRL before{};
    tagCDB_LC_CTRL after{};
};

struct LCM_RecodePlan
{
    std::vector<LCM_RecodeRow> rows; ///< in the order of the stored actions
    std::vector<LCM_RecodeLoadCase> loadCases;
    int rawSystem = 0; ///< as before unless the wish changes it; so is the other
    int gravity = 1;
    bool changesSystem = false;
    std::string refusal; ///< why nothing may be done; empty: it may

    /// From the code of an action that gets another name to its new one.
    std::map<int, int> moves() const;
};

/// Plans the change. An action is matched by name and category, else by the map. Where none matches and nothing is
/// mapped, opening the project would activate all defaults of the new code: refused. So is dead weight in a direction
/// that the new system doesn't offer.
LCM_RecodePlan lcm_plan_recode(const LCM_RecodeProject& project, const LCM_RecodeCode& from,
                               const LCM_RecodeCode& to, const LCM_RecodeWish& wish);
