#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "rules/action_columns.h"
#include "rules/action_rules.h"
#include "tests/support/action_builder.h"
#include "tests/support/plain_findings.h"

using mrl::test::ActionBuilder;
using mrl::test::limitsOfOne;
using mrl::test::plain;
using mrl::test::soundAction;

namespace {

constexpr LCM_DesignCodeIdentity SOME_CODE{1, 2, 49, 2010};
constexpr LCM_DesignCodeIdentity DANISH_2004{0, 2, 45, 2004};
constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float INFINITE = std::numeric_limits<float>::infinity();

LCM_Findings check(const ActionBuilder& row, const ActionBuilder& limit = limitsOfOne(),
                   const LCM_DesignCodeIdentity& identity = SOME_CODE)
{
    return lcm_check_action(row, limit, identity);
}

using Expected = std::map<int, std::string>;

} // namespace

TEST(ActionRules, FactorsWithinAllLimitsGiveNoFinding) { EXPECT_EQ(plain(check(soundAction())), Expected{}); }

TEST(ActionRules, ZeroGamuIsAFinding)
{
    const auto findings = plain(check(soundAction().gamu(0.0f).gamf(0.0f)));
    EXPECT_EQ(findings, (Expected{{ACT_COL_GAMU, "gamu-not-above-0"}}));
}

TEST(ActionRules, NewUserActionWithZeroFactorsFailsForGamuAlone)
{
    // f = 0 lies in [0, g = 0], and all Psi = 0 lie in [0, 0].
    const auto findings = plain(check(ActionBuilder("U1").partition(50)));
    EXPECT_EQ(findings, (Expected{{ACT_COL_GAMU, "gamu-not-above-0"}}));
}

TEST(ActionRules, GamfEqualToGamuPasses)
{
    EXPECT_EQ(plain(check(soundAction().gamu(1.35f).gamf(1.35f))), Expected{});
}

TEST(ActionRules, FavourableFactorAboveUnfavourableIsAFinding)
{
    const auto findings = plain(check(soundAction().gamu(1.35f).gamf(1.36f)));
    EXPECT_EQ(findings, (Expected{{ACT_COL_GAMF, "gamf-not-between-0-and-gamu 0 1.35"}}));
}

TEST(ActionRules, NegativeGamfIsTheSameFinding)
{
    const auto findings = plain(check(soundAction().gamu(1.35f).gamf(-0.1f)));
    EXPECT_EQ(findings, (Expected{{ACT_COL_GAMF, "gamf-not-between-0-and-gamu 0 1.35"}}));
}

TEST(ActionRules, UndefinedGamuPassesItselfAndFailsGamf)
{
    const auto findings = plain(check(soundAction().gamu(LC_UNDEFINED).gamf(0.0f)));
    EXPECT_EQ(findings, (Expected{{ACT_COL_GAMF, "gamf-not-between-0-and-gamu 0 -99999"}}));
}

TEST(ActionRules, UndefinedGamuIsCleanWhereTheCodeHasNoGamf)
{
    EXPECT_EQ(plain(check(soundAction().gamu(LC_UNDEFINED), limitsOfOne().gamf(0.0f))), Expected{});
}

TEST(ActionRules, NegativeGamuOtherThanUndefinedIsAFinding)
{
    EXPECT_EQ(plain(check(soundAction().gamu(-1.0f), limitsOfOne().gamf(0.0f))).count(ACT_COL_GAMU), 1u);
}

TEST(ActionRules, GamfIsNotLookedAtWithoutALimitOfGamu)
{
    EXPECT_EQ(plain(check(soundAction().gamu(0.0f).gamf(9.0f), limitsOfOne().gamu(0.0f))), Expected{});
}

TEST(ActionRules, LimitsOfGamuAndGamfAreMarksOnly)
{
    EXPECT_EQ(plain(check(soundAction().gamu(9.0f).gamf(8.0f), limitsOfOne().gamu(-0.5f).gamf(0.001f))),
              Expected{});
}

TEST(ActionRules, GamaIsNeverJudged)
{
    for (const float gama : {-5.0f, 0.0f, 0.001f, 100.0f, LC_UNDEFINED, NOT_A_NUMBER, INFINITE}) {
        EXPECT_EQ(plain(check(soundAction().gama(gama))), Expected{}) << gama;
    }
}

TEST(ActionRules, Psi0AboveItsLimitIsAFinding)
{
    const auto findings = plain(check(soundAction().psi0(1.2f)));
    EXPECT_EQ(findings, (Expected{{ACT_COL_PSI0, "psi0-not-between-0-and-limit 0 1"}}));
}

TEST(ActionRules, PsiEqualToItsLimitPasses)
{
    EXPECT_EQ(plain(check(soundAction().psi0(1.0f).psi1(1.0f).psi2(1.0f).psi1s(1.0f))), Expected{});
}

TEST(ActionRules, Psi0HasItsOwnLimit)
{
    const auto findings = plain(check(soundAction().psi0(0.9f), limitsOfOne().psi0(0.8f)));
    EXPECT_EQ(findings, (Expected{{ACT_COL_PSI0, "psi0-not-between-0-and-limit 0 0.8"}}));
}

TEST(ActionRules, Psi1BelowPsi2ColoursBoth)
{
    const auto findings = plain(check(soundAction().psi1(0.5f).psi2(0.7f)));
    EXPECT_EQ(findings, (Expected{{ACT_COL_PSI1, "psi1-not-between-psi2-and-limit 0.7 1"},
                                  {ACT_COL_PSI2, "psi2-not-between-0-and-psi1 0 0.5"}}));
}

TEST(ActionRules, OrderComesBeforeTheLimitOfPsi1)
{
    // 1.2 is above the limit 1 (0.0 to 1) and fails against Psi2 = 0.3 as well (0.3 to 1), which says more.
    // Psi1s = 0.5 lies below Psi1 = 1.2.
    const auto findings = plain(check(soundAction().psi1(1.2f).psi2(0.3f)));
    EXPECT_EQ(findings, (Expected{{ACT_COL_PSI1, "psi1-not-between-psi2-and-limit 0.3 1"},
                                  {ACT_COL_PSI1S, "psi1s-not-between-psi1-and-limit 1.2 1"}}));
}

TEST(ActionRules, Psi2AbovePsi1AndItsOwnLimitNamesPsi1)
{
    const auto findings = plain(check(soundAction().psi1(0.4f).psi2(0.9f), limitsOfOne().psi2(0.8f)));
    EXPECT_EQ(findings.at(ACT_COL_PSI2), "psi2-not-between-0-and-psi1 0 0.4");
}

TEST(ActionRules, Psi2WithinPsi1ButAboveItsOwnLimitNamesTheLimit)
{
    const auto findings =
        plain(check(soundAction().psi1(0.9f).psi2(0.85f).psi1s(0.9f), limitsOfOne().psi2(0.8f)));
    EXPECT_EQ(findings, (Expected{{ACT_COL_PSI2, "psi2-not-between-0-and-limit 0 0.8"}}));
}

TEST(ActionRules, Psi1sBelowPsi1IsAFinding)
{
    const auto findings = plain(check(soundAction().psi1(0.5f).psi2(0.3f).psi1s(0.3f)));
    EXPECT_EQ(findings, (Expected{{ACT_COL_PSI1S, "psi1s-not-between-psi1-and-limit 0.5 1"}}));
}

TEST(ActionRules, OrderComesBeforeTheLimitOfPsi1s)
{
    // 0.85 is above the limit 0.8 both by itself and against Psi1 = 0.5.
    const auto findings = plain(check(soundAction().psi1s(0.85f), limitsOfOne().psi1s(0.8f)));
    EXPECT_EQ(findings, (Expected{{ACT_COL_PSI1S, "psi1s-not-between-psi1-and-limit 0.5 0.8"}}));
}

TEST(ActionRules, NegativePsi1sPassesTheOrderOnlyAgainstANegativePsi1)
{
    // Psi1s = -0.1 fails its limit; against Psi1 = -0.2 it stands in order, so the limit's finding stays.
    const auto findings = plain(check(soundAction().psi1(-0.2f).psi2(-0.3f).psi1s(-0.1f)));
    EXPECT_EQ(findings.at(ACT_COL_PSI1S), "psi1s-not-between-0-and-limit 0 1");
}

TEST(ActionRules, DanishAnnexAsksForPsi1sOfAtLeastPointNine)
{
    const auto findings =
        plain(check(soundAction().psi1(0.5f).psi2(0.3f).psi1s(0.8f), limitsOfOne(), DANISH_2004));
    EXPECT_EQ(findings, (Expected{{ACT_COL_PSI1S, "psi1s-not-between-national-bound-and-limit 0.9 1"}}));
}

TEST(ActionRules, DanishAnnexAllowsPsi1sBelowPsi1)
{
    EXPECT_EQ(plain(check(soundAction().psi1(0.95f).psi1s(0.92f), limitsOfOne(), DANISH_2004)), Expected{});
    EXPECT_EQ(plain(check(soundAction().psi1(0.95f).psi1s(0.92f))).count(ACT_COL_PSI1S), 1u);
}

TEST(ActionRules, OneOtherNumberIsAnotherDesignCode)
{
    const LCM_DesignCodeIdentity others[] = {
        {1, 2, 45, 2004}, {0, 1, 45, 2004}, {0, 2, 44, 2004}, {0, 2, 45, 2005}};
    for (const LCM_DesignCodeIdentity& other : others) {
        EXPECT_EQ(plain(check(soundAction().psi1(0.5f).psi1s(0.8f), limitsOfOne(), other)), Expected{});
    }
}

TEST(ActionRules, WithoutPsi2InTheCodePsi1HasToBeOne)
{
    const auto findings =
        plain(check(soundAction().psi1(0.9f).psi2(0.0f).psi1s(0.9f), limitsOfOne().psi2(0.0f)));
    EXPECT_EQ(findings, (Expected{{ACT_COL_PSI1, "psi1-not-between-psi2-and-limit 1 1"}}));
    EXPECT_EQ(plain(check(soundAction().psi1(1.0f).psi2(0.0f).psi1s(1.0f), limitsOfOne().psi2(0.0f))),
              Expected{});
}

TEST(ActionRules, WithoutPsi1InTheCodeOneTakesItsPlace)
{
    const auto findings =
        plain(check(soundAction().psi1(0.0f).psi2(0.9f).psi1s(0.9f), limitsOfOne().psi1(0.0f)));
    // Psi2 = 0.9 lies in [0, 1]; Psi1s = 0.9 doesn't lie in [1, 1].
    EXPECT_EQ(findings, (Expected{{ACT_COL_PSI1S, "psi1s-not-between-psi1-and-limit 1 1"}}));
}

TEST(ActionRules, WithoutAnyLimitNothingIsJudged)
{
    const ActionBuilder none(QString{});
    EXPECT_EQ(plain(check(soundAction().gamu(-3.0f).gamf(7.0f).psi0(9.0f).psi1(-9.0f).psi2(3.0f).psi1s(-1.0f),
                          none)),
              Expected{});
}

TEST(ActionRules, HiddenColumnWithALimitStillGivesAFinding)
{
    // A code that knows Gamu and labels it "none" has no such column, so the row reads 0.
    EXPECT_EQ(plain(check(soundAction().gamu(0.0f).gamf(0.0f))).count(ACT_COL_GAMU), 1u);
}

TEST(ActionRules, NotANumberPassesNoComparison)
{
    const auto findings =
        plain(check(soundAction().gamu(NOT_A_NUMBER).psi0(NOT_A_NUMBER).psi1(NOT_A_NUMBER)));
    EXPECT_EQ(findings, (Expected{{ACT_COL_GAMU, "gamu-not-above-0"},
                                  {ACT_COL_GAMF, "gamf-not-between-0-and-gamu 0 nan"},
                                  {ACT_COL_PSI0, "psi0-not-between-0-and-limit 0 1"},
                                  {ACT_COL_PSI1, "psi1-not-between-psi2-and-limit 0.5 1"},
                                  {ACT_COL_PSI2, "psi2-not-between-0-and-psi1 0 nan"},
                                  {ACT_COL_PSI1S, "psi1s-not-between-psi1-and-limit nan 1"}}));
}

TEST(ActionRules, InfiniteGamuIsBiggerThanZero)
{
    EXPECT_EQ(plain(check(soundAction().gamu(INFINITE).gamf(INFINITE))), Expected{});
    EXPECT_EQ(plain(check(soundAction().psi0(INFINITE))).count(ACT_COL_PSI0), 1u);
}

TEST(ActionRules, JudgingChangesNeitherRecordNorLimits)
{
    const ActionBuilder row = soundAction().psi1(0.5f).psi2(0.7f);
    const ActionBuilder limit = limitsOfOne();
    const tagCDB_LC_ACT before = row;
    const tagCDB_LC_ACT limitBefore = limit;
    check(row, limit);
    EXPECT_EQ(std::memcmp(&before, &row.record(), sizeof before), 0);
    EXPECT_EQ(std::memcmp(&limitBefore, &limit.record(), sizeof before), 0);
}
