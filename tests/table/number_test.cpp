#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "host/mrl_table.h"
#include "hostlib/ui/table/number_text.h"

namespace {

QString factor(float value) { return mrl_h_getDimStringFromVal(static_cast<double>(value), -3, 2); }

} // namespace

TEST(FactorText, HasTwoDecimalsAtLeastAndAsManyAsTheValue)
{
    EXPECT_EQ(factor(1.35f), "1.35");
    EXPECT_EQ(factor(0.7f), "0.70");
    EXPECT_EQ(factor(0.002f), "0.002");
    EXPECT_EQ(factor(0.0f), "0.00");
    EXPECT_EQ(factor(1.0f), "1.00");
    EXPECT_EQ(factor(-1.5f), "-1.50");
    EXPECT_EQ(factor(10.0f), "10.00");
    EXPECT_EQ(factor(9999.0f), "9999.00");
}

TEST(FactorText, StopsAtSixSignificantDigits)
{
    EXPECT_EQ(factor(0.1234567f), "0.123457");
    EXPECT_EQ(factor(12.3456789f), "12.3457");
    EXPECT_EQ(factor(1.35000002f), "1.35");
    EXPECT_EQ(factor(0.0001234567f), "0.000123457");
}

TEST(FactorText, ShowsNoMinusBeforeNothing) { EXPECT_EQ(factor(-0.0f), "0.00"); }

TEST(FactorText, OfTheUndefinedValueIsEmpty) { EXPECT_EQ(factor(-99999.0f), ""); }

TEST(FactorText, OfWhatIsNoNumberSaysSo)
{
    EXPECT_EQ(factor(std::numeric_limits<float>::quiet_NaN()), "nan");
    EXPECT_EQ(factor(std::numeric_limits<float>::infinity()), "inf");
}

TEST(FactorText, OfVeryLargeAndSmallNumbersStaysShort)
{
    EXPECT_EQ(factor(1e20f), "1e+20");
    EXPECT_EQ(factor(1e-30f), "1e-30");
}

TEST(FactorText, WithoutPrecisionHasOnlyTheDecimalsItNeeds)
{
    EXPECT_EQ(mrl_h_getDimStringFromVal(1.0, -3, -1), "1");
    EXPECT_EQ(mrl_h_getDimStringFromVal(0.5, -3, -1), "0.5");
}

TEST(ParseNumber, TakesEitherDecimalSign)
{
    EXPECT_EQ(mrl::table::parseNumber("1.35"), 1.35);
    EXPECT_EQ(mrl::table::parseNumber("1,35"), 1.35);
    EXPECT_EQ(mrl::table::parseNumber(" -0,5 "), -0.5);
    EXPECT_EQ(mrl::table::parseNumber(".5"), 0.5);
    EXPECT_EQ(mrl::table::parseNumber(",5"), 0.5);
    EXPECT_EQ(mrl::table::parseNumber("2,"), 2.0);
    EXPECT_EQ(mrl::table::parseNumber("1e-3"), 0.001);
}

TEST(ParseNumber, TakesTheOtherSignAsGrouping)
{
    EXPECT_EQ(mrl::table::parseNumber("1.234,5"), 1234.5);
    EXPECT_EQ(mrl::table::parseNumber("1,234.5"), 1234.5);
    EXPECT_EQ(mrl::table::parseNumber("-1,234,567.25"), -1234567.25);
    EXPECT_EQ(mrl::table::parseNumber("1.234.567"), 1234567.0);
}

TEST(ParseNumber, RefusesWhatIsNoFiniteNumber)
{
    for (const char* text : {"", "  ", "abc", "1.2.3", "1,2,3", "1.2,3,4", "12,34.5,6", "nan", "inf", "-inf",
                             "1e999", "1.35 kN", "--1", "0x10", "12.34,5"}) {
        EXPECT_FALSE(mrl::table::parseNumber(text).has_value()) << text;
    }
}
