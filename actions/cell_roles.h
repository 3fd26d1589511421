#pragma once

#include <Qt>

/// What the cells of both tables carry beside their values, as item data.
enum LCM_CellRole : int {
    ROLE_ACTION_CODE = 356, ///< cell of column id 100: the action code of the row, an int
    ROLE_ROW_VALID = 357,   ///< cell of column id 100: whether the last judgement of the row found no fault
    /// A factor of a load case: whether the cell takes its value from the row's action.
    ROLE_FROM_ACTION = 1234001
};
