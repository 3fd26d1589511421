#pragma once

/// What the cells of the two tables carry beside their values, by role of the item.

constexpr int ROLE_ACTION_CODE = 356; ///< the action code of the row, an int, in the cell of column 100
constexpr int ROLE_ROW_VALID = 357;   ///< whether the last judgement found no fault, a bool, in column 100
constexpr int ROLE_FROM_ACTION = 1234001; ///< whether a cell of a load case takes its value from the action
