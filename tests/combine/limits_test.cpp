/// Where a situation makes terms depend on each other.

#include <gmock/gmock.h>

#include "tests/combine/samples.h"

namespace {

using namespace samples;
constexpr auto Q = Category::Variable;

/// Q, S and W with one load case each: 1, 2, 3.
Model three() { return ModelBuilder().imposed({1}).snow({2}).wind({3}).model(); }

TEST(AtMost, KeepsTheBestOfThem)
{
    // S leads with 1.5; Q 1.05, W 0.9
    EXPECT_EQ(governing(three(), situation(PERSISTENT), {10, 9, 8}), "31.2 = 1.05*1+1.5*2+0.9*3 (S)");
    EXPECT_EQ(governing(three(), situation(with(PERSISTENT, {{"at-most", "2"}})), {10, 9, 8}),
              "24 = 1.05*1+1.5*2 (S)");
    EXPECT_EQ(governing(three(), situation(with(PERSISTENT, {{"at-most", "1"}})), {10, 9, 8}),
              "15 = 1.5*1 (Q)");
}

TEST(AccompanyingFactor, DependsOnTheLeadingAction)
{
    const LCM_Situation danish = situation(
        with(PERSISTENT, {{"others S when W leads", "0"}, {"others S when Q leads", "KFI*Gamu*0.6"}}));
    EXPECT_EQ(governing(three(), danish, {0, 10, 11}), "24.9 = 1.5*2+0.9*3 (S)");
    EXPECT_EQ(governing(three(), danish, {0, 1, 11}), "16.5 = 1.5*3 (W)");
    EXPECT_EQ(governing(three(), danish, {10, 9, 0}), "24 = 1.05*1+1.5*2 (S)");
    EXPECT_EQ(governing(three(), danish, {10, 4, 0}), "18.6 = 1.5*1+0.9*2 (Q)");
}

TEST(ShortTermActions, FirstBesideTheLeadingOneTakesOthersAndEachFurtherOneSecond)
{
    const Model model = ModelBuilder()
                            .imposed({1})
                            .snow({2})
                            .wind({3})
                            .action("T", Q, LC_SUPERPOSITION_EXCL, factors(1.5f, 0, 0.6f), {4})
                            .model();
    const LCM_Situation belgian =
        situation(with(PERSISTENT, {{"short", "S, W, T"}, {"second", "KFI*Gamu*0.3"}}));
    // Q leads; W is the first (0.9), S and T the further ones (0.45).
    EXPECT_EQ(governing(model, belgian, {100, 10, 20, 10}), "177 = 1.5*1+0.45*2+0.9*3+0.45*4 (Q)");
}

TEST(LoadGroup, LeadsTogether)
{
    const Model road = ModelBuilder()
                           .action("TS", Q, LC_SUPERPOSITION_EXCL, factors(1.35f, 0, 0.75f), {1}, 1)
                           .action("UDL", Q, LC_SUPERPOSITION_COND, factors(1.35f, 0, 0.4f), {2}, 1)
                           .wind({3})
                           .model();
    EXPECT_EQ(governing(road, situation(PERSISTENT), {10, 20, 5}), "45 = 1.35*1+1.35*2+0.9*3 (TS + UDL)");
    EXPECT_EQ(governing(road, situation(PERSISTENT), {10, 20, 50}), "95.925 = 1.0125*1+0.54*2+1.5*3 (W)");
    EXPECT_EQ(governing(road, situation(with(PERSISTENT, {{"groups", "apart"}})), {10, 20, 5}),
              "41.625 = 1.0125*1+1.35*2+0.9*3 (UDL)");
}

TEST(LoadGroups, ExcludeEachOtherWhereTheSituationSaysSo)
{
    const Model road = ModelBuilder()
                           .action("TS", Q, LC_SUPERPOSITION_EXCL, factors(1.5f, 0, 0.5f), {1}, 1)
                           .action("FOOT", Q, LC_SUPERPOSITION_COND, factors(1.5f, 0, 0.5f), {2}, 2)
                           .model();
    EXPECT_EQ(governing(road, situation(PERSISTENT), {10, 8}), "21 = 1.5*1+0.75*2 (TS)");
    EXPECT_EQ(governing(road, situation(with(PERSISTENT, {{"groups", "exclude"}})), {10, 8}),
              "15 = 1.5*1 (TS)");
}

TEST(Always, VariableActionsActThoughTheyAreFavourable)
{
    const LCM_Situation always = situation(with(QUASI_PERMANENT, {{"always", "yes"}}));
    const Model model = ModelBuilder().imposed({1, 2}).model();
    EXPECT_EQ(governing(model, always, {-10, 4}), "-1.8 = 0.3*1+0.3*2");
    EXPECT_EQ(governing(model, situation(QUASI_PERMANENT), {-10, 4}), "1.2 = 0.3*2");
}

TEST(Sum, TakesOneAlternativeOfEachBracket)
{
    Entries sum{{"G", "1.2"},
                {"P", "1"},
                {"sum", "1.6*L + (0.5*LR or 0.3*S or 0.5*R)"},
                {"A", "none"},
                {"E", "none"}};
    const Model model = ModelBuilder()
                            .permanent({1})
                            .action("L", Q, LC_SUPERPOSITION_COND, factors(1, 0), {2, 3})
                            .action("LR", Q, LC_SUPERPOSITION_COND, factors(1, 0), {4})
                            .action("S", Q, LC_SUPERPOSITION_EXCL, factors(1, 0), {5})
                            .action("W", Q, LC_SUPERPOSITION_EXCL, factors(1, 0), {6})
                            .model();
    EXPECT_EQ(governing(model, situation(sum), {10, 5, -5, 4, 10, 99}), "23 = 1.2*1+1.6*2+0.3*5");
    // L: 4 selections; of the bracket LR, S or nothing
    EXPECT_EQ(countChoices(plan(model, situation(sum))).all, 12);
}

TEST(SeveralExpressions, TheLargestGoverns)
{
    const Entries a = with(PERSISTENT, {{"lead", "KFI*Gamu*Psi0"}});
    const Entries b = with(PERSISTENT, {{"G", "KFI*XSI*Gamu | Gamf"}});
    const Model model = ModelBuilder().permanent({1}).imposed({2}).model();
    EXPECT_EQ(governing(model, situation({}, {a, b}), {100, 10}),
              "145.5 = 1.35*1+1.05*2"); // 6.10a: nobody leads
    EXPECT_EQ(governing(model, situation({}, {a, b}), {10, 100}), "161.475 = 1.1475*1+1.5*2 (Q)");
}

TEST(SeveralExpressions, SharedVectorsCountOnceForTheSituation)
{
    const Plan twice =
        plan(ModelBuilder().permanent({1}).snow({2}).model(), situation({}, {PERSISTENT, PERSISTENT}));
    EXPECT_EQ(countChoices(twice).all, 8);
    EXPECT_EQ(countDistinct(twice).ofExpressions[1], 4);
    EXPECT_EQ(countDistinct(twice).all, 4);
}

TEST(ExcludingGroups, AreFreeToRestWhereTheLeadingActionGivesThemNone)
{
    const Entries entries = with(PERSISTENT, {{"groups", "exclude"}, {"others Q when W leads", "none"}});
    const Model model = ModelBuilder()
                            .permanent({1})
                            .action("Q", Q, LC_SUPERPOSITION_PERC, factors(1.5f, 1, 0.7f), {2}, 1)
                            .wind({3})
                            .model();
    // Q has to act, at best with its favourable factor; beside W it can't.
    EXPECT_EQ(governing(model, situation(entries), {0, -10, -20}), "-7 = 1.35*1+0.7*2");
    EXPECT_EQ(governing(model, situation(entries), {0, -10, 1}), "1.5 = 1.35*1+1.5*3 (W)");
}

TEST(Lead, NoneNeverLeads)
{
    const LCM_Situation noSnow = situation(with(PERSISTENT, {{"lead S", "none"}}));
    EXPECT_EQ(governing(three(), noSnow, {0, 10, 1}), "9 = 0.75*2+1.5*3 (W)");
    EXPECT_EQ(governing(three(), noSnow, {0, 10, 0}), "7.5 = 0.75*2");
}

} // namespace
