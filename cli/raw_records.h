#pragma once

/// Records as bytes, whatever they hold.

#include <string>
#include <vector>

namespace mrl::cli {

/// The records of a key in their order, each as its bytes. Empty when there is no such key.
std::vector<std::string> readRecords(int db, int kwh, int kwl);

/// Overwrites the beginning of one record of a key; what lies behind it in the record and the key's other
/// records stay.
/// @return false when there is no such record or it could not be written
bool overwriteRecord(int db, int kwh, int kwl, int position, const void* data, std::size_t size);

/// KWH/KWL as a person names the key: an action's by its name.
std::string keyText(int kwh, int kwl);

std::string toHex(const std::string& bytes);

/// @return false when the text is no even number of hexadecimal digits
bool fromHex(const std::string& text, std::string& bytes);

/// The first word of a record, by which records of one key are told apart; 0 when it is shorter than that.
int kindOf(const std::string& record);

} // namespace mrl::cli
