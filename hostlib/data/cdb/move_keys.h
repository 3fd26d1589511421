#pragma once

#include <map>

#include "hostlib/data/cdb/project.h"

namespace mrl::cdb {

/// Moves keys with all their records to other elements of their group, all at once, so that two can be exchanged. A
/// target that doesn't move away keeps its own records ahead of those that come. Runs in the caller's transaction,
/// or in one of its own.
/// @param moves from an element to its new one; one without a key moves nothing
MRL_HOST_API Result moveKeys(int db, int kwh, const std::map<int, int>& moves);

} // namespace mrl::cdb
