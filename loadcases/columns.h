#pragma once

#include "rules/load_case_columns.h"

/// Role of a cell of the load-case table: true when the cell takes its value from the row's action.
constexpr int ROLE_FROM_ACTION = 1234001;
