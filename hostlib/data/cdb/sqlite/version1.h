#pragma once

/// Format 1, as files of older programs have it: read, checked, and converted by the first write.

#include <cstddef>
#include <cstdint>
#include <string>

#include "hostlib/data/cdb/project.h"

struct sqlite3;

namespace mrl::cdb::version1 {

/// The texts of its tables.
extern const char* const RECORD_TABLE;
extern const char* const FACT_TABLE;
extern const char* const SUMMARY_TABLE;

/// Its checksums: CRC-32C over key, position and bytes, or over name, a zero byte and value.
std::uint32_t recordChecksum(const Key& key, int position, const void* data, std::size_t size);
std::uint32_t factChecksum(const std::string& name, const std::string& value);

/// Brings the tables of a file to the present format, within the open transaction. @return a code of SQLite
int convert(sqlite3* connection);

} // namespace mrl::cdb::version1
