#pragma once

#include "lcdata/values/records.h"
#include "rules/finding.h"
#include "rules/load_case_row.h"

/// Judges the record of a load case that has an action of the project.
///
/// @param record as it is read from a row, factor fields packed
/// @param action the present values of its action
/// @param limits availability record of the design code; its factor fields are marks and upper limits
/// @return the findings by column; none for a valid load case
LCM_Findings lcm_check_load_case(const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT& action,
                                 const tagCDB_LC_ACT& limits);

/// The verdict on a load case.
struct LCM_LoadCaseVerdict
{
    bool valid = true;
    bool actionMissing = false; ///< the action word names no action of the project
    LCM_Findings findings;
};

/// Judges a row as the table does. A load case without an action and an imperfection are valid whatever
/// their factors are; a row whose action the project lacks is invalid without a finding.
/// @param action the action of the record's action word, null when the project has none
LCM_LoadCaseVerdict lcm_judge_load_case(const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT* action,
                                        const tagCDB_LC_ACT& limits);

/// Whether a record keeps a factor beside those of its action: one that is set, and is not the action's present value.
/// The dialog drops such copies. @param action as it is stored
bool lcm_copies_differ(const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT& action);

/// Judges a stored record as the dialog would when it opens: after showing it in a row and reading it back,
/// so that factors copied from an action don't count.
LCM_LoadCaseVerdict lcm_judge_stored_load_case(const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT* action,
                                               const LCM_LoadCaseSetup& setup, const tagCDB_LC_ACT& limits);
