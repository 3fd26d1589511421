#pragma once

#include <vector>

#include "workbench/project_summary.h"

namespace mrl::workbench {

/// Judges every action and load case of a project as the managers would when they open.
/// @param db a database whose design code can be loaded; it becomes the current one
std::vector<CheckFinding> checkProject(int db);

} // namespace mrl::workbench
