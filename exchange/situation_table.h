#pragma once

#include <functional>

#include "combine/plan.h"
#include "exchange/combination_table.h"

namespace mrl::exchange {

using VisitCombination = std::function<void(const combine::Combination&)>;

/// The combinations of a situation as the rows of a file.
/// @param plan of the situation; outlives the table
/// @param tell visits combinations, the same ones each time; choices with the same factors become one row, since they
///             are one combination for whoever reads the file
CombinationTable situationTable(const LCM_Situation& situation, const combine::Plan& plan,
                                std::function<void(const VisitCombination&)> tell);

} // namespace mrl::exchange
