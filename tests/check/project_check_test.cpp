#include "check/project_check.h"

#include <gmock/gmock.h>

#include "lcdata/load_cases.h"
#include "tests/support/plain_findings.h"
#include "tests/support/project_test.h"

using mrl::test::ActionBuilder;
using mrl::test::bareLoadCase;
using mrl::test::following;
using mrl::test::soundAction;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ProjectCheck : public mrl::test::ProjectTest
{
  protected:
    ProjectCheck()
    {
        project.putAction(soundAction("G"));
        project.putLoadCase(1, following("G"));
    }

    /// The findings as "SUBJECT COLUMN RULE ARGUMENTS", the column left out for the whole subject.
    std::vector<std::string> findings() const
    {
        std::vector<std::string> found;
        for (const LCM_Finding& finding : lcm_check_project(db, false)) {
            const bool ofAction = finding.subject == LCM_Subject::Action;
            const std::string subject =
                ofAction ? lcm_code_name(finding.id).toStdString() : std::to_string(finding.id);
            const std::string column = finding.column == 0 ? "" : std::to_string(finding.column) + " ";
            found.push_back(subject + " " + column + mrl::test::plain(finding));
        }
        EXPECT_TRUE(otherIsCurrent());
        return found;
    }
};

} // namespace

TEST_F(ProjectCheck, SoundProjectHasNoFinding) { EXPECT_THAT(findings(), IsEmpty()); }

TEST_F(ProjectCheck, FavourableFactorAboveUnfavourableCondemnsActionAndItsLoadCases)
{
    project.putAction(soundAction("G").gamu(1.35f).gamf(1.36f));
    EXPECT_THAT(findings(), ElementsAre("G 105 gamf-not-between-0-and-gamu 0 1.35",
                                        "1 105 gamf-not-between-0-and-gamu 0 1.35"));
}

TEST_F(ProjectCheck, RecordOfAnotherNameIsReportedAndJudgedUnderItsKey)
{
    project.putAction(mrl::test::codeOf("U1"), soundAction("W").psi0(1.2f));
    EXPECT_THAT(findings(),
                ElementsAre("U1 action-name-differs-from-key W", "U1 107 psi0-not-between-0-and-limit 0 1"));
}

TEST_F(ProjectCheck, CombinationFactorsAreJudgedByTheLimits)
{
    project.putAction(soundAction("W").psi0(1.2f));
    EXPECT_THAT(findings(), ElementsAre("W 107 psi0-not-between-0-and-limit 0 1"));
}

TEST_F(ProjectCheck, NameThatNoRowKeepsIsAFinding)
{
    // Four characters have room in the code, but a row keeps a suffix of one.
    tagCDB_LC_ACT twoCharacters = soundAction("A");
    twoCharacters.suffix = lcm_pack_word("I4");
    project.putAction(twoCharacters);
    project.putLoadCase(2, following("A_I4"));
    EXPECT_THAT(findings(), ElementsAre("A_I4 action-name-shortened A_I"));
}

TEST_F(ProjectCheck, CopiedFactorsThatDifferFromTheActionAreToldAndNotCondemned)
{
    // The dialog shows the action's present factors, whatever the record holds.
    tagCDB_LC_CTRL record = following("G");
    record.gamu = 1.0f;
    record.gamf = 5.0f;
    project.putLoadCase(2, record);
    EXPECT_THAT(findings(), ElementsAre("2 load-case-factors-differ-from-action G"));
}

TEST_F(ProjectCheck, CopiesAsTheActionHasThemAreNoFinding)
{
    ASSERT_TRUE(mrl_lc_create_load_case(db, 2, mrl::test::codeOf("G"), "Copy"));
    ASSERT_NE(project.storedLoadCase(2).gamu, LC_UNDEFINED);
    EXPECT_THAT(findings(), IsEmpty());
    project.putAction(soundAction("G").psi2(0.4f));
    EXPECT_THAT(findings(), ElementsAre("2 load-case-factors-differ-from-action G"));
}

TEST_F(ProjectCheck, MissingActionIsAFinding)
{
    project.putLoadCase(2, bareLoadCase("X9"));
    EXPECT_THAT(findings(), ElementsAre("2 action-missing X9"));
}

TEST_F(ProjectCheck, NamesInTheOtherCaseAreFoundAsTheDialogFindsThemWhenItOpens)
{
    project.putLoadCase(2, bareLoadCase().action(0x20202077)); // w
    project.putAction(soundAction("W"));
    EXPECT_THAT(findings(), ElementsAre("2 action-missing w")) << "W is stored in upper case";

    project.putLoadCase(2, following("V"));
    project.putAction(0x20202076, soundAction("v"));
    EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(ProjectCheck, OldActionNumberIsResolved)
{
    project.putLoadCase(2, following(2)); // G
    project.putLoadCase(3, bareLoadCase().action(99));
    EXPECT_THAT(findings(), ElementsAre("3 action-missing 99"));
}

TEST_F(ProjectCheck, ImperfectionsAndLoadCasesWithoutActionAreValid)
{
    tagCDB_LC_CTRL own = bareLoadCase();
    own.gamu = -5.0f;
    project.putLoadCase(2, own);
    project.putLoadCase(3, bareLoadCase().action(LC_ACTION_IMPERFECTION));
    EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(ProjectCheck, ReservedAndNamelessActionsAreReportedAndNotJudged)
{
    project.putAction(soundAction("Y1").gamf(9.0f));
    project.putAction(LC_BLANK_WORD, soundAction("").gamf(9.0f));
    EXPECT_THAT(findings(), ElementsAre(" action-without-name", "Y1 action-name-reserved"));
}

TEST_F(ProjectCheck, NumberThatAnotherModuleUsesTooIsReported)
{
    project.append(LC_KWH_CASES, 1, bareLoadCase().kind(3).record());
    EXPECT_THAT(findings(), ElementsAre("1 load-case-number-shared-with-module 3"));
}

TEST_F(ProjectCheck, NumberAboveTheDialogsLimitIsReported)
{
    project.putLoadCase(999999, following("G"));
    project.putLoadCase(1000000, following("G"));
    EXPECT_THAT(findings(), ElementsAre("1000000 load-case-number-above-999999"));
}

TEST_F(ProjectCheck, ForeignLoadCasesAreNotJudged)
{
    project.putLoadCase(2, bareLoadCase("X9").kind(5));
    EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(ProjectCheck, ProjectWithoutAnActionOfItsCodeIsJudgedWithTheDefaultOnes)
{
    mrl_cdb_del(db, LC_KWH_ACTIONS, mrl::test::codeOf("G"));
    project.putLoadCase(2, following("Q"));
    project.putLoadCase(3, following("W"));
    EXPECT_THAT(findings(), ElementsAre("3 action-missing W")) << "the dialog offers G and Q then";
}

TEST_F(ProjectCheck, FactorThatTheDesignCodeDoesNotKnowIsNotJudged)
{
    useCode(mrl::test::DesignCodeBuilder()
                .marks(mrl::test::limitsOfOne().psi0(0.0f))
                .add(soundAction("G"), {2, 7}));
    project.putAction(soundAction("G").psi0(7.0f));
    EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(ProjectCheck, WithoutADesignCodeOnlyWhatNeedsNoLimitIsJudged)
{
    project.setDesignCode("/nowhere/none.ini");
    project.putAction(soundAction("G").gamf(9.0f));
    project.putLoadCase(2, bareLoadCase("X9"));
    EXPECT_THAT(findings(), ElementsAre("2 action-missing X9"));
}
