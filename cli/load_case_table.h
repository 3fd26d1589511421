#pragma once

#include <string>

#include "cli/output.h"
#include "lcdata/stored_load_cases.h"

namespace mrl::cli {

// The list that people get. Its columns have fixed widths, so that no load case has to wait for another one.

std::string loadCaseHead();

/// One load case; a star marks the current one.
std::string loadCaseLine(const LCM_StoredLoadCase& loadCase, int currentNumber);

/// The fields of a load case that --json prints; all but number, kind and current are null for one of another
/// module.
Json loadCaseJson(const LCM_StoredLoadCase& loadCase, int currentNumber);

} // namespace mrl::cli
