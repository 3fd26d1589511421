#pragma once

#include <string>

#include "lcdata/stored_actions.h"

namespace mrl::exchange {

/// Removes an action of a project, unless load cases use it or other records stand under its key.
/// @param name as the caller calls it. @return why it stays, in English; empty when it is gone
std::string removeAction(int db, const LCM_StoredAction& action, const std::string& name);

} // namespace mrl::exchange
