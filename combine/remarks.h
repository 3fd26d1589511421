#pragma once

/// Remarks about load cases as lines for people.

#include <string>
#include <vector>

#include "combine/prepare.h"

namespace mrl::combine {

/// "load case 7", "load cases 1, 2, 3 and 12 more".
std::string loadCasesText(const std::vector<int>& numbers);

/// Remarks with the same reason in one line each, in the order in which the reasons first stand.
std::vector<std::string> gathered(const std::vector<Remark>& remarks);

} // namespace mrl::combine
