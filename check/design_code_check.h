#pragma once

/// The judgement of a design code by the rules of the dialog. Nobody could accept the dialog with a default
/// action that breaks one.

#include <vector>

#include "rules/action_rules.h"

/// A design code as plain data, so that one can be judged that is not the active one.
struct LCM_DesignCodeData
{
    tagCDB_LC_ACT limits{}; ///< the availability record
    LCM_DesignCodeIdentity identity;
    std::vector<tagCDB_LC_ACT> actions; ///< the default actions
};

/// Judges the limits of a design code, then its default actions as rows of the table are judged.
/// @return the findings; those of an action carry its code as id, in the order of the actions
LCM_Findings lcm_check_design_code(const LCM_DesignCodeData& code);
