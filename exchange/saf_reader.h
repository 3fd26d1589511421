#pragma once

#include "exchange/format.h"

namespace mrl::exchange {

class Workbook;

/// Whether a workbook has a sheet of loads as SAF names them.
bool isSaf(const Workbook& workbook);

/// Reads load groups as actions and load cases, of any version from 1.0.5. What had to be cured is noted at the row.
std::optional<FormatError> readSaf(std::string_view bytes, TableReceiver& receiver);

} // namespace mrl::exchange
