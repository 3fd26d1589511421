#pragma once

#include <string>

#include "cli/load_case_reader.h"

namespace mrl::cli {

// The list that people get. Its columns have fixed widths, so that no load case has to wait for another one.

std::string loadCaseHead();

/// One load case; a star marks the current one.
std::string loadCaseLine(const StoredLoadCase& loadCase, int currentNumber);

} // namespace mrl::cli
