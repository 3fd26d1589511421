#pragma once

#include <string>

#include "hostlib/data/cdb/sqlite/statement.h"

namespace mrl::cdb {

/// Connects to an empty file that nobody else knows of yet. Nothing stands beside it, and nothing is synced.
/// @return a code of SQLite
int connectToBuild(const std::string& path, Connection& out);

} // namespace mrl::cdb
