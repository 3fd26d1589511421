#pragma once

/// What the cells of the actions table carry beside their values.

#include <Qt>

#include "rules/action_columns.h"

/// Item data of a row's cell of column id 100, in the tables of both tabs.
enum LCM_RowRole : int {
    ROLE_ACTION_CODE = 356, ///< the action code of the row, an int
    ROLE_ROW_VALID = 357    ///< whether the last judgement of the row found no fault, a bool
};
