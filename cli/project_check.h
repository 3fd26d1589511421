#pragma once

#include <vector>

#include "cli/finding.h"

namespace mrl::cli {

/// Judges every action and every load case of a project by the rules of the dialog, and reports what the
/// dialog never shows: action keys that it cannot load, and load cases that share their number with another
/// module.
std::vector<Finding> checkProject(int db);

} // namespace mrl::cli
