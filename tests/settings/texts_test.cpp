#include <gtest/gtest.h>

#include <QString>
#include <array>
#include <string>

#include "host/mrl_lib.h"
#include "hostlib/data/settings/settings.h"

namespace {

using Field = std::array<unsigned, 17>;

QString textOf(const Field& field)
{
    QString out = "left over";
    mrl_lib_ps2qs(field.data(), out);
    return out;
}

} // namespace

TEST(PackedText, EarlierUnitStandsInTheLowHalf)
{
    Field field{};
    field[0] = 0x00620061u; // 'b' above 'a'
    field[1] = 0x000003B3u; // gamma, then the end
    EXPECT_EQ(textOf(field), QString::fromUtf8("abγ"));
}

TEST(PackedText, EmptyFieldClearsTheText) { EXPECT_TRUE(textOf(Field{}).isEmpty()); }

TEST(PackedText, FieldWithoutClosingZeroEndsWithItsThirtyFourthUnit)
{
    Field field;
    field.fill(0x00790078u);
    const QString text = textOf(field);
    EXPECT_EQ(text.size(), 34);
    EXPECT_EQ(text.right(2), "xy");
}

TEST(PackedText, NothingBehindTheFirstZeroCounts)
{
    Field field{};
    field[0] = 0x00620000u;
    field[1] = 0x00630063u;
    EXPECT_TRUE(textOf(field).isEmpty());
}

TEST(Catalogue, TextsComeInTheUsersLanguage)
{
    EXPECT_STREQ(mrl_lib_convtext(1, mrl::settings::English, "40Z"), "Consequence factor KFI");
    EXPECT_STREQ(mrl_lib_convtext(1, mrl::settings::German, "40Z"), "Konsequenzfaktor KFI");
    EXPECT_STREQ(mrl_lib_convtext(1, mrl::settings::English, "40X"), "Reduction factor ξ");
    EXPECT_STREQ(mrl_lib_convtext(1, mrl::settings::German, "40X"), "Reduktionsbeiwert ξ");
}

TEST(Catalogue, UnknownLanguageIsEnglish)
{
    EXPECT_STREQ(mrl_lib_convtext(1, 77, "40Z"), "Consequence factor KFI");
}

TEST(Catalogue, UnknownKeyComesBackAndStays)
{
    std::string key = "99Q";
    const char* text = mrl_lib_convtext(1, 0, key.c_str());
    key = "xxx";
    EXPECT_STREQ(text, "99Q");
    EXPECT_EQ(mrl_lib_convtext(1, 0, "99Q"), text);
}
