#pragma once

/// SAF, the workbook by which programs of structural analysis exchange models: load groups and load cases of it.
/// Actions are load groups. docs/exchange.md tells what is lost on the way.

#include <memory>

#include "exchange/format.h"

namespace mrl::exchange {

std::unique_ptr<Format> safFormat();

/// Versions that can be written; the load sheets are the same in all of them. The last one is written unless told.
const std::vector<std::string>& safVersions();

} // namespace mrl::exchange
