#include "rules/load_case_numbers.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>
#include <random>

#include "tests/support/action_builder.h"
#include "tests/support/bytes.h"
#include "tests/support/load_case_builder.h"

namespace {

using namespace mrl::test;

TEST(NextNumber, EmptyTableBeginsAtOneWhateverIsUsed)
{
    EXPECT_EQ(lcm_next_number({}, std::nullopt, {}), 1);
    EXPECT_EQ(lcm_next_number({}, std::nullopt, {1, 2}), 1);
}

TEST(NextNumber, WithoutSelectionFollowsTheHighestRow)
{
    EXPECT_EQ(lcm_next_number({5, 2, 3}, std::nullopt, {}), 6);
    EXPECT_EQ(lcm_next_number({5, 2, 3}, std::nullopt, {6, 7, 9}), 8);
    EXPECT_EQ(lcm_next_number({-4}, std::nullopt, {}), 1); // from 1 on, and 1 is free
}

TEST(NextNumber, WithSelectionFillsTheGapBehindIt)
{
    EXPECT_EQ(lcm_next_number({1, 2, 5}, 1, {}), 3);
    EXPECT_EQ(lcm_next_number({1, 2, 5}, 2, {3}), 4);
    EXPECT_EQ(lcm_next_number({1, 2, 5}, 5, {3}), 6);
}

TEST(NextNumber, PassesTheHighestNumberSinceTheCallerRefusesIt)
{
    EXPECT_EQ(lcm_next_number({999999}, std::nullopt, {}), 1000000);
    EXPECT_EQ(lcm_next_number({std::numeric_limits<int>::max()}, std::nullopt, {}),
              std::numeric_limits<int>::max());
}

/// The walk as it is told: over all rows again for each taken number.
int walked(const std::vector<int>& rows, std::optional<int> selected, const std::set<int>& used)
{
    int n = 1;
    for (const int row : rows) {
        n = std::max(n, row);
    }
    n = selected.value_or(n);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i] == n || used.count(n)) {
            ++n;
            i = static_cast<std::size_t>(-1);
        }
    }
    return n;
}

TEST(NextNumber, AgreesWithTheWalkOverRandomTables)
{
    std::mt19937 random(17);
    for (int round = 0; round < 500; ++round) {
        std::vector<int> rows(random() % 12);
        std::set<int> used;
        for (int& row : rows) {
            row = 1 + static_cast<int>(random() % 20);
        }
        for (auto i = random() % 12; i > 0; --i) {
            used.insert(1 + static_cast<int>(random() % 25));
        }
        std::optional<int> selected;
        if (!rows.empty() && random() % 2) {
            selected = rows[random() % rows.size()];
        }
        ASSERT_EQ(lcm_next_number(rows, selected, used), walked(rows, selected, used));
    }
}

TEST(FreeNumbers, GrowWithTheRowsThatTheyBrought)
{
    const std::set<int> four{4};
    LCM_FreeNumbers behindTwo({1, 2, 5}, 2, four);
    std::vector<int> made;
    for (int i = 0; i < 3; ++i) {
        made.push_back(behindTwo.next());
        behindTwo.take(made.back());
    }
    EXPECT_THAT(made, testing::ElementsAre(3, 6, 7));

    const std::set<int> oneAndTwo{1, 2};
    LCM_FreeNumbers fresh({}, std::nullopt, oneAndTwo);
    EXPECT_EQ(fresh.next(), 1);
    fresh.take(1);
    EXPECT_EQ(fresh.next(), 3);
}

TEST(FreeNumbers, WithoutSelectionFollowANumberThatTheUserChose)
{
    const std::set<int> none;
    LCM_FreeNumbers numbers({1, 2}, std::nullopt, none);
    EXPECT_EQ(numbers.next(), 3);
    numbers.take(10);
    EXPECT_EQ(numbers.next(), 11);
}

TEST(FreeNumbers, WithSelectionGoOnBehindItWhateverTheUserChose)
{
    const std::set<int> none;
    LCM_FreeNumbers numbers({1, 2}, 1, none);
    numbers.take(10);
    EXPECT_EQ(numbers.next(), 3);
}

TEST(ProposedTarget, IsTheTargetOrTheNextFreeNumberAboveIt)
{
    EXPECT_EQ(lcm_proposed_target(4, {}), 4);
    EXPECT_EQ(lcm_proposed_target(4, {3, 5}), 4);
    EXPECT_EQ(lcm_proposed_target(4, {4, 5, 7}), 6);
}

TEST(ProposedTarget, StaysTakenWhereNothingBelowTheHighestNumberIsFree)
{
    EXPECT_EQ(lcm_proposed_target(999999, {999999}), 999999);
    EXPECT_EQ(lcm_proposed_target(999998, {999998}), 999998); // 999999 itself is not searched
}

TEST(DefaultAction, FirstLoadCaseIsDeadSecondLiveLaterOnesKeepTheirs)
{
    EXPECT_EQ(lcm_default_action_of_new(0), LCM_DefaultAction::Dead);
    EXPECT_EQ(lcm_default_action_of_new(1), LCM_DefaultAction::Live);
    EXPECT_EQ(lcm_default_action_of_new(2), LCM_DefaultAction::Keep);
}

TEST(DefaultAction, BindsTheRecordToIt)
{
    tagCDB_LC_CTRL record = standalone();
    lcm_bind_default_action(bareAction("Q"), true, record);
    EXPECT_TRUE(sameBytes(record, following(codeOf("Q"))));
}

TEST(DefaultAction, ThatTheProjectLacksLeavesNone)
{
    tagCDB_LC_CTRL record = following(codeOf("Q"));
    lcm_bind_default_action(bareAction("Q").factors(1.5f), false, record);
    EXPECT_TRUE(sameBytes(record, standalone()));
}

} // namespace
