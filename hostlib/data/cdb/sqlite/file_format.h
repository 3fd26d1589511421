#pragma once

#include <string>

#include "hostlib/data/cdb/project.h"

struct sqlite3;

namespace mrl::cdb {

constexpr int APPLICATION_ID = 0x4D524C43;     // "MRLC", in the header of the file at offset 68
constexpr int FORMAT_VERSION = CURRENT_FORMAT; // user_version, in the header of the file at offset 60

/// The texts of the tables, as the file holds them.
extern const char* const RECORD_TABLE;
extern const char* const FACT_TABLE;
extern const char* const SUMMARY_TABLE;

/// The statements that make the tables of an empty project.
std::string tableTexts();

/// Makes the tables of an empty project. @return a code of SQLite
int makeTables(sqlite3* connection);

/// Looks at the first bytes of a file without opening it as a database, so that nothing of a foreign file,
/// its leftover journals included, is touched.
/// @param file the name for messages
/// @param path the file, with links resolved
/// @param format [out] the version of its format
Result probe(const std::string& file, const std::string& path, int& format);

} // namespace mrl::cdb
