#include "lcdata/values/packing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

#include "lcdata/values/records.h"

namespace {

std::uint32_t bitsOf(float value)
{
    std::uint32_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

float floatOf(std::uint32_t bits)
{
    float value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

struct Pair
{
    float main, minor;
    std::uint32_t field;  ///< bits of the packed field
    std::uint32_t main2;  ///< bits of the main value that comes back
    std::uint32_t minor2; ///< bits of the minor value that comes back
};

class PackedPair : public ::testing::TestWithParam<Pair>
{
};

TEST_P(PackedPair, HasTheBitsWorkedOutByHand)
{
    const Pair& p = GetParam();
    const float field = lcm_pack_pair(p.main, p.minor);
    EXPECT_EQ(bitsOf(field), p.field);
    const LCM_FactorPair back = lcm_unpack_pair(field);
    EXPECT_EQ(bitsOf(back.main), p.main2);
    EXPECT_EQ(bitsOf(back.minor), p.minor2);
}

// One unit in the last place is 2^-23 = 1.1921e-7 from 1 to 2, half of it from 0.5 to 1, a quarter from 0.25
// to 0.5, twice it from 2 to 4.
INSTANTIATE_TEST_SUITE_P(
    Packing, PackedPair,
    ::testing::Values(
        // 1 + 0.0001 = 1 + 838.9 units -> 839 = 0x347. Rest 1.00017e-4 * 5e6 = 500.08 -> 500 * 0.002 = 1.
        Pair{1.0f, 1.0f, 0x3F800347, 0x3F800000, 0x3F800000},
        // 1.35 = 0x3FACCCCD (0.35 = 2936012.8 units -> 0x2CCCCD); 839 units more: 0x2CD014.
        Pair{1.35f, 1.0f, 0x3FACD014, 0x3FACCCCD, 0x3F800000},
        // A `Gama` of 0 as it stands leaves the main value.
        Pair{1.35f, 0.0f, 0x3FACCCCD, 0x3FACCCCD, 0x00000000},
        // A `Gama` of 0 stored as 0.001: 1e-7 = 0.84 units -> 1 unit. Rest 1.19e-7 * 5e6 = 0.6 -> 1 step =
        // 0.002.
        Pair{1.35f, 0.001f, 0x3FACCCCE, 0x3FACCCCD, 0x3B03126F},
        // 1.5 = 0x3FC00000 and 839 units.
        Pair{1.5f, 1.0f, 0x3FC00347, 0x3FC00000, 0x3F800000},
        // 0.5 + 0.00009 = 0.5 + 1509.9 half units -> 1510 = 0x5E6. 450 steps = 0.9.
        Pair{0.5f, 0.9f, 0x3F0005E6, 0x3F000000, 0x3F666667},
        // 0.7 + 0.00005: 838.9 half units -> 0x333333 + 0x347 = 0x33367A. 250 steps = 0.5.
        Pair{0.7f, 0.5f, 0x3F33367A, 0x3F333333, 0x3F000000},
        // 0.251f is a little below, so that times 1000 it is 250.99998: back comes 0.25, and the lost
        // thousandth as 5000 steps = 10.
        Pair{0.251f, 0.0f, 0x3E808312, 0x3E800000, 0x41200000},
        // -1000 + 0.5 = -999.5, truncated towards zero -999: -0.999.
        Pair{-1.0f, 0.0f, 0xBF7FBE77, 0xBF7FBE77, 0x00000000},
        // -0.999 + 0.0001 = -0.9989; times 1000 truncates to -998: -0.998; the rest -0.0009 is -4499 steps =
        // -8.998
        // (-4499.76 + 0.5 = -4499.26).
        Pair{-1.0f, 1.0f, 0xBF7FB7E9, 0xBF7F7CEE, 0xC10FF7CF},
        // 1234.5 + 0.5 = 1235: the third decimal rounds up. 1.235 = 0x3F9E147B.
        Pair{1.2345f, 0.0f, 0x3F9E147B, 0x3F9E147B, 0x00000000},
        // 1234.4 + 0.5 truncates to 1234. 1.234 = 0x3F9DF3B6.
        Pair{1.2344f, 0.0f, 0x3F9DF3B6, 0x3F9DF3B6, 0x00000000},
        // 0.9995f is 0.99949998: 999.49998 + 0.5 truncates to 999; 1677.7 half units of 0.0001 -> 1678 =
        // 0x68E.
        Pair{0.9995f, 1.0f, 0x3F7FC505, 0x3F7FBE77, 0x3F800000},
        // 0.5 + 0.49 = 0.99 truncates to 0.
        Pair{0.00049f, 0.0f, 0x00000000, 0x00000000, 0x00000000},
        // A main value of 0 leaves the minor one alone: 0.0001.
        Pair{0.0f, 1.0f, 0x38D1B717, 0x00000000, 0x3F800000},
        // -0.4 + 0.5 = 0.1 truncates to 0, and 0 has no sign.
        Pair{-0.0004f, 0.0f, 0x00000000, 0x00000000, 0x00000000},
        // -1.4 + 0.5 = -0.9 truncates to 0, without a sign as well.
        Pair{-0.0014f, -0.0f, 0x00000000, 0x00000000, 0x00000000},
        // The undefined value stays and drops the minor one.
        Pair{-99999.0f, 1.0f, 0xC7C34F80, 0xC7C34F80, 0x00000000},
        // So does what only becomes it by rounding: -99998.998 is nearest to -99999 in steps of 1/128.
        Pair{-99998.998f, 1.0f, 0xC7C34F80, 0xC7C34F80, 0x00000000}));

TEST(PackedPairProperty, ThousandthsKeepTheirMainValueWithinOneAndTheWholeWithinAStep)
{
    for (int main = 0; main <= 10000; ++main) {
        for (const int minor : {0, 1, 300, 500, 900, 1000, 1500}) {
            const float field =
                lcm_pack_pair(static_cast<float>(main) / 1000, static_cast<float>(minor) / 1000);
            const LCM_FactorPair back = lcm_unpack_pair(field);
            // Main is a whole number of thousandths: the one that went in or, lost to rounding, the one
            // below.
            const int thousandths = static_cast<int>(std::lround(back.main * 1000.0f));
            ASSERT_TRUE(thousandths == main || thousandths == main - 1) << main << ' ' << minor;
            // Minor is a whole number of steps of 0.002, rounded half up from the rest.
            const double rest = static_cast<double>((field - back.main) * 5e6f);
            ASSERT_EQ(std::lround(static_cast<double>(back.minor) / 0.002),
                      std::lround(std::floor(rest + 0.5)))
                << main << ' ' << minor;
        }
    }
}

TEST(PackedPairProperty, EveryBitPatternIsDefinedAndAlwaysTheSame)
{
    std::mt19937 random(20);
    for (int i = 0; i < 300000; ++i) {
        const float main = floatOf(static_cast<std::uint32_t>(random()));
        const float minor = floatOf(static_cast<std::uint32_t>(random()));
        const float field = lcm_pack_pair(main, minor);
        ASSERT_EQ(bitsOf(field), bitsOf(lcm_pack_pair(main, minor)));
        const LCM_FactorPair back = lcm_unpack_pair(main);
        if (std::isfinite(main) && std::fabs(main) < 1e30f) {
            ASSERT_TRUE(std::isfinite(back.main));
            ASSERT_LE(std::fabs(back.main), std::fabs(main) * 1.000001f);
        }
    }
}

TEST(PackedPairProperty, NotANumberAndInfinityRunThrough)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    EXPECT_TRUE(std::isnan(lcm_pack_pair(nan, 1.0f)));
    EXPECT_TRUE(std::isnan(lcm_pack_pair(1.0f, nan)));
    EXPECT_EQ(lcm_pack_pair(infinity, 1.0f), infinity);
    EXPECT_EQ(lcm_pack_pair(1.0f, -infinity), -infinity);
    EXPECT_TRUE(std::isnan(lcm_unpack_pair(nan).main));
    EXPECT_EQ(lcm_unpack_pair(infinity).main, infinity);
    EXPECT_TRUE(std::isnan(lcm_unpack_pair(infinity).minor));
    EXPECT_EQ(lcm_unpack_pair(std::numeric_limits<float>::max()).main, infinity);
}

TEST(PackedPair, PackingIsRoundingAndThenAdding)
{
    EXPECT_EQ(bitsOf(lcm_add_minor(lcm_round_main(1.35f), 1.0f)), bitsOf(lcm_pack_pair(1.35f, 1.0f)));
    // Apart from it, rounding doesn't know the undefined value.
    EXPECT_EQ(lcm_round_main(LC_UNDEFINED), LC_UNDEFINED);
}

} // namespace
