#include "rules/load_case_rules.h"

#include <gmock/gmock.h>

#include "lcdata/values/packing.h"
#include "tests/support/action_builder.h"
#include "tests/support/load_case_builder.h"
#include "tests/support/load_case_setup.h"
#include "tests/support/plain_findings.h"

namespace {

using namespace mrl::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

const tagCDB_LC_ACT ALL_LIMITS = noLimits().factors(1.0f);

tagCDB_LC_CTRL withOwn(float gamu, float gamf, float psi0, float psi1, float psi1s, float psi2)
{
    tagCDB_LC_CTRL record = standalone();
    record.gamu = gamu;
    record.gamf = gamf;
    record.psi0 = psi0;
    record.psi1 = lcm_pack_pair(psi1, psi1s);
    record.psi2 = psi2;
    return record;
}

std::map<int, std::string> check(const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT& factors,
                                 const tagCDB_LC_ACT& limit)
{
    return mrl::test::plain(lcm_check_load_case(record, factors, limit));
}

TEST(LoadcaseRules, FollowingAGoodActionIsClean)
{
    const tagCDB_LC_ACT g =
        bareAction("G").gamu(1.35f).gamf(1.35f).psi0(0.7f).psi1(0.5f).psi2(0.3f).psi1s(0.9f);
    EXPECT_THAT(check(following("G"), g, ALL_LIMITS), IsEmpty());
}

TEST(LoadcaseRules, FavourableFactorAboveUnfavourableOfTheActionIsAFinding)
{
    const auto findings = check(following("G"), bareAction("G").gamu(1.35f).gamf(1.36f), ALL_LIMITS);
    EXPECT_THAT(findings, ElementsAre(Pair(LC_COL_GAMF, "gamf-not-between-0-and-gamu 0 1.35")));
}

TEST(LoadcaseRules, NegativeFavourableFactorShowsTheRange)
{
    const auto findings = check(following("G"), bareAction("G").gamu(1.35f).gamf(-0.1f), ALL_LIMITS);
    EXPECT_THAT(findings, ElementsAre(Pair(LC_COL_GAMF, "gamf-not-between-0-and-gamu 0 1.35")));
}

TEST(LoadcaseRules, CombinationFactorsOfTheActionAreNotTheLoadCasesBusiness)
{
    const tagCDB_LC_ACT odd = bareAction("G").gamu(1.35f).psi0(7.0f).psi1(5.0f).psi2(6.0f).psi1s(-1.0f);
    EXPECT_THAT(check(following("G"), odd, ALL_LIMITS), IsEmpty());
}

TEST(LoadcaseRules, DesignCodeWithoutUnfavourableFactorJudgesNoSafetyFactor)
{
    EXPECT_THAT(check(following("G"), bareAction("G").gamu(1.0f).gamf(2.0f), noLimits().gamf(1.0f)),
                IsEmpty());
    EXPECT_THAT(check(following("G"), bareAction("G").gamu(1.0f).gamf(2.0f), noLimits().gamu(1.0f)),
                IsEmpty());
}

TEST(LoadcaseRules, NegativeUnfavourableFactorOfItsOwnIsAFinding)
{
    const auto findings = check(withOwn(-1.0f, -2.0f, 0, 0, 0, 0), bareAction("G"), noLimits().gamu(1.0f));
    EXPECT_THAT(findings, ElementsAre(Pair(LC_COL_GAMU, "gamu-below-0")));
    EXPECT_THAT(check(withOwn(0.0f, 0, 0, 0, 0, 0), bareAction("G"), noLimits().gamu(1.0f)), IsEmpty());
}

// Limits 1, 0.8, 0.6 and 0.95 for Psi0, Psi1, Psi2 and Psi1s.
const tagCDB_LC_ACT PSI_LIMITS = noLimits().psi0(1.0f).psi1(0.8f).psi2(0.6f).psi1s(0.95f);

TEST(LoadcaseRules, CombinationFactorsOfItsOwnHaveTheirRanges)
{
    EXPECT_THAT(check(withOwn(0, 0, 0.7f, 0.5f, 0.9f, 0.3f), bareAction("G"), PSI_LIMITS), IsEmpty());
    EXPECT_THAT(check(withOwn(0, 0, 1.2f, 0.5f, 0.9f, 0.3f), bareAction("G"), PSI_LIMITS),
                ElementsAre(Pair(LC_COL_PSI0, "psi0-not-between-0-and-limit 0 1")));
    EXPECT_THAT(check(withOwn(0, 0, 0.0f, 0.9f, 0.94f, 0.3f), bareAction("G"), PSI_LIMITS),
                ElementsAre(Pair(LC_COL_PSI1, "psi1-not-between-psi2-and-limit 0.3 0.8")));
    // 0.4 lies below Psi1, which is the lower limit of Psi1s
    EXPECT_THAT(check(withOwn(0, 0, 0.0f, 0.5f, 0.4f, 0.3f), bareAction("G"), PSI_LIMITS),
                ElementsAre(Pair(LC_COL_PSI1S, "psi1s-not-between-psi1-and-limit 0.5 0.95")));
}

TEST(LoadcaseRules, Psi2AbovePsi1CondemnsBoth)
{
    EXPECT_THAT(check(withOwn(0, 0, 0.0f, 0.5f, 0.9f, 0.55f), bareAction("G"), PSI_LIMITS),
                ElementsAre(Pair(LC_COL_PSI1, "psi1-not-between-psi2-and-limit 0.55 0.8"),
                            Pair(LC_COL_PSI2, "psi2-not-between-0-and-psi1 0 0.5")));
}

TEST(LoadcaseRules, UndefinedPsi2IsJudgedByThatOfTheAction)
{
    EXPECT_THAT(check(withOwn(0, 0, 0.0f, 0.5f, 0.9f, LC_UNDEFINED), bareAction("G").psi2(0.6f), PSI_LIMITS),
                ElementsAre(Pair(LC_COL_PSI1, "psi1-not-between-psi2-and-limit 0.6 0.8")));
}

TEST(LoadcaseRules, WithoutPsi1InTheDesignCodeNothingIsComparedWithIt)
{
    EXPECT_THAT(
        check(withOwn(0, 0, 0.0f, 0.5f, 0.1f, 0.9f), bareAction("G"), noLimits().psi2(0.6f).psi1s(0.95f)),
        IsEmpty());
}

TEST(LoadcaseRules, FactorsOfItsOwnComeBeforeThoseOfTheAction)
{
    const tagCDB_LC_ACT g = bareAction("G").gamu(1.35f).gamf(1.0f);
    EXPECT_THAT(check(withOwn(1.0f, 1.2f, 0, 0, 0, 0), g, noLimits().gamu(1.0f).gamf(1.0f)),
                ElementsAre(Pair(LC_COL_GAMF, "gamf-not-between-0-and-gamu 0 1")));
}

TEST(LoadcaseRules, UndefinedPsi1IsThatOfTheActionForPsi2)
{
    tagCDB_LC_CTRL record = standalone();
    record.psi1 = LC_UNDEFINED;
    record.psi2 = 0.4f;
    EXPECT_THAT(check(record, bareAction("G").psi1(0.3f), PSI_LIMITS),
                ElementsAre(Pair(LC_COL_PSI2, "psi2-not-between-0-and-psi1 0 0.3")));
}

TEST(LoadcaseRules, FactorThatTheDesignCodeLacksIsNotJudged)
{
    EXPECT_THAT(check(withOwn(0, 0, 5.0f, 0.5f, 5.0f, 5.0f), bareAction("G"), noLimits().psi1(0.8f)),
                IsEmpty());
    EXPECT_THAT(check(withOwn(0, 0, 0.0f, -0.5f, 0.9f, 0.3f), bareAction("G"), noLimits().psi1(0.8f)),
                ElementsAre(Pair(LC_COL_PSI1, "psi1-not-between-psi2-and-limit 0 0.8")));
}

TEST(LoadcaseRules, LimitsThemselvesAreAllowed)
{
    EXPECT_THAT(check(withOwn(0, 0, 1.0f, 0.5f, 0.9f, 0.5f), bareAction("G"), PSI_LIMITS), IsEmpty());
    EXPECT_THAT(check(withOwn(1.2f, 1.2f, 0, 0, 0, 0), bareAction("G"), noLimits().gamu(1.0f).gamf(1.0f)),
                IsEmpty());
}

TEST(LoadcaseVerdict, NoneAndImperfectionAreValidUnseen)
{
    EXPECT_TRUE(lcm_judge_load_case(withOwn(-1, -1, -1, -1, -1, -1), nullptr, ALL_LIMITS).valid);
    EXPECT_TRUE(lcm_judge_load_case(following(70), nullptr, ALL_LIMITS).valid);
}

TEST(LoadcaseVerdict, MissingActionIsInvalidWithoutAFinding)
{
    const LCM_LoadCaseVerdict verdict = lcm_judge_load_case(following(codeOf("X")), nullptr, ALL_LIMITS);
    EXPECT_FALSE(verdict.valid);
    EXPECT_TRUE(verdict.actionMissing);
    EXPECT_THAT(verdict.findings, IsEmpty());
}

TEST(LoadcaseVerdict, CopiedFactorsOfAStoredRecordDontCondemnIt)
{
    // A record that was filled from its action when it was made: the dialog shows the action's factors.
    tagCDB_LC_CTRL record = withOwn(-1.0f, 2.0f, 3.0f, 4.0f, 0.0f, 5.0f);
    record.action = codeOf("G");
    const tagCDB_LC_ACT g = bareAction("G").gamu(1.35f).gamf(1.0f);
    EXPECT_FALSE(lcm_judge_load_case(record, &g, ALL_LIMITS).valid);
    EXPECT_TRUE(lcm_judge_stored_load_case(record, &g, setupOfAllFactors(), ALL_LIMITS).valid);

    const tagCDB_LC_ACT bad = bareAction("G").gamu(1.35f).gamf(2.0f);
    EXPECT_FALSE(lcm_judge_stored_load_case(record, &bad, setupOfAllFactors(), ALL_LIMITS).valid);
}

} // namespace
