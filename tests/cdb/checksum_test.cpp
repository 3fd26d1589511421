#include <random>

#include <gtest/gtest.h>

#include "hostlib/data/cdb/checksum.h"
#include "hostlib/data/cdb/sqlite/version1.h"

using mrl::cdb::factChecksum;
using mrl::cdb::recordChecksum;

namespace {

/// What python3-xxhash says of these bytes: xxhash.xxh3_64_intdigest(struct.pack("<iii", kwh, kwl, position) + bytes).
TEST(Checksum, OfARecordIsXxh3OverKeyPositionAndBytes)
{
    EXPECT_EQ(recordChecksum(12, 5, 0, "ab", 2), 0xED68061E1078526DU);
    EXPECT_EQ(recordChecksum(-1, -2, 3, std::string(5000, 'x').data(), 5000), 0xBF2FD36BDCF7A516U);
    EXPECT_NE(recordChecksum(12, 5, 1, "ab", 2), recordChecksum(12, 5, 0, "ab", 2));
    EXPECT_NE(recordChecksum(5, 12, 0, "ab", 2), recordChecksum(12, 5, 0, "ab", 2));
}

TEST(Checksum, OfAFactIsXxh3OverNameZeroAndValue)
{
    EXPECT_EQ(factChecksum("designcode", "x.ini"), 0x36CDD9A69E3A8B0DU);
    EXPECT_NE(factChecksum("ab", "c"), factChecksum("a", "bc"));
}

/// The same change of two records must not cancel out, as it does in any checksum that is linear.
TEST(Checksum, EqualChangesOfTwoRecordsDoNotCancelOut)
{
    std::mt19937 random(3);
    for (int i = 0; i < 1000; ++i) {
        std::string a(188, static_cast<char>(random()));
        std::string b(188, static_cast<char>(random()));
        const auto before = recordChecksum(12, 1, 0, a.data(), 188) + recordChecksum(12, 2, 0, b.data(), 188);
        a[20] = static_cast<char>(a[20] ^ 1);
        b[20] = static_cast<char>(b[20] ^ 1);
        const auto after = recordChecksum(12, 1, 0, a.data(), 188) + recordChecksum(12, 2, 0, b.data(), 188);
        EXPECT_NE(before, after);
    }
}

TEST(Checksum, OfFormat1IsTheCastagnoliCrc)
{
    // The check value that every description of this CRC gives for the nine digits; a fact's checksum runs over
    // name, zero and value.
    EXPECT_EQ(mrl::cdb::version1::factChecksum("designcode", "x.ini"), 0xA331F8A3U);
    EXPECT_EQ(mrl::cdb::version1::recordChecksum({12, 5}, 0, "ab", 2), 0x7380030CU);
    EXPECT_EQ(mrl::cdb::version1::recordChecksum({12, 5}, 0, std::string(188, 'x').data(), 188), 0xFE29AB10U);
}

} // namespace
