#pragma once

#include <cstdint>
#include <set>
#include <vector>

#include "lcdata/export.h"
#include "loadcases/loadcase_copy.h"

/// What a caller tells the manager dialog, and what it gets back.
///
/// Every field comes back, whatever the result of the dialog: after a rejection with what it held before, or
/// with what a refused acceptance left in `loadCases` and `actions`.
struct MRL_LC_API MRL_LC_CtrlStruct
{
    /// Version of this structure; the dialog works on a copy that says 1.
    std::int32_t version = 1;
    /// The tab that is wanted: 0 load cases, 1 actions. On return 1 when the actions tab was current as the
    /// dialog was saved, else 0.
    std::int32_t mode = 1;
    /// In: the load cases to select in the table. Out: those that were selected at acceptance.
    std::set<int> loadCases;
    /// Bit 0 set: exactly one load case must be selected at acceptance.
    std::int32_t options = 0;
    /// Replaces the help viewer when it is set; called with -1.
    void (*helpFunction)(int) = nullptr;
    /// Out: the codes of the actions that were selected at acceptance.
    std::set<int> actions;
    /// True: show only the tab that `mode` names.
    bool singleTab = false;
    /// Bit 0 set: no user-defined actions in the dialog that adds an action.
    std::int32_t actionOptions = 0;
    /// Out: the load cases that were made by copying. The loads themselves are the caller's business.
    std::vector<LCM_LoadcaseCopy> copies;
};
