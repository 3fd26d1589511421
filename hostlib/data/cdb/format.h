#pragma once

#include <string>

#include "hostlib/data/cdb/project.h"

struct sqlite3;

namespace mrl::cdb {

constexpr int applicationId = 0x4D524C43; // "MRLC", in the header of the file at offset 68
constexpr int formatVersion = 1;          // user_version, in the header of the file at offset 60
constexpr int longestRecord = 1 << 20;    // bytes

/// Makes the tables of an empty project. @return a code of SQLite
int makeTables(sqlite3* connection);

/// Looks at the first bytes of a file without opening it as a database, so that nothing of a foreign file,
/// its leftover journals included, is touched.
Result probe(const std::string& path);

/// How closely the pages are looked at; the records' checksums are checked in any case.
enum class Depth { Quick, Full };

/// Checks the whole content: tables, pages, each record and fact against its checksum, the order and the
/// gapless positions of the records, and the summary.
Result checkContent(sqlite3* connection, const std::string& file, Depth depth);

} // namespace mrl::cdb
