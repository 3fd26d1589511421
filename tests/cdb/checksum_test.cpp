#include <random>

#include <gtest/gtest.h>

#include "hostlib/data/cdb/checksum.h"

namespace {

TEST(Checksum, IsTheCastagnoliCrc)
{
    // The check value that every description of this CRC gives for the nine digits.
    EXPECT_EQ(mrl::cdb::crc32c(0, "123456789", 9), 0xE3069283U);
    EXPECT_EQ(mrl::cdb::crc32cByTable(0, "123456789", 9), 0xE3069283U);
}

TEST(Checksum, InstructionAndTableAgreeAtEveryLength)
{
    std::mt19937 random(3);
    std::string bytes;
    for (int size = 0; size < 300; ++size) {
        EXPECT_EQ(mrl::cdb::crc32c(7, bytes.data(), bytes.size()),
                  mrl::cdb::crc32cByTable(7, bytes.data(), bytes.size()));
        bytes += static_cast<char>(random());
    }
}

TEST(Checksum, OfARecordCoversKeyPositionAndBytes)
{
    // Key (12, 5), position 0 and the bytes "ab" are 0c000000 05000000 00000000 6162.
    const std::string all("\x0c\0\0\0\x05\0\0\0\0\0\0\0"
                          "ab",
                          14);
    EXPECT_EQ(mrl::cdb::recordChecksum(12, 5, 0, "ab", 2), mrl::cdb::crc32cByTable(0, all.data(), 14));
    EXPECT_NE(mrl::cdb::recordChecksum(12, 5, 1, "ab", 2), mrl::cdb::recordChecksum(12, 5, 0, "ab", 2));
    EXPECT_NE(mrl::cdb::recordChecksum(5, 12, 0, "ab", 2), mrl::cdb::recordChecksum(12, 5, 0, "ab", 2));
}

TEST(Checksum, OfAFactKeepsNameAndValueApart)
{
    EXPECT_NE(mrl::cdb::factChecksum("ab", "c"), mrl::cdb::factChecksum("a", "bc"));
}

} // namespace
