#include "lcdata/values/action_code.h"

#include <gtest/gtest.h>

#include <cstring>

#include "lcdata/values/keys.h"
#include "tests/support/action_builder.h"

namespace {

using mrl::test::ActionBuilder;

tagCDB_LC_ACT named(const char* firstPart, std::int32_t suffix)
{
    tagCDB_LC_ACT record{};
    std::memcpy(record.name, firstPart, 4);
    record.suffix = suffix;
    return record;
}

TEST(PackWord, TheFirstByteStandsLowest)
{
    EXPECT_EQ(lcm_pack_word("G"), 0x20202047);
    EXPECT_EQ(lcm_pack_word("Q_1"), 0x20315F51);
    EXPECT_EQ(lcm_pack_word("ABCD"), 0x44434241);
}

TEST(PackWord, AnEmptyTextIsFourBlanks)
{
    EXPECT_EQ(lcm_pack_word(QString()), LC_BLANK_WORD);
    std::int32_t word = 0;
    lcm_pack_field("", word);
    EXPECT_EQ(word, LC_BLANK_WORD);
}

TEST(PackWord, LaterBytesAreDroppedAlsoInTheMiddleOfACharacter)
{
    EXPECT_EQ(lcm_pack_word("ABCDE"), 0x44434241);
    // ABC and the first byte of C3 84
    EXPECT_EQ(static_cast<std::uint32_t>(lcm_pack_word(QString::fromUtf8("ABCÄ"))), 0xC3434241u);
    // A pair of units gives four bytes: F0 9D 9B BE
    EXPECT_EQ(static_cast<std::uint32_t>(lcm_pack_word(QString::fromUtf8("\xF0\x9D\x9B\xBE"
                                                                         "A"))),
              0xBE9B9DF0u);
    // three letters and the first byte of such a character
    EXPECT_EQ(static_cast<std::uint32_t>(lcm_pack_word(QString::fromUtf8("ABC\xF0\x9D\x9B\xBE"))),
              0xF0434241u);
}

TEST(PackField, KeepsFourBytesAndPadsWithBlanks)
{
    char field[4];
    lcm_pack_field("Q", field);
    EXPECT_EQ(std::string(field, 4), "Q   ");
    lcm_pack_field("QWERT", field);
    EXPECT_EQ(std::string(field, 4), "QWER");
}

TEST(WordToChars, GivesTheLowByteFirst)
{
    char bytes[4];
    lcm_word_to_chars(0x20315F51, bytes);
    EXPECT_EQ(std::string(bytes, 4), "Q_1 ");
    lcm_word_to_chars(static_cast<std::int32_t>(0xBE9B9DF0u), bytes);
    EXPECT_EQ(std::string(bytes, 4), "\xF0\x9D\x9B\xBE");
    EXPECT_EQ(static_cast<std::uint32_t>(lcm_field_word(bytes)), 0xBE9B9DF0u);
}

TEST(CodeText, IsLowByteFirstAndEndsAtAZero)
{
    EXPECT_EQ(lcm_code_text(0x20202047), QStringLiteral("G   "));
    EXPECT_EQ(lcm_code_text(0x20315F51), QStringLiteral("Q_1 "));
    EXPECT_EQ(lcm_code_text(0x20202020), QStringLiteral("    "));
    EXPECT_EQ(lcm_code_text(0x20200047), QStringLiteral("G"));
    EXPECT_EQ(lcm_code_text(0), QString());
}

TEST(CodeName, HasNoBlanksAroundIt)
{
    EXPECT_EQ(lcm_code_name(0x20202047), QStringLiteral("G"));
    EXPECT_EQ(lcm_code_name(0x20315F51), QStringLiteral("Q_1"));
    EXPECT_EQ(lcm_code_name(0x20202020), QString());
}

TEST(WordName, OfAnOldActionNumberIsTheNumber)
{
    EXPECT_EQ(lcm_word_name(0x20315F51), QStringLiteral("Q_1"));
    EXPECT_EQ(lcm_word_name(0x20202020), QString());
    EXPECT_EQ(lcm_word_name(0x2020201F), QStringLiteral("538976287"));
    EXPECT_EQ(lcm_word_name(12), QStringLiteral("12"));
    EXPECT_EQ(lcm_word_name(-3), QStringLiteral("-3"));
}

TEST(ActionCode, JoinsFirstPartAndSuffix)
{
    EXPECT_EQ(lcm_action_code(ActionBuilder("G")), 0x20202047);
    EXPECT_EQ(lcm_action_code(ActionBuilder("Q_1")), 0x20315F51);
}

TEST(ActionCode, ZeroAndBlanksAndEverySmallerWordAreNoSuffix)
{
    EXPECT_EQ(lcm_action_code(named("Q   ", 0)), lcm_pack_word("Q"));
    EXPECT_EQ(lcm_action_code(named("Q   ", LC_BLANK_WORD)), lcm_pack_word("Q"));
    EXPECT_EQ(lcm_action_code(named("Q   ", 0x1F202020)), lcm_pack_word("Q"));
    EXPECT_EQ(lcm_action_code(named("Q   ", -5)), lcm_pack_word("Q"))
        << "a byte above 127 at the end compares lower";
}

TEST(ActionCode, KeepsFourBytesSoThatLongSuffixesCollide)
{
    EXPECT_EQ(lcm_action_code(ActionBuilder("G_123")), lcm_action_code(ActionBuilder("G_124")));
    EXPECT_EQ(lcm_action_code(ActionBuilder("G_123")), lcm_pack_word("G_12"));
}

TEST(ActionCode, AFirstPartOfFourCharactersCarriesNoSuffix)
{
    EXPECT_EQ(lcm_action_code(named("ABCD", lcm_pack_word("1"))), lcm_pack_word("ABCD"));
    EXPECT_EQ(lcm_action_code(named("ABC ", lcm_pack_word("1"))), lcm_pack_word("ABC_"));
}

TEST(ActionCode, EndsAtAZeroByte)
{
    EXPECT_EQ(lcm_action_code(named("G\0\0\0", 0)), lcm_pack_word("G"));
    EXPECT_EQ(lcm_action_code(named("G\0\0\0", lcm_pack_word("1"))), lcm_pack_word("G"))
        << "no blank to join at";
    EXPECT_EQ(lcm_action_code(named("\0\0\0\0", 0)), LC_BLANK_WORD);
}

TEST(ActionCode, ANameCutInTheMiddleOfACharacterKeepsTheCodeOfItsText)
{
    const QString name = QString::fromUtf8("ABCÄ");
    tagCDB_LC_ACT record{};
    lcm_pack_field(name.toUtf8().constData(), record.name);
    EXPECT_EQ(lcm_action_code(record), lcm_pack_word(name));
}

TEST(NormaliseCode, TurnsToUpperCaseAndPads)
{
    EXPECT_EQ(lcm_normalise_code("q"), 0x20202051);
    EXPECT_EQ(lcm_normalise_code("q_1"), lcm_pack_word("Q_1"));
    EXPECT_EQ(lcm_normalise_code("qwert"), lcm_pack_word("QWER"));
    EXPECT_EQ(lcm_normalise_code(""), LC_BLANK_WORD);
    EXPECT_EQ(lcm_normalise_code(QString::fromUtf8("ß")), lcm_pack_word("SS"));
}

TEST(ActionLabel, NameTakesFiveColumnsAndTheTitleFollows)
{
    EXPECT_EQ(lcm_action_label(ActionBuilder("G").title("Dead")), "G    Dead");
    EXPECT_EQ(lcm_action_label(ActionBuilder("Q_1").title("Wind")), "Q_1  Wind");
}

TEST(ActionLabel, WithoutATitleIsTheFiveColumns) { EXPECT_EQ(lcm_action_label(ActionBuilder("G")), "G    "); }

TEST(ActionLabel, AFirstPartOfFourCharactersShowsItsUnderscoreOnly)
{
    EXPECT_EQ(lcm_action_label(named("ABCD", lcm_pack_word("1"))), "ABCD_");
    tagCDB_LC_ACT record = named("ABCD", lcm_pack_word("1"));
    record.title[0] = 'T';
    EXPECT_EQ(lcm_action_label(record), "ABCD_T");
}

TEST(ActionLabel, ASuffixOfFourCharactersLosesItsLast)
{
    EXPECT_EQ(lcm_action_label(ActionBuilder("Q_WXYZ").title("T")), "Q_WXYT")
        << "the title begins in column six";
    EXPECT_EQ(lcm_action_code(ActionBuilder("Q_WXYZ")), lcm_pack_word("Q_WX"));
}

TEST(ActionLabel, ZerosInTheNameAreBlanks)
{
    EXPECT_EQ(lcm_action_label(named("G\0\0\0", 0)), "G    ");
    EXPECT_EQ(lcm_action_label(named("G\0\0\0", lcm_pack_word("1"))), "G_1  ") << "joined at the text's end";
}

TEST(ActionLabel, TheTitleIsCutToThirtyOneBytes)
{
    EXPECT_EQ(lcm_action_label(ActionBuilder("G").title(QString(33, 'x'))), "G    " + QString(31, 'x'));
}

TEST(MemberLabel, SuffixTakesFiveColumnsAndTheTitleFollows)
{
    EXPECT_EQ(lcm_member_label(ActionBuilder("Q_1").title("Wind")), "1    Wind");
    EXPECT_EQ(lcm_member_label(ActionBuilder("Q_WXYZ").title("Wind")), "WXYZ Wind");
    EXPECT_EQ(lcm_member_label(ActionBuilder("Q").title("Wind")), "     Wind");
    EXPECT_EQ(lcm_member_label(ActionBuilder("Q_1")), "1    ");
}

} // namespace
