#pragma once

#include <string>

#include "hostlib/data/cdb/project.h"

struct sqlite3;

namespace mrl::cdb {

/// What SQLite reported last on a connection, in our words.
/// @param status the code that the call gave back
/// @param connection may be null
Result failureOf(int status, sqlite3* connection, const std::string& file);

/// What SQLite's check of the pages found. It takes a page that can't be read for a damaged one.
Result damageOf(sqlite3* connection, const std::string& file, const std::string& verdict);

} // namespace mrl::cdb
