#pragma once

#include <cstdint>

namespace mrl::cdb {

/// How many rows there are, and what their checksums add up to.
struct Tally
{
    std::int64_t count = 0;
    std::uint64_t sum = 0; ///< of the checksums, modulo 2^64

    void add(std::uint64_t checksum)
    {
        ++count;
        sum += checksum;
    }
    Tally& operator+=(const Tally& other)
    {
        count += other.count;
        sum += other.sum;
        return *this;
    }
    Tally& operator-=(const Tally& other)
    {
        count -= other.count;
        sum -= other.sum;
        return *this;
    }
};

inline bool operator==(const Tally& a, const Tally& b) { return a.count == b.count && a.sum == b.sum; }

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
