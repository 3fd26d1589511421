#pragma once

#include "rules/finding.h"

namespace mrl::findings {

/// The findings of a project and of its design code, the latter ahead: that its file isn't as the project keeps it, that
/// it can't be read, what would trap its user.
/// @param db an open database. @param globalDirections the state of "Use global deadload directions"
LCM_Findings ofProject(int db, bool globalDirections);

} // namespace mrl::findings
