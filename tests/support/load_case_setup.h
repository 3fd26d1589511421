#pragma once

#include "rules/load_case_row.h"

namespace mrl::test {

/// The set-up of a spatial system with gravity along -z, told otherwise, and all factor columns.
inline LCM_LoadCaseSetup setupOfAllFactors(int gravity = -3, int systemClass = 0,
                                           bool globalDirections = false)
{
    LCM_LoadCaseSetup result;
    result.factorColumns.fill(true);
    result.gravity = gravity;
    result.systemClass = systemClass;
    result.globalDirections = globalDirections;
    return result;
}

} // namespace mrl::test
