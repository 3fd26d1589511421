#pragma once

/// Records of the load cases' group, which may belong to other modules and be longer than a load case.

#include <cstring>

#include "host/mrl_cdb.h"
#include "lcdata/guards.h"
#include "lcdata/keys.h"
#include "lcdata/records.h"

/// A buffer for the first record of a key, used again for each key.
class LCM_ForeignRecord
{
  public:
    /// Reads the first record of a load-case number. @return false when there is none
    bool read(int db, int number)
    {
        const LCM_KeyGuard key(db, LC_KWH_CASES, number);
        int length = LC_FOREIGN_RECORD_BYTES;
        const int result = mrl_cdb_get(db, LC_KWH_CASES, number, m_bytes, &length, 0);
        return result != CD_END && result != CD_NONE;
    }

    /// True for the kinds 0 and 1; any other record belongs to another module.
    bool isOurs() const
    {
        const auto kind = static_cast<std::uint32_t>(loadcase().kind);
        return kind <= 1;
    }

    tagCDB_LC_CTRL loadcase() const
    {
        tagCDB_LC_CTRL record;
        std::memcpy(&record, m_bytes, sizeof record);
        return record;
    }

  private:
    unsigned char m_bytes[LC_FOREIGN_RECORD_BYTES] = {};
};
