#pragma once

/// The check of a whole project without opening its manager.

#include "rules/finding.h"

/// Judges every action and every load case as the dialog does when it opens, that is after showing them in
/// rows and reading the rows back. Also finds what the dialog never shows: action keys that it doesn't
/// load, and load cases that share their number with another module.
/// @param db an open database; without a design code only what needs no limit is judged
/// @param globalDirections the state of "Use global deadload directions"
/// @return the findings, actions by code ahead of load cases by number
/// @note Leaves the current database as it was.
LCM_Findings lcm_check_project(int db, bool globalDirections);
