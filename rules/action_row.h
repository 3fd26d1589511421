#pragma once

/// What the cells of an action's row hold, and its way from and to the record. The two ways are each other's
/// reverse for every record that a row can show; what a row doesn't keep stands in
/// docs/what-acceptance-normalises.md.

#include <QString>

#include <array>

#include "lcdata/values/records.h"
#include "rules/action_columns.h"

/// The values of a row's cells.
struct LCM_ActionCells
{
    int code = 0;           ///< the action code; reading goes by the name and leaves this aside
    QString name;           ///< the name as the action code holds it: four characters, padded with blanks
    QString title;          ///< the description
    int partition = -1;     ///< id of the partition's entry; -1 without such a cell
    int superposition = -1; ///< id of the superposition's entry; -1 without such a cell
    /// The factors in the order of LCM_ACTION_FACTORS; 0 for one that the table doesn't show, the undefined
    /// value for one whose cell is missing.
    std::array<float, LCM_ACTION_FACTORS.size()> factors{};
};

/// The cells that show a record.
LCM_ActionCells lcm_action_cells(const tagCDB_LC_ACT& record);

/// The record that the cells stand for. Its kind is 1; a suffix keeps one character and a title 33 units.
/// @param record [out] is written whole
/// @return the action code, which is that of the name cell's text
int lcm_action_record(const LCM_ActionCells& cells, tagCDB_LC_ACT& record);

/// The partition entry's id for a partition word. A word with a load group (256 or more) is shown as that
/// load group of the variable actions, 49 to 53 for Q_1 to Q_5, whatever its category says.
int lcm_partition_id(int word);

/// The superposition entry's id for a partition word: its low four bits; 7 is shown as 8.
int lcm_superposition_id(int word);

/// The partition word for the two entries; the reverse of the two functions above.
int lcm_partition_word(int partitionId, int superpositionId);

/// The accidental safety factor as it is shown: a stored 0 stands for 1.0, and a stored 0.001 for 0.0. The
/// way back isn't symmetric: the writing of actions stores a shown 0.0 as 0.001, and nothing stores 0.
float lcm_shown_gama(float stored);

/// A factor of a record as it is shown.
float lcm_shown_factor(const tagCDB_LC_ACT& record, const LCM_ActionFactor& factor);
