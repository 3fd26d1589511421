#pragma once

#include <QString>

#include <vector>

#include "lcdata/values/factors.h"

namespace mrl::report {

/// A factor that the design code of a project knows, and its symbol there.
struct FactorColumn
{
    LCM_FactorId id{};
    QString label;
};

/// The columns that the managers have, under the symbols of the active design code.
/// @param db the open database that it was made active for
std::vector<FactorColumn> factorColumns(int db);

/// All factors under their plain names, for a project without a design code.
std::vector<FactorColumn> plainFactorColumns();

} // namespace mrl::report
