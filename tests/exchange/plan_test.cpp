#include "exchange/apply_plan.h"

#include "tests/exchange/exchange_fixture.h"
#include "tests/support/project_test.h"

using namespace mrl::test;
using mrl::exchange::Outcome;
using mrl::exchange::Plan;
using mrl::exchange::PlannedRow;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class ImportPlan : public ProjectTest
{
  protected:
    ImportPlan()
    {
        project.putAction(soundAction("G").partition(0x10));
        project.putAction(soundAction("Q"));
        project.putLoadCase(1, following("G").title("Dead").deadWeight(0, 0, -1));
        project.putLoadCase(2, following("Q").title("Live"));
    }
    Plan planOf(const std::string& csv) const
    {
        return mrl::exchange::planOf(mrl::exchange::stateOf(db), readAs("csv", csv).tables);
    }
    /// The only row of a plan.
    PlannedRow rowOf(const std::string& csv) const
    {
        Plan plan = planOf(csv);
        return std::move(plan.rows.at(0));
    }
    std::string refusalOf(const std::string& csv) const
    {
        const PlannedRow row = rowOf(csv);
        return row.outcome == Outcome::Refused ? row.reasons.at(0).rule : "taken";
    }
};

std::vector<std::string> changesOf(const PlannedRow& row)
{
    std::vector<std::string> changes;
    for (const auto& change : row.changes()) {
        changes.push_back(std::string(change.column->name) + ": " + change.before + " -> " + change.after);
    }
    return changes;
}

TEST_F(ImportPlan, TheProjectsOwnTableChangesNothing)
{
    for (const Sheet sheet : {Sheet::Actions, Sheet::LoadCases}) {
        const Plan plan = planOf(written("csv", db, {sheet}));
        EXPECT_EQ(plan.count(Outcome::Unchanged), 2);
        EXPECT_EQ(plan.rows.size(), 2u);
    }
}

TEST_F(ImportPlan, TellsOldAndNewValueOfWhatChanges)
{
    const PlannedRow row = rowOf("number,title,DLZ\n1,Roof,-0.5\n");
    EXPECT_EQ(row.outcome, Outcome::Changed);
    EXPECT_THAT(changesOf(row), ElementsAre("title: Dead -> Roof", "DLZ: -1 -> -0.5"));
    EXPECT_EQ(row.loadCase.action, codeOf("G"));
}

TEST_F(ImportPlan, NewLoadCaseFollowsItsActionAsOneOfTheDialogDoes)
{
    const PlannedRow row = rowOf("number,title,action\n7,Snow,q\n");
    EXPECT_EQ(row.outcome, Outcome::Added);
    const tagCDB_LC_CTRL expected = following("Q").title("Snow");
    EXPECT_EQ(std::memcmp(&row.loadCase, &expected, sizeof expected), 0);
}

TEST_F(ImportPlan, ChangedActionIsFollowedInAllFactors)
{
    const PlannedRow row = rowOf("number,action\n1,Q\n");
    EXPECT_THAT(changesOf(row), ElementsAre("action: G -> Q"));
    EXPECT_EQ(row.loadCase.gamu, LC_UNDEFINED);
    EXPECT_EQ(row.loadCase.dlz, -1.0f);
}

TEST_F(ImportPlan, EmptyFactorFollowsTheAction)
{
    project.putLoadCase(3, following("Q").factors(0.25f));
    const PlannedRow row = rowOf("number,Gamf\n3,\n");
    EXPECT_THAT(changesOf(row), ElementsAre("Gamf: 0.25 -> "));
    EXPECT_EQ(row.loadCase.gamf, LC_UNDEFINED);
    EXPECT_EQ(row.loadCase.psi0, 0.25f);
}

TEST_F(ImportPlan, OneOfAPairTakesTheOtherOneOfTheAction)
{
    const PlannedRow row = rowOf("number,action,Gamu\n5,Q,1.2\n");
    EXPECT_THAT(englishOf(row.notes), ElementsAre(HasSubstr("\"Gama\" takes the value of the action")));
    EXPECT_THAT(changesOf(row), testing::IsSupersetOf({"Gamu:  -> 1.2", "Gama:  -> 1"}));
}

TEST_F(ImportPlan, TitleThatIsTooLongIsCutAndTold)
{
    const PlannedRow row = rowOf("number,title\n1," + std::string(33, 'x') + "yz\n");
    EXPECT_EQ(row.outcome, Outcome::Changed);
    EXPECT_THAT(englishOf(row.notes), ElementsAre("the title loses \"yz\""));
}

TEST_F(ImportPlan, WhatTheDialogWouldRefuseIsRefusedWithItsRule)
{
    // The limits of the code are 1.
    EXPECT_EQ(refusalOf("name,Psi0\nQ,1.5\n"), "psi0-not-between-0-and-limit");
    EXPECT_EQ(refusalOf("number,action\n9,XX\n"), "action-missing");
    EXPECT_EQ(refusalOf("name,partition\nY1,Q\n"), "new-name-begins-with-y");
    EXPECT_EQ(refusalOf("name,partition\nIMP,Q\n"), "new-name-is-imp");
}

TEST_F(ImportPlan, WhatIsNoValueIsRefused)
{
    EXPECT_EQ(refusalOf("number,DLX\n1,abc\n"), "import-no-number");
    EXPECT_EQ(refusalOf("number,title\n0,x\n"), "import-load-case-number");
    EXPECT_EQ(refusalOf("number,title\n1000000,x\n"), "import-load-case-number");
    EXPECT_EQ(refusalOf("name,partition\nG,Z\n"), "import-unknown-word");
    EXPECT_EQ(planOf("number,title\n1,a\n1,b\n").rows.at(1).reasons.at(0).rule, "import-doubled");
    project.putLoadCase(4, bareLoadCase().kind(7));
    EXPECT_EQ(refusalOf("number,title\n4,x\n"), "import-other-module");
}

TEST_F(ImportPlan, LoadCasesMayNameAnActionOfTheSameFile)
{
    const auto tables = readAs(
        "json", R"({"loadcases": [{"number": 9, "action": "W"}], "actions": [{"name": "W", "Gamu": 1.5}]})");
    const Plan plan = mrl::exchange::planOf(mrl::exchange::stateOf(db), tables.tables);
    EXPECT_EQ(plan.count(Outcome::Added), 2);
}

TEST_F(ImportPlan, HashStandsForTheTableAndTheProject)
{
    const std::string csv = "number,title\n1,Roof\n";
    const std::string hash = planOf(csv).hash();
    EXPECT_EQ(planOf(csv).hash(), hash);
    EXPECT_NE(planOf("number,title\n1,Wall\n").hash(), hash);
    project.putLoadCase(1, following("G").title("Changed meanwhile"));
    EXPECT_NE(planOf(csv).hash(), hash);
}

TEST_F(ImportPlan, IsComputedWithoutWriting)
{
    const auto before = project.fingerprint();
    planOf("number,title\n1,Roof\n8,New\n");
    EXPECT_TRUE(project.fingerprint() == before);
    EXPECT_TRUE(otherIsCurrent());
}

} // namespace
