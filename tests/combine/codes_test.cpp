/// What each superposition code means, by hand. G rests in all of these models unless it is the one looked at.

#include <gmock/gmock.h>

#include "tests/combine/samples.h"

namespace {

using namespace samples;
constexpr auto MIN = Envelope::Direction::Min;

/// Three load cases of one variable action.
std::string variable(Superposition superposition, const std::vector<double>& row, const Entries& more = {})
{
    return governing(ModelBuilder().imposed({1, 2, 3}, superposition).model(),
                     situation(with(PERSISTENT, more)), row);
}

TEST(VariableAction, CondActsWhereItIsUnfavourable)
{
    EXPECT_EQ(variable(LC_SUPERPOSITION_COND, {4, -2, 6}), "15 = 1.5*1+1.5*3 (Q)");
    EXPECT_EQ(variable(LC_SUPERPOSITION_COND, {-4, -2, -6}), "0 = 0");
}

TEST(VariableAction, ExclActsWithOneLoadCase)
{
    EXPECT_EQ(variable(LC_SUPERPOSITION_EXCL, {4, -2, 6}), "9 = 1.5*3 (Q)");
    EXPECT_EQ(variable(LC_SUPERPOSITION_EXCL, {-4, -2, -6}), "0 = 0");
}

TEST(VariableAction, UnsiActsWithTheWorseSigns)
{
    EXPECT_EQ(variable(LC_SUPERPOSITION_UNSI, {4, -2, 6}), "18 = 1.5*1-1.5*2+1.5*3 (Q)");
}

TEST(VariableAction, UsexActsWithOneLoadCaseOfTheWorseSign)
{
    EXPECT_EQ(variable(LC_SUPERPOSITION_USEX, {4, -8, 6}), "12 = -1.5*2 (Q)");
}

TEST(VariableAction, AlexActsThoughAllAreFavourable)
{
    // Gamf 0: the favourable factor makes it 0, yet the action acts. In the characteristic combination it accompanies,
    // nobody leading: 0.7 times the least favourable load case.
    EXPECT_EQ(variable(LC_SUPERPOSITION_ALEX, {-4, -2, -6}), "0 = 0");
    const Model model = ModelBuilder().imposed({1, 2, 3}, LC_SUPERPOSITION_ALEX).model();
    EXPECT_EQ(governing(model, situation(CHARACTERISTIC), {-4, -2, -6}), "-1.4 = 0.7*2");
    EXPECT_EQ(governing(model, situation(CHARACTERISTIC), {-4, 5, -6}), "5 = 1*2 (Q)");
}

TEST(VariableAction, PermActsAsAWhole)
{
    EXPECT_EQ(variable(LC_SUPERPOSITION_PERM, {4, -2, 6}), "12 = 1.5*1+1.5*2+1.5*3 (Q)");
    const Model model = ModelBuilder().imposed({1, 2, 3}, LC_SUPERPOSITION_PERM).model();
    EXPECT_EQ(governing(model, situation(CHARACTERISTIC), {4, -20, 6}), "-7 = 0.7*1+0.7*2+0.7*3");
}

TEST(VariableAction, PercActsWithAFactorForEachLoadCase)
{
    const Model model =
        ModelBuilder()
            .action("Q", Category::Variable, LC_SUPERPOSITION_PERC, factors(1.5f, 0.5f, 0.7f), {1, 2})
            .model();
    EXPECT_EQ(governing(model, situation(PERSISTENT), {4, -2}), "5 = 1.5*1+0.5*2 (Q)");
}

TEST(VariableAction, ExexPoolsTheSuffixesOfOneFirstPart)
{
    const Model model =
        ModelBuilder()
            .action("L_1", Category::Variable, LC_SUPERPOSITION_EXEX, factors(1.5f, 0, 0.7f), {1, 2})
            .action("L_2", Category::Variable, LC_SUPERPOSITION_EXEX, factors(1.35f, 0, 1), {3})
            .action("M_1", Category::Variable, LC_SUPERPOSITION_EXEX, factors(1.5f, 0, 0.5f), {4})
            .model();
    // Pool L leads with 2: 15 + 0.75 * 12; pool M leads: 18 and L accompanies with the better of 1.05 * 10 and 1.35 * 11.
    EXPECT_EQ(governing(model, situation(PERSISTENT), {4, 10, 11, 12}), "32.85 = 1.35*3+1.5*4 (M_1)");
}

TEST(PermanentAction, PermTakesOneFactorForAll)
{
    const Model model = ModelBuilder().permanent({1, 2}).model();
    EXPECT_EQ(governing(model, situation(PERSISTENT), {10, -4}), "8.1 = 1.35*1+1.35*2");
    EXPECT_EQ(governing(model, situation(PERSISTENT), {4, -10}), "-6 = 1*1+1*2");
    EXPECT_EQ(governing(model, situation(PERSISTENT), {4, -10}, MIN), "-8.1 = 1.35*1+1.35*2");
}

TEST(PermanentAction, PercTakesAFactorForEachLoadCase)
{
    const Model model = ModelBuilder().permanent({1, 2}, LC_SUPERPOSITION_PERC).model();
    EXPECT_EQ(governing(model, situation(PERSISTENT), {10, -4}), "9.5 = 1.35*1+1*2");
}

TEST(PermanentAction, CondIsAbsentWhereItIsFavourable)
{
    const Model model = ModelBuilder().permanent({1, 2}, LC_SUPERPOSITION_COND).model();
    EXPECT_EQ(governing(model, situation(PERSISTENT), {10, -4}), "13.5 = 1.35*1");
    EXPECT_EQ(countChoices(plan(model, situation(PERSISTENT))).all, 4);
}

TEST(PermanentAction, AlexTakesOneLoadCaseInAnyCase)
{
    const Model model = ModelBuilder().permanent({1, 2}, LC_SUPERPOSITION_ALEX).model();
    EXPECT_EQ(governing(model, situation(PERSISTENT), {-10, -4}), "-4 = 1*2");
}

TEST(PermanentAction, XsiReducesNeitherPrestressNorSettlement)
{
    const Model model = ModelBuilder()
                            .permanent({1})
                            .action("P", Category::Prestress, LC_SUPERPOSITION_PERM, factors(1.1f, 1), {2})
                            .action("SET", Category::Permanent, LC_SUPERPOSITION_COND, factors(1.2f, 0), {3})
                            .model();
    const Entries b = with(PERSISTENT, {{"G", "KFI*XSI*Gamu | Gamf"}, {"G SET", "KFI*Gamu | Gamf"}});
    EXPECT_EQ(governing(model, situation(b), {100, 100, 100}), "344.75 = 1.1475*1+1.1*2+1.2*3");
}

TEST(AccidentalAction, OneActsInAnyCase)
{
    const Model model = ModelBuilder()
                            .action("A", Category::Accidental, LC_SUPERPOSITION_EXCL, factors(1, 0), {1, 2})
                            .action("A_F", Category::Accidental, LC_SUPERPOSITION_COND, factors(1, 0), {3, 4})
                            .model();
    EXPECT_EQ(governing(model, situation(ACCIDENTAL), {-5, -3, -2, -4}), "-2 = 1*3");
    EXPECT_EQ(governing(model, situation(ACCIDENTAL), {9, 10, 6, 7}), "13 = 1*3+1*4");
    EXPECT_EQ(governing(model, situation(with(ACCIDENTAL, {{"may-be-none", "yes"}})), {-5, -3, -2, -4}),
              "0 = 0");
}

TEST(AccidentalAction, LeadingFactorDependsOnWhichOneActs)
{
    const Model model = ModelBuilder()
                            .imposed({1})
                            .action("A", Category::Accidental, LC_SUPERPOSITION_EXCL, factors(1, 0), {2})
                            .action("A_F", Category::Accidental, LC_SUPERPOSITION_EXCL, factors(1, 0), {3})
                            .model();
    const LCM_Situation fire = situation(with(ACCIDENTAL, {{"lead when A_F acts", "Psi2"}}));
    EXPECT_EQ(governing(model, fire, {10, 1, 2.5}), "6 = 0.5*1+1*2 (Q)");
    EXPECT_EQ(governing(model, fire, {10, 1, 4}), "7 = 0.3*1+1*3"); // both factors are Psi2: nobody leads
}

TEST(AccidentalAction, GamaGoesByItsZeroRule)
{
    Factors unset = factors(1, 0);
    unset[2] = 0;
    Factors none = factors(1, 0);
    none[2] = 0.001f;
    const auto model = [](const Factors& f) {
        return ModelBuilder().action("A", Category::Accidental, LC_SUPERPOSITION_EXCL, f, {1}).model();
    };
    EXPECT_EQ(governing(model(unset), situation(ACCIDENTAL), {8}), "8 = 1*1");
    EXPECT_EQ(governing(model(none), situation(ACCIDENTAL), {8}), "0 = 0");
}

TEST(SeismicAction, ComponentsActTogetherWithTheWorseSigns)
{
    const Model model = ModelBuilder()
                            .action("E", Category::Seismic, LC_SUPERPOSITION_EXCL, factors(1, 0), {1, 2, 3})
                            .model();
    EXPECT_EQ(governing(model, situation(with(SEISMIC, {{"components", "1, 0.3"}})), {10, -20, 5}),
              "24.5 = 0.3*1-1*2+0.3*3");
    EXPECT_EQ(governing(model, situation(SEISMIC), {10, -20, 5}), "10 = 1*1");
}

TEST(LoadCaseWithoutAction, HasFactorsOfItsOwnOrIsLeftOut)
{
    LoadCase live, dead, bare;
    live.number = 7;
    live.own = factors(1.5f, 0, 0.7f);
    dead.number = 8;
    dead.own = factors(1.35f, 1);
    bare.number = 9;
    const Model model = ModelBuilder().loadCase(live).loadCase(dead).loadCase(bare).model();
    EXPECT_EQ(governing(model, situation(PERSISTENT), {-10, -10, 5}), "-10 = 1*8");
    EXPECT_EQ(governing(model, situation(PERSISTENT), {10, 10, 5}), "28.5 = 1.5*7+1.35*8 (LC 7)");
    const Plan made = plan(model, situation(PERSISTENT));
    ASSERT_EQ(made.prepared.leftOut.size(), 1u);
    EXPECT_EQ(made.prepared.leftOut[0].number, 9);
}

TEST(Imperfection, ActsOnlyWhereTheSituationBringsItIn)
{
    LoadCase left, right;
    left.number = 71;
    right.number = 72;
    left.isImperfection = right.isImperfection = true;
    const Model model = ModelBuilder().loadCase(left).loadCase(right).model();
    EXPECT_EQ(governing(model, situation(PERSISTENT), {3, 4}), "0 = 0");
    EXPECT_EQ(plan(model, situation(PERSISTENT)).prepared.leftOut.size(), 2u);
    EXPECT_EQ(governing(model, situation(with(PERSISTENT, {{"I", "1"}})), {3, 4}), "4 = 1*72");
}

TEST(Refused, EachWithItsNumberAndReason)
{
    LoadCase stray, bad, broken;
    stray.number = 5;
    stray.action = "X";
    bad.number = 6;
    bad.finding = "'Psi0' is above 1";
    broken.number = 7;
    broken.own = factors(NAN, 0);
    Model model = ModelBuilder().permanent({1, 1}).loadCase(stray).loadCase(bad).loadCase(broken).model();
    const Plan made = plan(model, situation(PERSISTENT));
    std::vector<std::string> told;
    for (const Remark& remark : made.prepared.refused) {
        told.push_back(std::to_string(remark.number) + " " + remark.reason);
    }
    EXPECT_THAT(told, ::testing::ElementsAre("1 the number stands twice", "5 action X is not known",
                                             "6 'Psi0' is above 1", "7 a factor of its own is not a number"));
    model.constants.clear();
    EXPECT_EQ(plan(model, situation(PERSISTENT)).prepared.refused.back().reason,
              "the design code doesn't define KFI");
}

} // namespace
