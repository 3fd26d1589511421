#include "cdb/fixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Keys = MemoryProject;

TEST_F(Keys, StepUpCrossesGroupsInSignedOrder)
{
    for (const auto& key : std::vector<std::pair<int, int>>{
             {12, 5}, {-3, 9}, {12, -7}, {INT_MIN, INT_MAX}, {0, 97}, {INT_MAX, INT_MIN}}) {
        putText(db, key.first, key.second, "x");
    }
    std::vector<std::pair<int, int>> seen;
    int kwh = INT_MIN;
    int kwl = INT_MIN;
    while (mrl_cdb_kenq_ex(db, &kwh, &kwl, 1) == 0) {
        seen.emplace_back(kwh, kwl);
    }
    EXPECT_THAT(seen, ElementsAre(std::pair(INT_MIN, INT_MAX), std::pair(-3, 9), std::pair(0, 97),
                                  std::pair(12, -7), std::pair(12, 5), std::pair(INT_MAX, INT_MIN)));
}

TEST_F(Keys, StepDownGivesTheSameKeysBackward)
{
    for (const int kwl : {3, 1, 2, -1}) {
        putText(db, 12, kwl, "x");
    }
    putText(db, 11, 8, "x");
    std::vector<std::pair<int, int>> seen;
    int kwh = 13;
    int kwl = 0;
    while (mrl_cdb_kenq_ex(db, &kwh, &kwl, -1) == 0) {
        seen.emplace_back(kwh, kwl);
    }
    EXPECT_THAT(seen, ElementsAre(std::pair(12, 3), std::pair(12, 2), std::pair(12, 1), std::pair(12, -1),
                                  std::pair(11, 8)));
}

TEST_F(Keys, StepIsStrictlyBeyondTheGivenKey)
{
    putText(db, 12, 0, "x");
    putText(db, 12, 4, "x");
    EXPECT_THAT(walkUp(db, 12, 0), ElementsAre(4));
}

TEST_F(Keys, BeyondTheLastKeyTheGroupIsExtremeAndNoNeighbourOfTheStart)
{
    putText(db, 12, 1, "x");
    int kwh = 12;
    int kwl = 1;
    EXPECT_EQ(mrl_cdb_kenq_ex(db, &kwh, &kwl, 1), 1);
    EXPECT_EQ(kwh, INT_MAX);
    kwh = 12;
    kwl = 1;
    EXPECT_EQ(mrl_cdb_kenq_ex(db, &kwh, &kwl, -1), 1);
    EXPECT_EQ(kwh, INT_MIN);
}

TEST_F(Keys, SearchFromTheTopFindsNothingInAnEmptyGroup)
{
    // From (13, 0) downward, as the search for the greatest load case does.
    int kwh = 13;
    int kwl = 0;
    mrl_cdb_kenq_ex(db, &kwh, &kwl, -1);
    EXPECT_NE(kwh, 12);
}

TEST_F(Keys, WalkOverTheOutermostGroupEnds)
{
    putText(db, INT_MAX, 1, "x");
    putText(db, INT_MAX, 2, "x");
    EXPECT_THAT(walkUp(db, INT_MAX, 0), ElementsAre(1, 2));
    putText(db, INT_MIN, 1, "x");
    int kwh = INT_MIN;
    int kwl = 1;
    mrl_cdb_kenq_ex(db, &kwh, &kwl, -1);
    EXPECT_NE(kwh, INT_MIN);
}

TEST_F(Keys, CodesAndNumbersOfOneGroupStandInSignedOrder)
{
    for (const int kwl : {0x20202051, 0x20202020, 0x2020201F, 7, -1}) {
        putText(db, 14, kwl, "x");
    }
    EXPECT_THAT(walkUp(db, 14, INT_MIN), ElementsAre(-1, 7, 0x2020201F, 0x20202020, 0x20202051));
    EXPECT_THAT(walkUp(db, 14, 0x20202020), ElementsAre(0x20202051));
}

TEST_F(Keys, KeyWithSeveralRecordsIsOneStep)
{
    for (int i = 0; i < 20; ++i) {
        ASSERT_TRUE(appendText(db, 12, 3, "r" + std::to_string(i)));
    }
    putText(db, 12, 4, "x");
    EXPECT_THAT(walkUp(db, 12, 0), ElementsAre(3, 4));
    int kwh = 12;
    int kwl = 4;
    mrl_cdb_kenq_ex(db, &kwh, &kwl, -1);
    EXPECT_EQ(kwl, 3);
    mrl_cdb_kenq_ex(db, &kwh, &kwl, -1);
    EXPECT_EQ(kwh, INT_MIN);
}

TEST_F(Keys, LongWalkMeetsEveryKeyOnce)
{
    std::vector<int> expected;
    for (int i = 1; i <= 3000; ++i) {
        expected.push_back(i * 3);
        putText(db, 12, i * 3, "x");
    }
    EXPECT_EQ(walkUp(db, 12, 0), expected);
}

TEST_F(Keys, WalkThatReadsMeetsEveryRecord)
{
    for (int i = 1; i <= 3000; ++i) {
        putText(db, 12, i, "r" + std::to_string(i));
    }
    int kwh = 12;
    int kwl = 0;
    int expected = 1;
    for (mrl_cdb_kenq_ex(db, &kwh, &kwl, 1); kwh == 12; mrl_cdb_kenq_ex(db, &kwh, &kwl, 1), ++expected) {
        ASSERT_EQ(getText(db, kwh, kwl), "r" + std::to_string(expected));
    }
    EXPECT_EQ(expected, 3001);
}

TEST_F(Keys, WalkThatTurnsRoundFollows)
{
    for (int i = 1; i <= 100; ++i) {
        putText(db, 12, i, "x");
    }
    int kwh = 12;
    int kwl = 0;
    for (int i = 0; i < 50; ++i) {
        mrl_cdb_kenq_ex(db, &kwh, &kwl, 1);
    }
    EXPECT_EQ(kwl, 50);
    mrl_cdb_kenq_ex(db, &kwh, &kwl, -1);
    EXPECT_EQ(kwl, 49);
    mrl_cdb_kenq_ex(db, &kwh, &kwl, 1);
    EXPECT_EQ(kwl, 50);
}

TEST_F(Keys, DeletingTheCurrentKeyDoesNotDisturbTheNextStep)
{
    for (int i = 1; i <= 1000; ++i) {
        putText(db, 12, i, "x");
    }
    int kwh = 12;
    int kwl = 0;
    int expected = 1;
    for (mrl_cdb_kenq_ex(db, &kwh, &kwl, 1); kwh == 12; mrl_cdb_kenq_ex(db, &kwh, &kwl, 1)) {
        ASSERT_EQ(kwl, expected++);
        ASSERT_EQ(mrl_cdb_del(db, kwh, kwl), CD_OK);
        ASSERT_EQ(getText(db, kwh, kwl), "<3>");
    }
    EXPECT_EQ(expected, 1001);
    EXPECT_THAT(walkUp(db, 12, 0), IsEmpty());
}

TEST_F(Keys, DeletingTheCurrentKeyInATransactionDoesNotDisturbTheNextStep)
{
    for (int i = 1; i <= 1000; ++i) {
        putText(db, 12, i, "x");
    }
    mrl::cdb::Transaction transaction(db);
    int kwh = 12;
    int kwl = 0;
    int expected = 1;
    for (mrl_cdb_kenq_ex(db, &kwh, &kwl, 1); kwh == 12; mrl_cdb_kenq_ex(db, &kwh, &kwl, 1)) {
        ASSERT_EQ(kwl, expected++);
        ASSERT_EQ(getText(db, kwh, kwl), "x");
        ASSERT_EQ(mrl_cdb_del(db, kwh, kwl), CD_OK);
        ASSERT_EQ(getText(db, kwh, kwl), "<3>");
    }
    EXPECT_EQ(expected, 1001);
    ASSERT_TRUE(transaction.commit());
    EXPECT_THAT(walkUp(db, 12, 0), IsEmpty());
}

TEST_F(Keys, OwnWriteAheadOfTheWalkIsMet)
{
    for (const int transaction : {0, 1}) {
        std::unique_ptr<mrl::cdb::Transaction> open;
        if (transaction == 1) {
            open = std::make_unique<mrl::cdb::Transaction>(db);
        }
        for (int i = 1; i <= 100; ++i) {
            putText(db, 12, i * 2, "old");
        }
        int kwh = 12;
        int kwl = 0;
        for (int i = 0; i < 20; ++i) {
            mrl_cdb_kenq_ex(db, &kwh, &kwl, 1);
            ASSERT_EQ(getText(db, kwh, kwl), "old");
        }
        ASSERT_EQ(kwl, 40);
        putText(db, 12, 41, "new");
        putText(db, 12, 42, "changed");
        mrl_cdb_del(db, 12, 44);
        mrl_cdb_kenq_ex(db, &kwh, &kwl, 1);
        EXPECT_EQ(kwl, 41);
        EXPECT_EQ(getText(db, kwh, kwl), "new");
        mrl_cdb_kenq_ex(db, &kwh, &kwl, 1);
        EXPECT_EQ(getText(db, kwh, kwl), "changed");
        mrl_cdb_kenq_ex(db, &kwh, &kwl, 1);
        EXPECT_EQ(kwl, 46);
        mrl_cdb_del(db, 12, 41);
    }
}

TEST_F(Keys, OwnWriteToTheCurrentKeyIsReadBack)
{
    for (int i = 1; i <= 50; ++i) {
        putText(db, 12, i, "old");
    }
    mrl::cdb::Transaction transaction(db);
    int kwh = 12;
    int kwl = 0;
    for (mrl_cdb_kenq_ex(db, &kwh, &kwl, 1); kwh == 12; mrl_cdb_kenq_ex(db, &kwh, &kwl, 1)) {
        ASSERT_EQ(getText(db, kwh, kwl), "old");
        ASSERT_EQ(putText(db, kwh, kwl, "new"), CD_OK);
        ASSERT_EQ(getText(db, kwh, kwl), "new");
    }
}

TEST_F(Keys, KeyAddedBehindAFinishedWalkIsFoundByTheNextStep)
{
    putText(db, 12, 1, "x");
    EXPECT_THAT(walkUp(db, 12, 0), ElementsAre(1));
    putText(db, 12, 2, "x");
    int kwh = 12;
    int kwl = 1;
    mrl_cdb_kenq_ex(db, &kwh, &kwl, 1);
    EXPECT_EQ(kwl, 2);
}

TEST_F(Keys, TwoWalksAtOnceDoNotDisturbEachOther)
{
    for (int i = 1; i <= 200; ++i) {
        putText(db, 12, i, "a" + std::to_string(i));
        putText(db, 14, i, "b" + std::to_string(i));
    }
    int kwhA = 12;
    int kwlA = 0;
    int kwhB = 14;
    int kwlB = 0;
    for (int i = 1; i <= 200; ++i) {
        mrl_cdb_kenq_ex(db, &kwhA, &kwlA, 1);
        mrl_cdb_kenq_ex(db, &kwhB, &kwlB, 1);
        ASSERT_EQ(getText(db, kwhA, kwlA), "a" + std::to_string(i));
        ASSERT_EQ(getText(db, kwhB, kwlB), "b" + std::to_string(i));
    }
}

TEST_F(Keys, ListOfAGroupKnowsNumbersAbove999AndForeignOnes)
{
    for (const int kwl : {1500, 3, -4, 0}) {
        putText(db, 12, kwl, "x");
    }
    putText(db, 13, 8, "x");
    ASSERT_TRUE(appendText(db, 12, 3, "y"));
    std::list<int> numbers{77};
    mrl::dbo::getKwls(db, 12, 0, 999, &numbers, nullptr);
    EXPECT_THAT(numbers, ElementsAre(77, -4, 0, 3, 1500));
}

TEST_F(Keys, EnumerationOfARangeHasBothEnds)
{
    for (int i = 1; i <= 9; ++i) {
        putText(db, 12, i, "x");
    }
    std::vector<mrl::cdb::Key> found;
    ASSERT_TRUE(mrl::cdb::keys(db, {12, 3, 5}, found));
    EXPECT_THAT(found, ElementsAre(mrl::cdb::Key{12, 3}, mrl::cdb::Key{12, 4}, mrl::cdb::Key{12, 5}));
    found.clear();
    putText(db, 9, 9, "x");
    ASSERT_TRUE(mrl::cdb::keys(db, found));
    EXPECT_EQ(found.size(), 10u);
    EXPECT_EQ(found.front(), (mrl::cdb::Key{9, 9}));
}

} // namespace
