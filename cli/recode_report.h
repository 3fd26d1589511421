#pragma once

#include "check/recode.h"
#include "cli/output.h"

namespace mrl::cli {

/// Prints a plan row by row, then what else changes.
void printPlan(const LCM_RecodePlan& plan, const LCM_RecodeProject& before);

Json planJson(const LCM_RecodePlan& plan, const LCM_RecodeProject& before);

} // namespace mrl::cli
