#pragma once

/// How load cases are printed: as a list for people, and as JSON.

#include <string>

#include "cli/output.h"
#include "lcdata/stored_load_cases.h"

namespace mrl::cli {

/// The head of the list. Its columns have fixed widths, so that each line can be printed as soon as its load
/// case is read.
std::string loadCaseHead();

/// One load case; a star marks the current one.
std::string loadCaseLine(const LCM_StoredLoadCase& loadCase, int currentNumber);

/// The fields of a load case that --json prints; all but number, kind and current are null for one of another
/// module.
Json loadCaseJson(const LCM_StoredLoadCase& loadCase, int currentNumber);

} // namespace mrl::cli
