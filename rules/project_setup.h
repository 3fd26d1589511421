#pragma once

/// Facts of a project and its design code by which all of its rows are judged.

#include "rules/action_rules.h"
#include "rules/load_case_row.h"

/// The identity of the active design code; zeros without one.
LCM_DesignCodeIdentity lcm_active_design_code();

/// The system of a project: axis of gravity and system class.
/// @param setup its other fields stay
void lcm_read_system(int db, LCM_LoadCaseSetup& setup);
