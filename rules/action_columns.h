#pragma once

/// The columns of an action's row. Rules and tables address a column by its id, never by its position, since
/// the factor columns come and go with the design code.

#include "lcdata/values/factors.h"

enum LCM_ActionColumn : int {
    ACT_COL_ACTION = 100, ///< the name; this cell also carries the action code and the row's verdict
    ACT_COL_DESCRIPTION = 101,
    ACT_COL_PARTITION = 102,
    ACT_COL_SUPERPOSITION = 103,
    ACT_COL_GAMU = lcm_factor(LCM_FactorId::Gamu).actionColumn,
    ACT_COL_GAMF = lcm_factor(LCM_FactorId::Gamf).actionColumn,
    ACT_COL_GAMA = lcm_factor(LCM_FactorId::Gama).actionColumn,
    ACT_COL_PSI0 = lcm_factor(LCM_FactorId::Psi0).actionColumn,
    ACT_COL_PSI1 = lcm_factor(LCM_FactorId::Psi1).actionColumn,
    ACT_COL_PSI2 = lcm_factor(LCM_FactorId::Psi2).actionColumn,
    ACT_COL_PSI1S = lcm_factor(LCM_FactorId::Psi1s).actionColumn
};
