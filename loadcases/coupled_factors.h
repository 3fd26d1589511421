#pragma once

#include "lcdata/values/records.h"

class LCM_LoadCaseCells;

/// Brings the mate of an edited factor cell into step with it. Two pairs of factors share a field of the
/// record each, so either both of a pair follow the action or none.
/// @param column of the edited cell, which any cell of the row may be
/// @param action of the row, as the actions tab has it; null if it has none
void lcm_couple_factors(const LCM_LoadCaseCells& cells, int column, const tagCDB_LC_ACT* action);
