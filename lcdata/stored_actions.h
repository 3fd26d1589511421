#pragma once

/// The actions of a project as they are stored, for callers that read a project without opening the dialog.

#include <optional>
#include <vector>

#include "lcdata/values/records.h"

struct LCM_StoredAction
{
    int code = 0;           ///< the element of its key, whatever name the record bears
    tagCDB_LC_ACT record{}; ///< of several definitions under the key the last one, which counts
    int position = 0;       ///< of that definition among the records of the key
};

/// All stored actions by code, reserved (Y) and nameless ones too. Skips the numeric keys of the superposition
/// module and keys without a definition.
std::vector<LCM_StoredAction> lcm_stored_actions(int db);

/// The action under a code; nothing when there is none.
std::optional<LCM_StoredAction> lcm_stored_action(int db, int code);
