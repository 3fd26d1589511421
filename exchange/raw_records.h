#pragma once

/// Records as bytes, whatever they hold.

#include <string>
#include <string_view>
#include <vector>

namespace mrl::exchange {

/// The records of a key in their order, each as its bytes. Empty when there is no such key.
std::vector<std::string> readRecords(int db, int kwh, int kwl);

/// Whether a key holds one record alone, of just these bytes.
bool holdsJust(int db, int kwh, int kwl, std::string_view bytes);

/// Makes a key hold one record alone. @return false when it can't be written
bool putRecord(int db, int kwh, int kwl, std::string_view bytes);

/// Overwrites the beginning of one record of a key; what lies behind it in the record and the key's other
/// records stay.
/// @return false when there is no such record or it could not be written
bool overwriteRecord(int db, int kwh, int kwl, int position, const void* data, std::size_t size);

std::string toHex(std::string_view bytes);

/// @return false when the text is no even number of hexadecimal digits
bool fromHex(std::string_view text, std::string& bytes);

/// The bytes of a record in memory.
template <class Record>
std::string_view bytesOf(const Record& record)
{
    return {reinterpret_cast<const char*>(&record), sizeof record};
}

} // namespace mrl::exchange
