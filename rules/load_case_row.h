#pragma once

#include <array>

#include <QString>

#include "lcdata/values/factors.h"
#include "lcdata/values/records.h"
#include "rules/load_case_columns.h"

/// What the project and its design code settle for every row of the load-case table.
struct LCM_LoadCaseSetup
{
    LCM_PerFactor<bool> factorColumns; ///< whether the table has a column for a factor
    int gravity = 1;                   ///< signed axis of gravity, plus or minus 1, 2, 3 for X, Y, Z
    int systemClass = 0;               ///< 0, 1 or 3
    bool globalDirections = false;     ///< the box "Use global deadload directions" is checked
};

/// The factors that a row shows. A factor that is not set is LC_UNDEFINED.
using LCM_LoadCaseFactors = LCM_PerFactor<float>;

/// The dead-weight cells of a row.
struct LCM_LoadCaseDeadWeight
{
    float factor = 0.0f; ///< LC_COL_DEADFACTOR, the amount along gravity
    float dlx = 0.0f;
    float dly = 0.0f;
    float dlz = 0.0f;
};

/// The values of the cells of one row.
struct LCM_LoadCaseRow
{
    int number = 0;
    QString title;
    int action = 0; ///< id of the action cell: 0 none, 70 imperfection, else an action code
    LCM_LoadCaseDeadWeight deadWeight;
    LCM_LoadCaseFactors factors;
};

/// Whether a load case with this action word has factors of its own: only "None" has.
constexpr bool lcm_has_own_factors(int actionWord) { return actionWord == 0; }

/// Which of the components X, Y and Z a system class has.
std::array<bool, 3> lcm_shown_components(int systemClass);

/// What the dead-weight cells show of a record: the component along gravity as an amount, the others with
/// their signs; LC_COL_DEADFACTOR the amount along gravity, or `dlz` as it stands when `gravity` is no axis.
LCM_LoadCaseDeadWeight lcm_shown_dead_weight(const tagCDB_LC_CTRL& record, int gravity);

/// What the factor cells show of a record: its own factors for "None", else those of the action.
/// @param action the action of the record's action word; null when there is none, all factors are 0 then
LCM_LoadCaseFactors lcm_shown_factors(const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT* action);

/// The factors that a record holds itself. A factor that follows the action is undefined, of a pair both.
LCM_LoadCaseFactors lcm_stored_factors(const tagCDB_LC_CTRL& record);

/// The cells of a row that shows a record.
LCM_LoadCaseRow lcm_row_of_record(int number, const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT* action,
                                  const LCM_LoadCaseSetup& setup);

/// The dead-weight components of a record that a row's cells mean: the amount along gravity with gravity's
/// sign, no component that the system class lacks, and only that along gravity unless the global directions
/// are used. An amount of 0 is stored as plain 0, never as its negative.
void lcm_store_dead_weight(const LCM_LoadCaseDeadWeight& cells, const LCM_LoadCaseSetup& setup,
                           tagCDB_LC_CTRL& record);

/// The factor fields of a record: all undefined when the record's action word is not 0, else the row's
/// factors, packed in pairs; a factor without a column is 0.
void lcm_store_factors(const LCM_LoadCaseFactors& cells, const LCM_LoadCaseSetup& setup,
                       tagCDB_LC_CTRL& record);

/// The record that a row means. It starts from zeros, so reserved words of an earlier record don't survive.
tagCDB_LC_CTRL lcm_record_of_row(const LCM_LoadCaseRow& row, const LCM_LoadCaseSetup& setup);

/// The record after the user chose another action for it: title and dead weight stay, the factors are 0 for
/// "None" and the imperfection and follow the action otherwise.
/// @param actionWord id of the newly chosen entry
tagCDB_LC_CTRL lcm_record_with_action(const tagCDB_LC_CTRL& record, int actionWord);

/// The text of the marker of an action that the project lacks; it names the code's bytes up to the first
/// zero, trailing blanks included. Not translated.
QString lcm_missing_action_text(int code);

/// The code with its letters in lower or upper case, blank-padded; 0x20202020 for a code without bytes.
int lcm_lower_code(int code);
int lcm_upper_code(int code);
