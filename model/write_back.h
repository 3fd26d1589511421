#pragma once

#include <vector>

#include "model/working_model.h"

/// Replaces the project's actions by the active entries of a tree. A `Gama` of 0 becomes 0.001, in the entries
/// too. Keys of other modules and of the reserved letter stay.
void lcm_replace_actions(int db, const std::vector<LCM_ActionEntry*>& tree);

/// Replaces the project's load cases of kind 0 and 1. Those of other modules stay.
void lcm_replace_load_cases(int db, const std::vector<LCM_LoadcaseEntry>& entries);
