#pragma once

#include <cstring>

#include "hostlib/data/cdb/sqlite/store.h"

namespace mrl::cdb {

/// What stands under a key.
struct Standing
{
    Tally records;
    const void* bytes = nullptr; ///< of the first record; null: not known
    int size = 0;
    bool isWhole = true; ///< false: there may be more records than were counted

    /// Is it this record and no other?
    bool isJust(const Record& record) const
    {
        return records.count == 1 && records.sum == record.checksum && size == record.size &&
               std::memcmp(bytes, record.bytes, static_cast<std::size_t>(size)) == 0;
    }
};

} // namespace mrl::cdb
