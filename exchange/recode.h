#pragma once

/// Another design code for a project: what a plan needs of it, and what a plan writes.

#include "check/recode.h"

namespace mrl::exchange {

/// What a plan needs of a project.
LCM_RecodeProject recodeProjectOf(int db);

/// Writes the records of a plan under the keys that they have; the caller moves the keys of actions with another name
/// (LCM_RecodePlan::moves), holds the transaction, and undoes it on failure. Of the system record only the two words
/// change.
/// @return what could not be written, for a message; empty when all was
std::string applyRecode(int db, const LCM_RecodePlan& plan);

} // namespace mrl::exchange
