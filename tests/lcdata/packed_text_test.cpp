#include "lcdata/values/packed_text.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <random>
#include <string>

namespace {

using Field = std::uint32_t[LC_TITLE_WORDS];

QString letters(int count)
{
    QString text;
    for (int i = 0; i < count; ++i) {
        text += QChar('a' + i % 26);
    }
    return text;
}

std::string utf8Of(const Field& field, int size)
{
    std::string buffer(static_cast<std::size_t>(size), '#');
    lcm_title_to_utf8(field, buffer.data(), size);
    return buffer.substr(0, buffer.find('\0'));
}

TEST(TitlePack, TheEarlierUnitStandsInTheLowHalf)
{
    Field field;
    std::fill_n(field, LC_TITLE_WORDS, 0xFFFFFFFFu);
    lcm_title_pack(QStringLiteral("abc"), field, LC_TITLE_WORDS);
    EXPECT_EQ(field[0], 0x00620061u); // a = 61, b = 62
    EXPECT_EQ(field[1], 0x00000063u); // the odd last unit leaves the high half 0
    EXPECT_TRUE(std::all_of(field + 2, field + LC_TITLE_WORDS, [](std::uint32_t w) { return w == 0; }));
}

TEST(TitlePack, TheThirtyFourthUnitIsLost)
{
    Field field;
    lcm_title_pack(letters(34), field, LC_TITLE_WORDS);
    EXPECT_EQ(lcm_title_text(field), letters(33));
    EXPECT_EQ(field[16] >> 16, 0u);
}

TEST(TitlePack, AFieldOfOneWordHoldsOneUnit)
{
    std::uint32_t word = 0xFFFFFFFFu;
    lcm_title_pack(QStringLiteral("xy"), &word, 1);
    EXPECT_EQ(word, 0x78u);
}

TEST(TitlePack, AnEmptyTextZeroesTheField)
{
    Field field;
    std::fill_n(field, LC_TITLE_WORDS, 1u);
    lcm_title_pack(QString(), field, LC_TITLE_WORDS);
    EXPECT_THAT(field, ::testing::Each(0u));
}

TEST(TitlePack, NothingIsWrittenToAFieldWithoutWords)
{
    std::uint32_t word = 5;
    lcm_title_pack(QStringLiteral("x"), &word, 0);
    EXPECT_EQ(word, 5u);
}

TEST(TitleText, AFieldWithoutClosingZeroComesBackWhole)
{
    Field field;
    const QString title = letters(34);
    for (int i = 0; i < LC_TITLE_WORDS; ++i) {
        field[i] = title[2 * i].unicode() | static_cast<std::uint32_t>(title[2 * i + 1].unicode()) << 16;
    }
    EXPECT_EQ(lcm_title_text(field), title);
    EXPECT_EQ(utf8Of(field, 32), title.left(31).toStdString());
}

TEST(TitlePack, AnyTextComesBackUpToItsFirstZeroAndThirtyThreeUnits)
{
    std::mt19937 random(7);
    for (int i = 0; i < 20000; ++i) {
        QString text;
        for (auto count = random() % 40; count > 0; --count) {
            text += QChar(static_cast<ushort>(random() % 8 == 0 ? random() % 3 : random()));
        }
        Field field;
        lcm_title_pack(text, field, LC_TITLE_WORDS);
        const int end = text.indexOf(QChar(0));
        ASSERT_EQ(lcm_title_text(field), text.left(end < 0 ? 33 : std::min(end, 33)));
        char buffer[32];
        lcm_title_to_utf8(field, buffer, 32);
        ASSERT_LE(std::strlen(buffer), 31u);
    }
}

TEST(TitleToUtf8, EndsAtTheFirstZeroUnit)
{
    Field field{};
    lcm_title_pack(QStringLiteral("ab"), field, LC_TITLE_WORDS);
    field[2] = 'z';
    EXPECT_EQ(utf8Of(field, 32), "ab");
}

TEST(TitleToUtf8, ZeroesTheRestOfTheBuffer)
{
    Field field;
    lcm_title_pack(QStringLiteral("ab"), field, LC_TITLE_WORDS);
    std::array<char, 8> buffer;
    buffer.fill('#');
    lcm_title_to_utf8(field, buffer.data(), 6);
    EXPECT_THAT(buffer, ::testing::ElementsAre('a', 'b', 0, 0, 0, 0, '#', '#'));
}

TEST(TitleToUtf8, CutsACharacterInTheMiddle)
{
    Field field;
    lcm_title_pack(QString::fromUtf8("aäö"), field, LC_TITLE_WORDS); // 61 C3A4 C3B6
    EXPECT_EQ(utf8Of(field, 5), "a\xC3\xA4\xC3");
}

TEST(TitleToUtf8, LooksAtAsManyUnitsAsTheBufferHasBytes)
{
    Field field;
    // Of size 2 two units count; the second is half of a pair then, and is passed over.
    lcm_title_pack(QString::fromUtf8("a\xF0\x9D\x9B\xBE"), field, LC_TITLE_WORDS);
    EXPECT_EQ(utf8Of(field, 2), "a");
    EXPECT_EQ(utf8Of(field, 6), "a\xF0\x9D\x9B\xBE");
}

TEST(TitleToUtf8, PassesOverInvalidSequences)
{
    Field field{};
    // A first half without its second one takes the unit behind it along; a second half alone goes by itself.
    field[0] = 0xD800u | static_cast<std::uint32_t>('x') << 16;
    field[1] = 0xDC00u | static_cast<std::uint32_t>('y') << 16;
    EXPECT_EQ(utf8Of(field, 32), "y");
}

TEST(TitleToUtf8, ABufferOfOneByteGetsTheZeroAndOneOfNoneNothing)
{
    Field field;
    lcm_title_pack(QStringLiteral("ab"), field, LC_TITLE_WORDS);
    char buffer[2] = {'#', '#'};
    lcm_title_to_utf8(field, buffer, 0);
    EXPECT_EQ(buffer[0], '#');
    lcm_title_to_utf8(field, buffer, 1);
    EXPECT_EQ(buffer[0], '\0');
    EXPECT_EQ(buffer[1], '#');
}

} // namespace
