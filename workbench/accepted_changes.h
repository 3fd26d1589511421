#pragma once

#include <QString>

#include "workbench/project_summary.h"

namespace mrl::workbench {

/// What differs between two states of a project, in numbers: "Load cases: 1 new, 2 changed. Actions: 1 deleted."
/// @return empty when nothing does
QString changesInNumbers(const ProjectSummary& before, const ProjectSummary& after);

} // namespace mrl::workbench
