#pragma once

#include <string>

#include "hostlib/data/cdb/sqlite/store.h"

namespace mrl::cdb {

/// Checks the whole content: tables, pages, each record and fact against its checksum, the order and the
/// gapless positions of the records, and the summary.
Result checkContent(sqlite3* connection, const std::string& file, int format, Depth depth);

} // namespace mrl::cdb
