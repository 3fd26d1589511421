#pragma once

/// XLSX: sheets of actions and load cases, and of a whole project its design code and findings, for people. Foreign
/// workbooks are read too: the sheets "actions" and "loadcases", or the first one whose heading is understood.

#include <memory>

#include "exchange/format.h"

namespace mrl::exchange {

std::unique_ptr<Format> xlsxFormat();

} // namespace mrl::exchange
