#pragma once

/// The actions of a project as they are stored, for those who look at a project without its manager.

#include <optional>
#include <vector>

#include "lcdata/values/records.h"

struct LCM_StoredAction
{
    int code = 0; ///< the element of its key, whatever name the record bears
    tagCDB_LC_ACT
        record{};     ///< the last definition among the records of the key, which is the one that counts
    int position = 0; ///< of that definition among them
};

/// The actions ascending by code, those of the reserved letter and one without a name too. Numeric keys of
/// the superposition module are none, and neither is a key that holds no definition.
std::vector<LCM_StoredAction> lcm_stored_actions(int db);

/// The action under a code; nothing when there is none.
std::optional<LCM_StoredAction> lcm_stored_action(int db, int code);
