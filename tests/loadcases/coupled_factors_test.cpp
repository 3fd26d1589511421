// Pairs of factors that share a field of the record: of each either both follow the action or none.

#include <gmock/gmock.h>

#include "lcdata/values/packing.h"
#include "tests/loadcases/load_cases_fixture.h"

namespace {

using namespace mrl::test;

struct Pair
{
    int edited;
    int mate;
    float ofAction; ///< the mate's factor of Q
};

class CoupledFactors : public testing::TestWithParam<Pair>
{
  protected:
    CoupledFactors()
    {
        project.putAction(variable());
        tagCDB_LC_CTRL own = standalone();
        own.gamu = lcm_pack_pair(1.2f, 1.1f);
        own.psi1 = lcm_pack_pair(0.4f, 0.6f);
        project.putLoadCase(OWN, own);
        project.putLoadCase(LIVE, following("Q"));
    }
    static constexpr int OWN = 1;
    static constexpr int LIVE = 2;
    LoadCaseProject project;
};

TEST_P(CoupledFactors, MateGoesUndefinedWithTheEditedOneAndStaysEditable)
{
    const Tabs tabs(project);
    tabs.enter(OWN, GetParam().edited, LC_UNDEFINED);
    EXPECT_EQ(tabs.value(OWN, GetParam().mate), LC_UNDEFINED);
    EXPECT_TRUE(tabs.lc->isItemFromAction(tabs.row(OWN), GetParam().edited));
    EXPECT_TRUE(tabs.lc->isItemFromAction(tabs.row(OWN), GetParam().mate));
    EXPECT_TRUE(tabs.isEditable(OWN, GetParam().mate));
}

TEST_P(CoupledFactors, FollowingOneLeavesItsMateAloneWhenItStillFollows)
{
    const Tabs tabs(project);
    tabs.lc->setItemVal(tabs.row(OWN), GetParam().edited, LC_UNDEFINED, true);
    const float before = tabs.value(OWN, GetParam().mate);
    tabs.lc->updateCoupledItem(tabs.row(OWN), GetParam().edited); // it followed before
    EXPECT_EQ(tabs.value(OWN, GetParam().mate), before);
}

TEST_P(CoupledFactors, MateTakesTheActionsNumberWhenTheEditedOneLeavesTheAction)
{
    const Tabs tabs(project);
    const int row = tabs.row(LIVE);
    tabs.lc->setItemVal(row, GetParam().edited, LC_UNDEFINED, true);
    tabs.lc->setItemVal(row, GetParam().mate, LC_UNDEFINED, true);
    tabs.enter(LIVE, GetParam().edited, 0.75f);
    EXPECT_EQ(tabs.value(LIVE, GetParam().edited), 0.75f);
    EXPECT_EQ(tabs.value(LIVE, GetParam().mate), GetParam().ofAction);
    EXPECT_FALSE(tabs.lc->isItemFromAction(row, GetParam().edited));
    EXPECT_FALSE(tabs.lc->isItemFromAction(row, GetParam().mate));
    EXPECT_FALSE(tabs.isEditable(LIVE, GetParam().mate)) << "the row still has its action";
}

TEST_P(CoupledFactors, MateKeepsItsNumberWhenTheEditedOneHadOne)
{
    const Tabs tabs(project);
    const int row = tabs.row(LIVE);
    tabs.lc->setItemVal(row, GetParam().edited, 0.5f, true);
    tabs.lc->setItemVal(row, GetParam().mate, 0.25f, true);
    tabs.enter(LIVE, GetParam().edited, 0.75f);
    EXPECT_EQ(tabs.value(LIVE, GetParam().mate), 0.25f);
}

TEST_P(CoupledFactors, NumberWithoutAnActionsTabLeavesTheMateUndefined)
{
    const Tabs tabs(project, Tabs::LoadcasesAlone);
    const int row = tabs.row(LIVE);
    tabs.lc->setItemVal(row, GetParam().edited, LC_UNDEFINED, true);
    tabs.lc->setItemVal(row, GetParam().mate, LC_UNDEFINED, true);
    tabs.enter(LIVE, GetParam().edited, 0.75f);
    EXPECT_EQ(tabs.value(LIVE, GetParam().mate), LC_UNDEFINED);
    EXPECT_FALSE(tabs.lc->isItemFromAction(row, GetParam().edited));
}

INSTANTIATE_TEST_SUITE_P(Pairs, CoupledFactors,
                         testing::Values(Pair{LC_COL_GAMU, LC_COL_GAMA, 1.0f},
                                         Pair{LC_COL_GAMA, LC_COL_GAMU, 1.5f},
                                         Pair{LC_COL_PSI1, LC_COL_PSI1S, 0.9f},
                                         Pair{LC_COL_PSI1S, LC_COL_PSI1, 0.5f}));

class SingleFactor : public testing::TestWithParam<int>
{
};

TEST_P(SingleFactor, TakesNoOtherAlong)
{
    const LoadCaseProject project;
    project.putLoadCase(1, standalone());
    const Tabs tabs(project);
    tabs.enter(1, GetParam(), LC_UNDEFINED);
    EXPECT_TRUE(tabs.lc->isItemFromAction(tabs.row(1), GetParam()));
    for (int column = LC_COL_GAMU; column <= LC_COL_PSI1S; ++column) {
        EXPECT_EQ(tabs.value(1, column) == LC_UNDEFINED, column == GetParam()) << column;
    }
    tabs.enter(1, GetParam(), 0.5f);
    EXPECT_FALSE(tabs.lc->isItemFromAction(tabs.row(1), GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Columns, SingleFactor, testing::Values(LC_COL_GAMF, LC_COL_PSI0, LC_COL_PSI2));

TEST(CoupledFactor, MateWithoutAColumnIsNobodys)
{
    const LoadCaseProject project(withoutLines(LOAD_CASE_CODE, "Gama"));
    tagCDB_LC_CTRL record = standalone();
    record.gamu = 1.35f;
    project.putLoadCase(1, record);
    const Tabs tabs(project);
    EXPECT_EQ(bits(tabs.read(1).record.gamu), bits(1.35f));
    tabs.enter(1, LC_COL_GAMU, 1.4506f);
    EXPECT_EQ(bits(tabs.read(1).record.gamu), bits(1.451f));
    tabs.enter(1, LC_COL_GAMU, LC_UNDEFINED);
    EXPECT_EQ(bits(tabs.read(1).record.gamu), bits(LC_UNDEFINED));
}

} // namespace
