#pragma once

#include <string>

#include "hostlib/data/cdb/project.h"

namespace mrl::cdb {

/// A failure, worded "FILE: REASON".
Result failure(Code code, const std::string& file, const std::string& reason);

/// A record does not fit its checksum.
Result checksumFailure(const std::string& file, const Key& key);

/// No open database has this index.
Result notOpen(int db);

} // namespace mrl::cdb
