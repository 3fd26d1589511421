#pragma once

#include <string>
#include <vector>

#include "check/recode.h"

/// Dead weight under another system class and direction of gravity.
struct LCM_RecodeDirections
{
    int oldClass;
    int newClass;
    int oldGravity;
    int newGravity;
    bool moves; ///< what acts along the old gravity acts along the new one
};

/// @return why the dead weight of a load case can't stay, as it stands after it was moved; empty when it can
std::string lcm_move_dead_weight(tagCDB_LC_CTRL& record, const LCM_RecodeDirections& directions);
