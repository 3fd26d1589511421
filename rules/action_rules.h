#pragma once

/// The judgement of an action, of a row of the table, a stored one or a default one of a design code. Load
/// cases have rules of their own.

#include "lcdata/values/records.h"
#include "rules/finding.h"

/// The four numbers by which a design code identifies itself.
struct LCM_DesignCodeIdentity
{
    int national = 0;
    int code = 0;
    int country = 0;
    int year = 0;

    bool operator==(const LCM_DesignCodeIdentity& other) const
    {
        return national == other.national && code == other.code && country == other.country &&
               year == other.year;
    }
};

/// Judges the factors of an action against each other and against the limits of the design code.
///
/// A limit of 0 says that the design code doesn't know the factor: its rules don't apply then. `Gama` is
/// never judged. All comparisons are in single precision and stand as written: a factor that is no number
/// passes none.
///
/// @param record the action as its row shows it; a factor without a column is 0
/// @param limits the availability record of the design code. Of `Gamu` and `Gamf` it only matters whether
///               they are 0; the four `Psi` are also upper limits.
/// @param identity the design code; one of them asks for a fixed lower limit of `Psi1s`
/// @return the findings by column, see action_columns.h; also for columns that a table may not show
LCM_Findings lcm_check_action(const tagCDB_LC_ACT& record, const tagCDB_LC_ACT& limits,
                              const LCM_DesignCodeIdentity& identity);
