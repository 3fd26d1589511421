#pragma once

/// The columns of an action's row. Rules and tables address a column by its id, never by its position, since
/// the factor columns come and go with the design code.

#include <array>

#include "lcdata/values/records.h"

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

/// A factor of an action.
struct LCM_ActionFactor
{
    int column;
    const char* key; ///< its name here; a design code may show another one
    float tagCDB_LC_ACT::*field;
};

/// The factors in the order of their columns, which isn't that of the record.
inline constexpr std::array<LCM_ActionFactor, 7> LCM_ACTION_FACTORS{{
    {ACT_COL_GAMU, "Gamu", &tagCDB_LC_ACT::gamu},
    {ACT_COL_GAMF, "Gamf", &tagCDB_LC_ACT::gamf},
    {ACT_COL_GAMA, "Gama", &tagCDB_LC_ACT::gama},
    {ACT_COL_PSI0, "Psi0", &tagCDB_LC_ACT::psi0},
    {ACT_COL_PSI1, "Psi1", &tagCDB_LC_ACT::psi1},
    {ACT_COL_PSI2, "Psi2", &tagCDB_LC_ACT::psi2},
    {ACT_COL_PSI1S, "Psi1s", &tagCDB_LC_ACT::psi1s},
}};

/// The factor of a column, of the load cases' table too since both number them alike; null for any other one.
constexpr const LCM_ActionFactor* lcm_factor_of_column(int column)
{
    const bool isFactor = column >= ACT_COL_GAMU && column <= ACT_COL_PSI1S;
    return isFactor ? &LCM_ACTION_FACTORS[static_cast<std::size_t>(column - ACT_COL_GAMU)] : nullptr;
}
