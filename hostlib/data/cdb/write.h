#pragma once

#include <string>

#include "hostlib/data/cdb/project.h"

namespace mrl::cdb {

constexpr int LONGEST_RECORD = 1 << 20; // bytes

/// What came of a write. Missing: there is no such key, which is no error.
enum class Outcome { Done, Missing, Failed };

/// A write as it can be done again.
struct Write
{
    enum class Kind { Put, Append, Overwrite, Delete, SetFact } kind = Kind::Put;
    Key key;
    int position = 0;  ///< Overwrite
    std::string name;  ///< SetFact
    std::string bytes; ///< the record, or the fact's value
};

} // namespace mrl::cdb
