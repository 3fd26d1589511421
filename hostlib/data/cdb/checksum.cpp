#include "hostlib/data/cdb/checksum.h"

#include <array>
#include <cstring>

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace mrl::cdb {

namespace {

constexpr std::size_t IDENTITY = 12; // bytes: group, element, position

void putWord(unsigned char* at, int value)
{
    const auto bits = static_cast<std::uint32_t>(value);
    for (unsigned i = 0; i < 4; ++i) {
        at[i] = static_cast<unsigned char>(bits >> (8 * i));
    }
}

std::uint64_t hashOfTwo(const void* first, std::size_t firstSize, const void* second, std::size_t secondSize)
{
    XXH3_state_t state;
    XXH3_64bits_reset(&state);
    XXH3_64bits_update(&state, first, firstSize);
    XXH3_64bits_update(&state, second, secondSize);
    return XXH3_64bits_digest(&state);
}

} // namespace

std::uint64_t recordChecksum(int kwh, int kwl, int position, const void* data, std::size_t size)
{
    // The hash of one piece takes a fifth of the time of one that is fed in pieces.
    std::array<unsigned char, 512> piece; // NOLINT(cppcoreguidelines-pro-type-member-init): filled below
    putWord(piece.data(), kwh);
    putWord(piece.data() + 4, kwl);
    putWord(piece.data() + 8, position);
    if (size > piece.size() - IDENTITY) {
        return hashOfTwo(piece.data(), IDENTITY, data, size);
    }
    if (size > 0) {
        std::memcpy(piece.data() + IDENTITY, data, size);
    }
    return XXH3_64bits(piece.data(), IDENTITY + size);
}

std::uint64_t factChecksum(const std::string& name, const std::string& value)
{
    // The zero byte keeps ("ab", "c") and ("a", "bc") apart.
    return hashOfTwo(name.c_str(), name.size() + 1, value.data(), value.size());
}

} // namespace mrl::cdb
