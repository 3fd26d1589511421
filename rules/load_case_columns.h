#pragma once

#include "lcdata/values/factors.h"

/// The columns of the load-case table, by which findings and cells are addressed. The ids are fixed; which
/// columns a table has and where they stand depends on the design code.
enum LCM_LoadCaseColumn : int {
    LC_COL_NUMBER = 100,
    LC_COL_TITLE = 101,
    LC_COL_ACTION = 102,
    LC_COL_DEADFACTOR = 103, ///< amount of dead weight along gravity
    LC_COL_GAMU = lcm_factor(LCM_FactorId::Gamu).loadCaseColumn,
    LC_COL_GAMF = lcm_factor(LCM_FactorId::Gamf).loadCaseColumn,
    LC_COL_GAMA = lcm_factor(LCM_FactorId::Gama).loadCaseColumn,
    LC_COL_PSI0 = lcm_factor(LCM_FactorId::Psi0).loadCaseColumn,
    LC_COL_PSI1 = lcm_factor(LCM_FactorId::Psi1).loadCaseColumn,
    LC_COL_PSI2 = lcm_factor(LCM_FactorId::Psi2).loadCaseColumn,
    LC_COL_PSI1S = lcm_factor(LCM_FactorId::Psi1s).loadCaseColumn,
    LC_COL_DLX = 111, ///< component of automatic dead weight in X
    LC_COL_DLY = 112,
    LC_COL_DLZ = 113
};

/// The greatest id of a column.
constexpr int lcm_last_load_case_column()
{
    int last = LC_COL_DLZ;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        last = factor.loadCaseColumn > last ? factor.loadCaseColumn : last;
    }
    return last;
}

/// Whether a column holds a safety or combination factor.
constexpr bool lcm_is_factor_column(int column) { return lcm_factor_of_load_case_column(column) != nullptr; }
