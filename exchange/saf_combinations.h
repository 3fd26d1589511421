#pragma once

/// Combinations in a SAF workbook: each one linear, with all factors stated, so that whoever reads them applies none of
/// their own.

#include <functional>
#include <string>

#include "exchange/combination_table.h"
#include "exchange/xlsx_writer.h"

namespace mrl::exchange {

/// @param idOf makes the id of a thing that stays the same
/// @return what is wrong; empty when they were written
Message writeSafCombinations(const CombinationTable& table,
                             const std::function<std::string(const std::string&)>& idOf,
                             WorkbookWriter& writer);

} // namespace mrl::exchange
