#pragma once

#include <string>

#include "hostlib/data/cdb/sqlite/statement.h"

namespace mrl::cdb {

/// Connects to an empty file that nobody else knows of yet. Nothing stands beside it, and nothing is synced.
/// @return a code of SQLite
int connectToBuild(const std::string& path, Connection& out);

/// Connects to a copy that nobody else knows of, which may stand beside a journal. Nothing is synced.
/// @return a code of SQLite
int connectToCopy(const std::string& path, Connection& out);

/// Reads the version of a file's format as SQLite sees it: the first bytes of the file may belong to a conversion
/// that a crash left unfinished and that was taken back by the first look at the file. @return a code of SQLite
int readFormat(sqlite3* connection, int& format);

} // namespace mrl::cdb
