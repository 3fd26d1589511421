#pragma once

/// What the check reads of a project and its design code that the dialog doesn't need.

#include <optional>
#include <set>

#include "lcdata/stored_load_cases.h"

/// A load case of this system, and whether another module stores a record behind it.
struct LCM_CheckedLoadCase
{
    LCM_StoredLoadCase stored;
    std::optional<int> foreignKind; ///< kind of the first record of another module behind it
};

/// The load case under a number; nothing when there is none or it belongs to another module.
std::optional<LCM_CheckedLoadCase> lcm_checked_load_case(int db, int number);

/// The keys of the active design code's actions and of the parents that their names imply. A project that
/// stores an action under one of them isn't given the default actions.
std::set<int> lcm_design_code_keys();
