#include "lcdata/load_cases.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "tests/support/project_test.h"

namespace {

using mrl::test::bareLoadCase;
using mrl::test::MemoryProject;
using mrl::test::ProjectTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using LoadCases = ProjectTest;

bool sameBytes(const tagCDB_LC_CTRL& a, const tagCDB_LC_CTRL& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

TEST_F(LoadCases, AnEmptyDatabaseHasTheTwoFailureValues)
{
    std::vector<int> list{4};
    EXPECT_EQ(mrl_lc_count(db), 0);
    EXPECT_EQ(mrl_lc_getmin(db), 0);
    EXPECT_EQ(mrl_lc_getmax(db), -1);
    EXPECT_EQ(mrl_lc_list(db, list), 1);
    EXPECT_THAT(list, ElementsAre(4));
}

TEST_F(LoadCases, KeysOfOtherGroupsAreNoLoadCases)
{
    project.put(11, 5, 1);
    project.put(13, 5, 1);
    project.put(LC_KWH_ACTIONS, 5, 1);
    EXPECT_EQ(mrl_lc_count(db), 0);
    EXPECT_EQ(mrl_lc_getmin(db), 0);
    EXPECT_EQ(mrl_lc_getmax(db), -1);
}

TEST_F(LoadCases, WalksMeetEveryKindInOrder)
{
    project.putLoadCase(7, bareLoadCase());
    project.putLoadCase(999999, bareLoadCase().kind(5));
    project.putLoadCase(2, bareLoadCase().kind(-1));
    project.put(LC_KWH_CASES, 1000000, 1); // no load case of ours by its length, but a key
    std::vector<int> list{1};
    EXPECT_EQ(mrl_lc_list(db, list), 1);
    EXPECT_THAT(list, ElementsAre(1, 2, 7, 999999, 1000000));
    EXPECT_EQ(mrl_lc_count(db), 4);
    EXPECT_EQ(mrl_lc_getmin(db), 2);
    EXPECT_EQ(mrl_lc_getmax(db), 1000000);
}

TEST_F(LoadCases, WalksUpBeginBehindZero)
{
    project.putLoadCase(0, bareLoadCase());
    project.putLoadCase(-3, bareLoadCase());
    EXPECT_EQ(mrl_lc_count(db), 0);
    EXPECT_EQ(mrl_lc_getmin(db), 0);
    // The walk from the top has no such start.
    EXPECT_EQ(mrl_lc_getmax(db), 0);
}

TEST_F(LoadCases, WalksMeetSeveralRecordsUnderAKeyOnce)
{
    project.putLoadCase(3, bareLoadCase());
    project.append(LC_KWH_CASES, 3, bareLoadCase().kind(2).record());
    EXPECT_EQ(mrl_lc_count(db), 1);
}

TEST_F(LoadCases, PutAndGetKeepEveryByte)
{
    tagCDB_LC_CTRL record = bareLoadCase("Q_1").title("Wind").deadWeight(0, 0, -1.0f).factor(2.0f);
    std::fill(std::begin(record.reserved1), std::end(record.reserved1), 0x01020304);
    EXPECT_TRUE(mrl_lc_put(db, 12, record));
    tagCDB_LC_CTRL back{};
    EXPECT_TRUE(mrl_lc_get(db, 12, back));
    EXPECT_TRUE(sameBytes(record, back));
    EXPECT_EQ(project.bytes(LC_KWH_CASES, 12).size(), 188u);
    EXPECT_TRUE(mrl_lc_exists(db, 12));
}

TEST_F(LoadCases, AFailingGetZeroesTheRecord)
{
    tagCDB_LC_CTRL record = bareLoadCase("Q").title("x").factor(3.0f);
    EXPECT_FALSE(mrl_lc_get(db, 5, record));
    EXPECT_TRUE(sameBytes(record, tagCDB_LC_CTRL{}));
    EXPECT_FALSE(mrl_lc_exists(db, 5));
}

TEST_F(LoadCases, ALongerRecordIsReadCut)
{
    unsigned char longer[300];
    std::fill(std::begin(longer), std::end(longer), static_cast<unsigned char>(7));
    project.put(LC_KWH_CASES, 5, longer);
    tagCDB_LC_CTRL record{};
    EXPECT_TRUE(mrl_lc_get(db, 5, record));
    EXPECT_TRUE(mrl_lc_exists(db, 5));
    EXPECT_EQ(record.title[16], 0x07070707u);
}

TEST_F(LoadCases, AShorterRecordIsReadWithZerosBehindIt)
{
    const int words[2] = {0, 70};
    project.put(LC_KWH_CASES, 5, words);
    tagCDB_LC_CTRL record = bareLoadCase("Q").title("old");
    EXPECT_TRUE(mrl_lc_get(db, 5, record));
    EXPECT_TRUE(sameBytes(record, bareLoadCase().action(70)));
}

TEST_F(LoadCases, PutReplacesAllRecordsOfTheKey)
{
    project.putLoadCase(3, bareLoadCase());
    project.append(LC_KWH_CASES, 3, bareLoadCase().kind(2).record());
    tagCDB_LC_CTRL record = bareLoadCase("G");
    EXPECT_TRUE(mrl_lc_put(db, 3, record));
    tagCDB_LC_CTRL next{};
    int length = sizeof next;
    EXPECT_EQ(mrl_cdb_get(db, LC_KWH_CASES, 3, &next, &length, 0), CD_OK);
    length = sizeof next;
    EXPECT_EQ(mrl_cdb_get(db, LC_KWH_CASES, 3, &next, &length, 1), CD_END);
}

TEST_F(LoadCases, RemoveReportsWhetherThereWasOne)
{
    project.putLoadCase(3, bareLoadCase());
    EXPECT_TRUE(mrl_lc_remove(db, 3));
    EXPECT_FALSE(mrl_lc_exists(db, 3));
    EXPECT_FALSE(mrl_lc_remove(db, 3));
}

TEST_F(LoadCases, NothingIsFoundInADatabaseThatIsNotOpen)
{
    std::vector<int> list;
    tagCDB_LC_CTRL record = bareLoadCase("G");
    EXPECT_EQ(mrl_lc_count(-1), 0);
    EXPECT_EQ(mrl_lc_list(4711, list), 1);
    EXPECT_THAT(list, IsEmpty());
    EXPECT_EQ(mrl_lc_getmin(-1), 0);
    EXPECT_EQ(mrl_lc_getmax(-1), -1);
    EXPECT_FALSE(mrl_lc_put(-1, 1, record));
    EXPECT_FALSE(mrl_lc_get(-1, 1, record));
    EXPECT_FALSE(mrl_lc_remove(-1, 1));
    EXPECT_EQ(mrl_lc_current(-1), 0);
}

TEST_F(LoadCases, DatabasesDoNotMix)
{
    other.putLoadCase(1, bareLoadCase("G"));
    project.putLoadCase(2, bareLoadCase("Q"));
    EXPECT_EQ(mrl_lc_getmax(db), 2);
    EXPECT_EQ(mrl_lc_getmax(other.db()), 1);
    EXPECT_FALSE(mrl_lc_exists(db, 1));
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(LoadCases, DeadWeightIsAnyComponentThatIsNotZero)
{
    EXPECT_FALSE(mrl_lc_hasdeadloadfactor(bareLoadCase().factor(1.0f)));
    EXPECT_TRUE(mrl_lc_hasdeadloadfactor(bareLoadCase().deadWeight(0.5f, 0, 0)));
    EXPECT_TRUE(mrl_lc_hasdeadloadfactor(bareLoadCase().deadWeight(0, -0.5f, 0)));
    EXPECT_TRUE(mrl_lc_hasdeadloadfactor(bareLoadCase().deadWeight(0, 0, 0.001f)));
    EXPECT_FALSE(mrl_lc_hasdeadloadfactor(bareLoadCase().deadWeight(-0.0f, 0, 0)));
    project.putLoadCase(2, bareLoadCase().deadWeight(0, 0, -1.0f));
    EXPECT_TRUE(mrl_lc_hasdeadloadfactor(db, 2));
    EXPECT_FALSE(mrl_lc_hasdeadloadfactor(db, 3));
}

TEST_F(LoadCases, TheNameIsTheTitle)
{
    project.putLoadCase(2, bareLoadCase().title("Snow"));
    EXPECT_EQ(mrl_lc_get_name(db, 2), "Snow");
    EXPECT_EQ(mrl_lc_get_name(bareLoadCase().title("Wind")), "Wind");
    EXPECT_EQ(mrl_lc_get_name(db, 3), "");
}

TEST_F(LoadCases, ATitleWithoutClosingZeroComesBackWhole)
{
    tagCDB_LC_CTRL record = bareLoadCase();
    for (std::uint32_t& word : record.title) {
        word = 0x00620061u; // "ab"
    }
    EXPECT_EQ(mrl_lc_get_name(record), QString("ab").repeated(17));
}

using CurrentLoadCase = ProjectTest;

struct CurrentRecord
{
    int kind, number, third;
};

TEST_F(CurrentLoadCase, IsZeroWithoutARecord) { EXPECT_EQ(mrl_lc_current(db), 0); }

TEST_F(CurrentLoadCase, IsWrittenAndRead)
{
    mrl_lc_set_current(db, 12);
    EXPECT_EQ(mrl_lc_current(db), 12);
    const auto record = project.read<CurrentRecord>(0, 97);
    EXPECT_EQ(record.kind, 0);
    EXPECT_EQ(record.third, 0);
    EXPECT_EQ(project.bytes(0, 97).size(), 12u);
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(CurrentLoadCase, SettingTheSameNumberWritesNothing)
{
    mrl_lc_set_current(db, 12);
    // A second record of the key would not survive a put at position 0.
    project.append(0, 97, CurrentRecord{5, 5, 5});
    const auto before = project.fingerprint();
    mrl_lc_set_current(db, 12);
    EXPECT_EQ(project.fingerprint(), before);
}

TEST_F(CurrentLoadCase, AChangeCarriesTheThirdWordAndLaterRecordsAlong)
{
    project.put(0, 97, CurrentRecord{0, 3, 77});
    project.append(0, 97, CurrentRecord{5, 6, 7});
    mrl_lc_set_current(db, 4);
    EXPECT_EQ(project.read<CurrentRecord>(0, 97).number, 4);
    EXPECT_EQ(project.read<CurrentRecord>(0, 97).third, 77);
    CurrentRecord next{};
    int length = sizeof next;
    EXPECT_EQ(mrl_cdb_get(db, 0, 97, &next, &length, 0), CD_OK);
    length = sizeof next;
    EXPECT_EQ(mrl_cdb_get(db, 0, 97, &next, &length, 1), CD_OK);
    EXPECT_EQ(next.third, 7);
}

TEST_F(CurrentLoadCase, ARecordOfAnotherKindCountsAsAbsentAndIsReplacedWhole)
{
    project.put(0, 97, CurrentRecord{3, 8, 77});
    EXPECT_EQ(mrl_lc_current(db), 0);
    mrl_lc_set_current(db, 8);
    const auto record = project.read<CurrentRecord>(0, 97);
    EXPECT_EQ(record.kind, 0);
    EXPECT_EQ(record.number, 8);
    EXPECT_EQ(record.third, 0);
}

TEST_F(CurrentLoadCase, ALongerRecordIsReadToo)
{
    const int longer[5] = {0, 9, 1, 2, 3};
    project.put(0, 97, longer);
    EXPECT_EQ(mrl_lc_current(db), 9);
}

} // namespace
