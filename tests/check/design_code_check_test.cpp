#include "check/design_code_check.h"

#include <gmock/gmock.h>

#include "tests/support/action_builder.h"
#include "tests/support/plain_findings.h"

using mrl::test::ActionBuilder;
using mrl::test::limitsOfOne;
using mrl::test::soundAction;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr LCM_DesignCodeIdentity SOME_CODE{1, 2, 49, 2010};
constexpr LCM_DesignCodeIdentity DANISH_2004{0, 2, 45, 2004};

/// The findings as "ACTION RULE ARGUMENTS", without the action for one about the whole design code.
std::vector<std::string> check(const std::vector<tagCDB_LC_ACT>& actions,
                               const ActionBuilder& limit = limitsOfOne(),
                               const LCM_DesignCodeIdentity& identity = SOME_CODE)
{
    std::vector<std::string> found;
    for (const LCM_Finding& finding : lcm_check_design_code({limit, identity, actions})) {
        const bool whole = finding.subject == LCM_Subject::DesignCode;
        found.push_back((whole ? "" : lcm_code_name(finding.id).toStdString() + " ") +
                        mrl::test::plain(finding));
    }
    return found;
}

} // namespace

TEST(DesignCodeCheck, SoundCodeHasNoFinding)
{
    EXPECT_THAT(check({soundAction("G"), soundAction("Q"), soundAction("Q_A"), soundAction("ABCD")}),
                IsEmpty());
    EXPECT_THAT(check({}), IsEmpty());
}

TEST(DesignCodeCheck, LowerCaseNameCannotBeTyped)
{
    EXPECT_THAT(check({soundAction("Q_a")}), ElementsAre("Q_a action-name-lower-case"));
    EXPECT_THAT(check({soundAction("aB")}), ElementsAre("aB action-name-lower-case"));
    EXPECT_THAT(check({soundAction("Q_Ab")}),
                ElementsAre("Q_Ab action-name-lower-case", "Q_Ab action-suffix-too-long"));
}

TEST(DesignCodeCheck, SuffixOfTwoCharactersDoesNotSurviveEditing)
{
    EXPECT_THAT(check({soundAction("Q_AB")}), ElementsAre("Q_AB action-suffix-too-long"));
}

TEST(DesignCodeCheck, NameWithYIsReserved)
{
    EXPECT_THAT(check({soundAction("Y1"), soundAction("GY")}), ElementsAre("Y1 action-name-reserved"));
}

TEST(DesignCodeCheck, GamuOfZeroIsCondemned)
{
    EXPECT_THAT(check({soundAction("G").gamu(0.0f).gamf(0.0f)}), ElementsAre("G gamu-not-above-0"));
}

TEST(DesignCodeCheck, GamfAboveGamuIsCondemned)
{
    EXPECT_THAT(check({soundAction("G").gamf(1.36f)}), ElementsAre("G gamf-not-between-0-and-gamu 0 1.35"));
}

TEST(DesignCodeCheck, Psi0AboveItsLimitIsCondemned)
{
    EXPECT_THAT(check({soundAction("Q").psi0(1.2f)}), ElementsAre("Q psi0-not-between-0-and-limit 0 1"));
}

TEST(DesignCodeCheck, Psi2AbovePsi1CondemnsBoth)
{
    EXPECT_THAT(
        check({soundAction("Q").psi2(0.6f).psi1s(1.0f)}),
        ElementsAre("Q psi1-not-between-psi2-and-limit 0.6 1", "Q psi2-not-between-0-and-psi1 0 0.5"));
}

TEST(DesignCodeCheck, Psi1sBelowPsi1IsCondemnedOfEachAction)
{
    EXPECT_THAT(check({soundAction("G"), soundAction("Q").psi1s(0.4f), soundAction("Q_A").psi1s(0.0f)}),
                ElementsAre("Q psi1s-not-between-psi1-and-limit 0.5 1",
                            "Q_A psi1s-not-between-psi1-and-limit 0.5 1"));
}

TEST(DesignCodeCheck, TheCodeWithItsOwnBoundAsksForNineTenths)
{
    EXPECT_THAT(
        check({soundAction("G").psi1s(0.9f), soundAction("Q").psi1s(0.89f)}, limitsOfOne(), DANISH_2004),
        ElementsAre("Q psi1s-not-between-national-bound-and-limit 0.9 1"));
}

TEST(DesignCodeCheck, Psi1WithoutPsi2IsATrap)
{
    EXPECT_THAT(
        check({soundAction("G").psi1(1.0f).psi1s(1.0f).psi2(0.0f), soundAction("Q").psi1s(1.0f).psi2(0.0f)},
              limitsOfOne().psi2(0.0f)),
        ElementsAre("psi1-without-psi2", "Q psi1-not-between-psi2-and-limit 1 1"));
}
