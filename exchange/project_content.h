#pragma once

/// Everything that a project holds: its facts and its records, of other modules too.

#include <map>
#include <string>
#include <vector>

namespace mrl::exchange {

struct RecordKey
{
    int kwh = 0;
    int kwl = 0;
};

inline bool operator<(const RecordKey& a, const RecordKey& b)
{
    return a.kwh != b.kwh ? a.kwh < b.kwh : a.kwl < b.kwl;
}
inline bool operator==(const RecordKey& a, const RecordKey& b) { return a.kwh == b.kwh && a.kwl == b.kwl; }

/// The records of a key in their order, each as its bytes.
using KeyRecords = std::vector<std::string>;

struct ProjectContent
{
    std::map<std::string, std::string> facts;
    std::map<RecordKey, KeyRecords> keys;
};

/// @param facts which the caller reads from its host
ProjectContent contentOf(int db, const std::map<std::string, std::string>& facts);

} // namespace mrl::exchange
