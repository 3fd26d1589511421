#pragma once

#include "exchange/import_plan.h"

namespace mrl::exchange {

/// Writes what a plan adds and changes; refused and unchanged rows are left out. The caller holds the transaction,
/// and undoes it on failure.
/// @param state the one that the plan was computed from
/// @param db    its database
/// @return the row that could not be written; null when all were
const PlannedRow* apply(const Plan& plan, const ProjectState& state, int db);

/// Writes a single row. @return false when it could not be written
bool apply(const PlannedRow& row, const ProjectState& state, int db);

} // namespace mrl::exchange
