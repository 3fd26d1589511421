#include <gmock/gmock.h>

#include "report/assignment.h"

using namespace mrl::report;
using testing::ElementsAre;

namespace {

using Positions = mrl::report::Run; // a fixture has a Run of its own

} // namespace

TEST(Assignment, NeighboursMakeARun)
{
    EXPECT_THAT(runsOf({0, 1, 2, 5, 7, 8}), ElementsAre(Positions{0, 2}, Positions{5, 5}, Positions{7, 8}));
    EXPECT_TRUE(runsOf({}).empty());
}

TEST(Assignment, RangesTellTheNumbersOfTheEnds)
{
    const std::vector<int> numbers{1, 2, 3, 40, 57, 60, 61};
    EXPECT_EQ(rangesText(numbers, {{0, 3}, {4, 4}, {5, 6}}, 99), QStringLiteral("1–40, 57, 60, 61"));
    EXPECT_EQ(rangesText(numbers, {}, 99), QString());
}

TEST(Assignment, TooManyRangesTellHowManyLoadCasesFollow)
{
    const std::vector<int> numbers{1, 2, 3, 4, 5, 6, 7, 9};
    EXPECT_EQ(rangesText(numbers, {{0, 0}, {2, 2}, {4, 5}, {7, 7}}, 6),
              QStringLiteral("1, 3, ... and 3 more up to 9"));
}

TEST(Assignment, RunsThatFallIntoOnePlaceAreDrawnOnce)
{
    EXPECT_THAT(thinned({{0, 0}, {2, 2}}, 4, 10), ElementsAre(Positions{0, 0}, Positions{2, 2}));
    // Places of ten load cases each: 0 and 12 are in neighbouring ones, 55 is alone.
    EXPECT_THAT(thinned({{0, 0}, {5, 5}, {12, 12}, {55, 55}}, 100, 10),
                ElementsAre(Positions{0, 1}, Positions{5, 5}));
}

TEST(Assignment, NoLoadCaseIsThinnedAway)
{
    for (std::size_t at = 0; at < 1000; ++at) {
        const auto drawn = thinned({{at, at}}, 1000, 7);
        ASSERT_EQ(drawn.size(), 1u);
        EXPECT_EQ(drawn[0].first, at * 7 / 1000);
        EXPECT_LT(drawn[0].last, 7u);
    }
}
