#pragma once

/// Compares what is stored bit for bit.

#include <cstdint>
#include <cstring>
#include <type_traits>

namespace mrl::test {

inline std::uint32_t bits(float value)
{
    std::uint32_t word = 0;
    std::memcpy(&word, &value, sizeof word);
    return word;
}

template <class Record>
bool sameBytes(const Record& a, const std::common_type_t<Record>& b) // what a builder makes fits, too
{
    static_assert(std::is_trivially_copyable_v<Record>);
    return std::memcmp(&a, &b, sizeof a) == 0;
}

} // namespace mrl::test
