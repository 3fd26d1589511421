#pragma once

#include <cstdint>

#include "hostlib/data/cdb/checksum.h"

namespace mrl::cdb {

/// How many rows there are, and their checksums in one number.
struct Tally
{
    std::int64_t count = 0;
    std::uint32_t mix = 0; ///< xor of the checksums

    void add(std::uint32_t checksum)
    {
        ++count;
        mix ^= checksum;
    }
    Tally& operator+=(const Tally& other)
    {
        count += other.count;
        mix ^= other.mix;
        return *this;
    }
    Tally& operator-=(const Tally& other)
    {
        count -= other.count;
        mix ^= other.mix;
        return *this;
    }
};

inline bool operator==(const Tally& a, const Tally& b) { return a.count == b.count && a.mix == b.mix; }

/// What the rows of both tables add up to, or what a transaction changes in that.
struct Summary
{
    Tally records;
    Tally facts;
};

inline bool operator==(const Summary& a, const Summary& b)
{
    return a.records == b.records && a.facts == b.facts;
}

} // namespace mrl::cdb
