#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "lcdata/values/action_code.h"
#include "rules/action_columns.h"
#include "rules/action_row.h"
#include "tests/support/action_builder.h"

using mrl::test::ActionBuilder;
using mrl::test::soundAction;

namespace {

/// A record on its way through the cells of a row in which every factor has a column.
tagCDB_LC_ACT throughRow(const tagCDB_LC_ACT& record)
{
    tagCDB_LC_ACT result;
    std::memset(&result, 0x5A, sizeof result);
    lcm_action_record(lcm_action_cells(record), result);
    return result;
}

bool sameBytes(const tagCDB_LC_ACT& a, const tagCDB_LC_ACT& b) { return std::memcmp(&a, &b, sizeof a) == 0; }

float factorOf(const LCM_ActionCells& cells, int column)
{
    const LCM_Factor* factor = lcm_factor_of_action_column(column);
    return factor ? cells.factors[factor->id] : std::numeric_limits<float>::quiet_NaN();
}

LCM_ActionCells cellsNamed(const QString& name)
{
    LCM_ActionCells cells;
    cells.name = name;
    cells.partition = 3;
    cells.superposition = 2;
    return cells;
}

/// A random record that a row can show: kind 1, a suffix of one character at most, a title of at most 33
/// units, known factors, and a `Gama` that the zero rule leaves alone.
tagCDB_LC_ACT randomRecord(std::mt19937& random)
{
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    static const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXZ0123456789");
    const bool suffix = below(2) == 0;
    QString name;
    for (int i = 0, n = 1 + below(suffix ? 2 : 4); i < n; ++i) {
        name += letters.at(below(letters.size()));
    }
    if (suffix) {
        name += QLatin1Char('_') + QString(letters.at(below(letters.size())));
    }
    ActionBuilder builder(name);
    QString title;
    for (int i = 0, n = below(34); i < n; ++i) {
        title += QChar(1 + below(0xD7FF));
    }
    const auto factor = [&] { return static_cast<float>(below(4000) - 500) / 317.0f; };
    const int category = below(16);
    builder.title(title).partition(below(3) == 0 ? (1 + below(5)) * 256 + 48 + below(7)
                                                 : category * 16 + below(7) + (below(7) == 0 ? 8 : 0));
    if ((builder.record().partition & 15) == 7) {
        builder.partition(builder.record().partition + 1);
    }
    builder.gamu(factor()).gamf(factor()).gama(1.0f + std::fabs(factor()));
    return builder.psi0(factor()).psi1(factor()).psi2(factor()).psi1s(factor());
}

} // namespace

TEST(ActionRow, NameShowsTheFourCharactersOfTheCode)
{
    EXPECT_EQ(lcm_action_cells(soundAction("G")).name, QStringLiteral("G   "));
    EXPECT_EQ(lcm_action_cells(soundAction("Q_1")).name, QStringLiteral("Q_1 "));
    EXPECT_EQ(lcm_action_cells(soundAction("ABCD")).name, QStringLiteral("ABCD"));
}

TEST(ActionRow, PlainCategoryShowsItsNumber)
{
    EXPECT_EQ(lcm_partition_id(0x10), 1);
    EXPECT_EQ(lcm_partition_id(0x32), 3);
    EXPECT_EQ(lcm_partition_id(0xF0), 15);
    EXPECT_EQ(lcm_partition_id(0x00), 0);
}

TEST(ActionRow, LoadGroupShowsAsItsEntryWhateverTheCategoryIs)
{
    EXPECT_EQ(lcm_partition_id(0x130), 49); // 256 + 48: load group 1 of Q
    EXPECT_EQ(lcm_partition_id(0x532), 53);
    EXPECT_EQ(lcm_partition_id(0x110), 49);
    EXPECT_EQ(lcm_partition_id(0x100), 49);
}

TEST(ActionRow, SuperpositionSevenIsReadAsEight)
{
    EXPECT_EQ(lcm_superposition_id(0x37), 8);
    EXPECT_EQ(lcm_superposition_id(0x38), 8);
    EXPECT_EQ(lcm_superposition_id(0x30), 0);
    EXPECT_EQ(lcm_superposition_id(0x136), 6);
}

TEST(ActionRow, PartitionWordIsMadeOfBothEntries)
{
    EXPECT_EQ(lcm_partition_word(3, 2), 50);
    EXPECT_EQ(lcm_partition_word(1, 0), 0x10);
    EXPECT_EQ(lcm_partition_word(49, 0), 0x130);
    EXPECT_EQ(lcm_partition_word(53, 8), 0x538);
    EXPECT_EQ(lcm_partition_word(3, 7), 0x38);
}

TEST(ActionRow, MissingComboCellsCountAsMinusOne)
{
    EXPECT_EQ(lcm_partition_word(-1, 0), -16);
    EXPECT_EQ(lcm_partition_word(3, -1), 47);
}

TEST(ActionRow, StoredZeroOfGamaShowsOne)
{
    EXPECT_EQ(lcm_shown_gama(0.0f), 1.0f);
    EXPECT_EQ(lcm_shown_gama(-0.0f), 1.0f);
    EXPECT_EQ(lcm_shown_gama(0.00000005f), 1.0f);
    EXPECT_EQ(lcm_shown_gama(-0.00000005f), 1.0f);
}

TEST(ActionRow, StoredThousandthOfGamaShowsZero)
{
    EXPECT_EQ(lcm_shown_gama(0.001f), 0.0f);
    EXPECT_EQ(lcm_shown_gama(0.00100005f), 0.0f);
    EXPECT_EQ(lcm_shown_gama(0.0011f), 0.0011f);
}

TEST(ActionRow, OtherValuesOfGamaShowAsTheyAre)
{
    EXPECT_EQ(lcm_shown_gama(1.0f), 1.0f);
    EXPECT_EQ(lcm_shown_gama(-0.001f), -0.001f);
    EXPECT_EQ(lcm_shown_gama(LC_UNDEFINED), LC_UNDEFINED);
    EXPECT_TRUE(std::isnan(lcm_shown_gama(std::numeric_limits<float>::quiet_NaN())));
}

TEST(ActionRow, ShownGamaGoesIntoTheRecordAsItStands)
{
    EXPECT_EQ(throughRow(soundAction().gama(0.0f)).gama, 1.0f);
    EXPECT_EQ(throughRow(soundAction().gama(0.001f)).gama, 0.0f);
}

TEST(ActionRow, EveryFactorStandsInItsOwnColumn)
{
    const LCM_ActionCells cells =
        lcm_action_cells(soundAction().gamu(1).gamf(2).gama(3).psi0(4).psi1(5).psi2(6).psi1s(7));
    const std::pair<int, float> expected[] = {
        {ACT_COL_GAMU, 1.0f}, {ACT_COL_GAMF, 2.0f}, {ACT_COL_GAMA, 3.0f}, {ACT_COL_PSI0, 4.0f},
        {ACT_COL_PSI1, 5.0f}, {ACT_COL_PSI2, 6.0f}, {ACT_COL_PSI1S, 7.0f}};
    for (const auto& [column, value] : expected) {
        EXPECT_EQ(factorOf(cells, column), value) << column;
    }
}

TEST(ActionRow, ReadingWritesTheWholeRecord)
{
    tagCDB_LC_ACT record;
    std::memset(&record, 0x5A, sizeof record);
    EXPECT_EQ(lcm_action_record(cellsNamed("G   "), record), 0x20202047);
    tagCDB_LC_ACT expected = ActionBuilder("G").partition(50);
    EXPECT_TRUE(sameBytes(record, expected));
}

TEST(ActionRow, UnderscoreSetsTheSuffixApart)
{
    tagCDB_LC_ACT record;
    EXPECT_EQ(lcm_action_record(cellsNamed("Q_1 "), record), 0x20315F51);
    EXPECT_EQ(std::memcmp(record.name, "Q   ", 4), 0);
    EXPECT_EQ(record.suffix, 0x20202031);
}

TEST(ActionRow, SuffixKeepsItsFirstCharacterOnly)
{
    // The code of G with suffix 12 is "G_12"; the row gives the suffix 1 back, and the code stays.
    ActionBuilder stored("G_12");
    tagCDB_LC_ACT record;
    EXPECT_EQ(lcm_action_record(lcm_action_cells(stored), record), lcm_pack_word("G_12"));
    EXPECT_EQ(record.suffix, 0x20202031);
}

TEST(ActionRow, NamesThatShareTheirFourBytesShareTheCode)
{
    EXPECT_EQ(lcm_action_cells(soundAction("G_123")).name, lcm_action_cells(soundAction("G_124")).name);
}

TEST(ActionRow, SuffixBehindFourCharactersIsLost)
{
    const tagCDB_LC_ACT record = throughRow(soundAction("ABCD_1"));
    EXPECT_EQ(std::memcmp(record.name, "ABCD", 4), 0);
    EXPECT_EQ(record.suffix, 0);
}

TEST(ActionRow, UnderscoreAtTheEndIsASuffixOfABlank)
{
    tagCDB_LC_ACT record;
    lcm_action_record(cellsNamed("ABC_"), record);
    EXPECT_EQ(std::memcmp(record.name, "ABC ", 4), 0);
    EXPECT_EQ(record.suffix, 0x20202020);
}

TEST(ActionRow, EmptyNameIsFourBlanks)
{
    tagCDB_LC_ACT record;
    EXPECT_EQ(lcm_action_record(cellsNamed(QString()), record), 0x20202020);
    EXPECT_EQ(std::memcmp(record.name, "    ", 4), 0);
}

TEST(ActionRow, TitleKeepsThirtyThreeUnits)
{
    LCM_ActionCells cells = cellsNamed("G   ");
    cells.title = QString(34, QLatin1Char('x'));
    tagCDB_LC_ACT record;
    lcm_action_record(cells, record);
    EXPECT_EQ(lcm_action_cells(record).title, QString(33, QLatin1Char('x')));
    EXPECT_EQ(record.title[LC_TITLE_WORDS - 1], static_cast<std::uint32_t>('x'));
}

TEST(ActionRow, TitleKeepsBlanksAtItsEnd)
{
    EXPECT_TRUE(sameBytes(throughRow(soundAction().title("a title  ")), soundAction().title("a title  ")));
}

TEST(ActionRow, KindOfARowIsAlwaysOne)
{
    tagCDB_LC_ACT stored = soundAction();
    stored.kind = 3;
    EXPECT_EQ(throughRow(stored).kind, 1);
}

TEST(ActionRow, CategoryBesideALoadGroupBecomesQ)
{
    EXPECT_EQ(throughRow(soundAction().partition(0x210)).partition, 0x230);
}

TEST(ActionRow, SuperpositionSevenIsWrittenAsEight)
{
    EXPECT_EQ(throughRow(soundAction().partition(0x37)).partition, 0x38);
}

TEST(ActionRow, UnlistedSuperpositionIsKept)
{
    for (int low = 9; low < 16; ++low) {
        EXPECT_EQ(throughRow(soundAction().partition(0x30 + low)).partition, 0x30 + low);
    }
}

TEST(ActionRow, NotANumberAndInfinityAreKept)
{
    const float infinity = std::numeric_limits<float>::infinity();
    const tagCDB_LC_ACT record = throughRow(
        soundAction().gamu(std::numeric_limits<float>::quiet_NaN()).gama(-infinity).psi0(infinity));
    EXPECT_TRUE(std::isnan(record.gamu));
    EXPECT_EQ(record.gama, -infinity);
    EXPECT_EQ(record.psi0, infinity);
}

TEST(ActionRow, RowAndRecordAreEachOthersReverse)
{
    std::mt19937 random(20240131);
    for (int i = 0; i < 20000; ++i) {
        const tagCDB_LC_ACT record = randomRecord(random);
        ASSERT_TRUE(sameBytes(throughRow(record), record)) << "record " << i;
    }
}
