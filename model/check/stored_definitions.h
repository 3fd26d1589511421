#pragma once

/// The project's actions and load cases as they are stored, key by key.

#include <map>
#include <optional>
#include <set>

#include "lcdata/records.h"

/// A load case of this system as it is stored.
struct LCM_StoredLoadCase
{
    int number = 0;
    tagCDB_LC_CTRL record{};
    std::optional<int> foreignKind; ///< kind of the first later record of the key that another module owns
};

/// The actions by key, those without a name and those of the reserved letter too. Of several definitions
/// under one key the last one counts.
std::map<int, tagCDB_LC_ACT> lcm_stored_actions(int db);

/// The load case under a number; nothing when there is none or it belongs to another module.
std::optional<LCM_StoredLoadCase> lcm_stored_load_case(int db, int number);

/// The keys under which a stored action stands for one of the design code: its actions, and the parents that
/// their names imply. Asks the active design code.
std::set<int> lcm_design_code_keys();
