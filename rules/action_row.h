#pragma once

/// What the cells of an action's row hold, and its way from and to the record. The two ways are each other's
/// reverse for every record that a row can show; what a row doesn't keep stands in
/// docs/what-acceptance-normalises.md.

#include <QString>

#include "lcdata/values/factors.h"
#include "lcdata/values/partition.h"
#include "lcdata/values/records.h"

/// The values of a row's cells.
struct LCM_ActionCells
{
    int code = 0;           ///< the action code; reading goes by the name and leaves this aside
    QString name;           ///< the name as the action code holds it: four characters, padded with blanks
    QString title;          ///< the description
    int partition = -1;     ///< id of the partition's entry; -1 without such a cell
    int superposition = -1; ///< id of the superposition's entry; -1 without such a cell
    /// The factors as they are shown; 0 for one that the table doesn't show, the undefined value for one whose
    /// cell is missing.
    LCM_PerFactor<float> factors;
};

/// The cells that show a record.
LCM_ActionCells lcm_action_cells(const tagCDB_LC_ACT& record);

/// The record that the cells stand for. Its kind is 1; a suffix keeps one character and a title 33 units.
/// @param record [out] is written whole
/// @return the action code, which is that of the name cell's text
int lcm_action_record(const LCM_ActionCells& cells, tagCDB_LC_ACT& record);
