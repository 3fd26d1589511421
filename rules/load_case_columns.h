#pragma once

/// The columns of the load-case table, by which findings and cells are addressed. The ids are fixed; which
/// columns a table has and where they stand depends on the design code.
enum LCM_LoadCaseColumn : int {
    LC_COL_NUMBER = 100,
    LC_COL_TITLE = 101,
    LC_COL_ACTION = 102,
    LC_COL_DEADFACTOR = 103, ///< amount of dead weight along gravity
    LC_COL_GAMU = 104,
    LC_COL_GAMF = 105,
    LC_COL_GAMA = 106,
    LC_COL_PSI0 = 107,
    LC_COL_PSI1 = 108,
    LC_COL_PSI2 = 109,
    LC_COL_PSI1S = 110,
    LC_COL_DLX = 111, ///< component of automatic dead weight in X
    LC_COL_DLY = 112,
    LC_COL_DLZ = 113
};

/// Number of factor columns: LC_COL_GAMU to LC_COL_PSI1S, without a gap.
constexpr int LC_FACTOR_COUNT = LC_COL_PSI1S - LC_COL_GAMU + 1;

/// Whether a column holds a safety or combination factor.
constexpr bool lcm_is_factor_column(int column) { return column >= LC_COL_GAMU && column <= LC_COL_PSI1S; }
