#pragma once

/// What a project holds, as the plan of an import compares with it.

#include <map>
#include <set>

#include "lcdata/stored_actions.h"
#include "rules/action_rules.h"
#include "rules/load_case_row.h"

namespace mrl::exchange {

/// The part of a project that an import is judged by. Plain data; nothing here reads a database.
struct ProjectState
{
    std::map<int, LCM_StoredAction> actions;     ///< by code
    std::map<int, tagCDB_LC_CTRL> loadCases;     ///< this system's, by number
    std::set<int> foreignNumbers;                ///< under which another module keeps its load cases
    std::map<int, tagCDB_LC_ACT> defaultActions; ///< of the design code, by code
    std::vector<int> defaultOrder;               ///< their codes as the design code has them
    tagCDB_LC_ACT limits{};
    LCM_DesignCodeIdentity identity;
    LCM_LoadCaseSetup setup;
};

/// @note Leaves the current database as it was.
ProjectState stateOf(int db);

} // namespace mrl::exchange
