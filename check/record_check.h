#pragma once

/// The check of single records, as the bytes of the file have them.

#include <optional>
#include <string_view>

#include "rules/finding.h"

/// A record and the key that it stands under.
struct LCM_RawRecord
{
    int kwh = 0;
    int kwl = 0;
    bool first = true; ///< the first of its key; behind it other modules may keep what they like
    std::string_view bytes;
};

/// Judges size and kind of a record. Other modules' records are their own business: other groups, numeric
/// keys and those that begin with Y among the actions, and foreign kinds.
/// @return what is wrong with it, about its key; nothing when it is sound
std::optional<LCM_Finding> lcm_check_record(const LCM_RawRecord& record);
