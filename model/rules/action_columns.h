#pragma once

/// The columns of an action's row. Rules and tables address a column by its id, never by its position, since
/// the factor columns come and go with the design code.

#include <array>

#include "lcdata/records.h"

enum LCM_ActionColumn : int {
    ACT_COL_ACTION = 100, ///< the name; this cell also carries the action code and the row's verdict
    ACT_COL_DESCRIPTION = 101,
    ACT_COL_PARTITION = 102,
    ACT_COL_SUPERPOSITION = 103,
    ACT_COL_GAMU = 104,
    ACT_COL_GAMF = 105,
    ACT_COL_GAMA = 106,
    ACT_COL_PSI0 = 107,
    ACT_COL_PSI1 = 108,
    ACT_COL_PSI2 = 109,
    ACT_COL_PSI1S = 110
};

/// A factor of an action: its column and its field of the record.
struct LCM_ActionFactor
{
    int column;
    float tagCDB_LC_ACT::*field;
};

/// The factors in the order of their columns, which isn't that of the record.
inline constexpr std::array<LCM_ActionFactor, 7> LCM_ACTION_FACTORS{{
    {ACT_COL_GAMU, &tagCDB_LC_ACT::gamu},
    {ACT_COL_GAMF, &tagCDB_LC_ACT::gamf},
    {ACT_COL_GAMA, &tagCDB_LC_ACT::gama},
    {ACT_COL_PSI0, &tagCDB_LC_ACT::psi0},
    {ACT_COL_PSI1, &tagCDB_LC_ACT::psi1},
    {ACT_COL_PSI2, &tagCDB_LC_ACT::psi2},
    {ACT_COL_PSI1S, &tagCDB_LC_ACT::psi1s},
}};
