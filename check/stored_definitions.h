#pragma once

/// What stands in a project and in its design code, as far as the check asks for more than the manager.

#include <optional>
#include <set>

#include "lcdata/stored_load_cases.h"

/// A load case of this system, and what stands behind it under its key.
struct LCM_CheckedLoadCase
{
    LCM_StoredLoadCase stored;
    std::optional<int> foreignKind; ///< kind of the first later record of the key that another module owns
};

/// The load case under a number; nothing when there is none or it belongs to another module.
std::optional<LCM_CheckedLoadCase> lcm_checked_load_case(int db, int number);

/// The keys under which a stored action stands for one of the design code: its actions, and the parents that
/// their names imply. Asks the active design code.
std::set<int> lcm_design_code_keys();
