#pragma once

/// Which load cases of a project are this system's: the group holds records of other modules too, which may
/// be longer.

#include <cstdint>

#include "lcdata/load_cases.h"

/// Reads a load case, of a longer record its beginning.
/// @param record [out] zero when there is none
/// @return false when there is none, or it belongs to another module: its kind is neither 0 nor 1
inline bool lcm_read_own_loadcase(int db, int number, tagCDB_LC_CTRL& record)
{
    return mrl_lc_get(db, number, record) && static_cast<std::uint32_t>(record.kind) <= 1;
}
