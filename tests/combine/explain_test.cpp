#include "combine/explain.h"

#include <gmock/gmock.h>

#include "tests/combine/samples.h"

namespace {

using namespace samples;
using ::testing::ElementsAre;

/// "1.05*2 Q Others KFI*Gamu*Psi0 = 1*1.5*0.7" for each term of the combination that governs the maximum.
std::vector<std::string> origins(const Model& model, const LCM_Situation& situation,
                                 const std::vector<double>& row)
{
    const char* const roles[] = {"G", "P", "lead", "others", "second", "A", "E", "I"};
    const Plan made = plan(model, situation);
    const auto combination =
        Envelope(made, numbersOf(model)).combination(row.data(), Envelope::Direction::Max);
    std::vector<std::string> lines;
    for (const Origin& each : explain(model, situation, made, combination.value_or(Combination{}))) {
        lines.push_back(keyText({{each.number, each.factor}}) + ' ' + each.action + ' ' +
                        roles[static_cast<int>(each.role)] + ' ' + each.term + " = " + each.values);
    }
    return lines;
}

TEST(Origin, NamesActionRoleAndTermOfEachFactor)
{
    const Model model = ModelBuilder().permanent({1, 2}, LC_SUPERPOSITION_PERC).snow({3}).wind({4}).model();
    EXPECT_THAT(origins(model, situation(PERSISTENT), {10, -1, 2, 5}),
                ElementsAre("1.35*1 G G KFI*Gamu = 1*1.35", "1*2 G G Gamf = 1",
                            "0.75*3 S others KFI*Gamu*Psi0 = 1*1.5*0.5", "1.5*4 W lead KFI*Gamu = 1*1.5"));
}

TEST(Origin, FollowsTheLeadingAction)
{
    const Model model = ModelBuilder().permanent({1}).snow({3}).wind({4}).model();
    const LCM_Situation danish = situation(with(PERSISTENT, {{"others S when W leads", "0.2*Gamu"}}));
    EXPECT_THAT(origins(model, danish, {1, 2, 50}),
                ElementsAre("1.35*1 G G KFI*Gamu = 1*1.35", "0.3*3 S others 0.2*Gamu = 0.2*1.5",
                            "1.5*4 W lead KFI*Gamu = 1*1.5"));
}

TEST(Origin, TellsTheOtherSignAndTheComponent)
{
    const Model model =
        ModelBuilder().action("E", Category::Seismic, LC_SUPERPOSITION_USEX, factors(1, 0), {1, 2}).model();
    EXPECT_THAT(origins(model, situation(with(SEISMIC, {{"components", "1, 0.3"}})), {-9, 2}),
                ElementsAre("-1*1 E E -1*Gama = -1*1", "0.3*2 E E 0.3*Gama = 0.3*1"));
}

TEST(Origin, TellsTheTermOfASum)
{
    const Entries sum{{"G", "1.2"}, {"P", "1"}, {"sum", "1.6*Q + 0.5*S"}, {"A", "none"}, {"E", "none"}};
    const Model model = ModelBuilder().permanent({1}).imposed({2}).snow({3}).model();
    EXPECT_THAT(origins(model, situation(sum), {1, 1, 1}),
                ElementsAre("1.2*1 G G 1.2 = 1.2", "1.6*2 Q others 1.6 = 1.6", "0.5*3 S others 0.5 = 0.5"));
}

TEST(IdleActions, AreThoseThatActInNoCombination)
{
    const Model model = ModelBuilder()
                            .permanent({1})
                            .action("A", Category::Accidental, LC_SUPERPOSITION_EXCL, factors(1, 0), {2})
                            .action("E", Category::Seismic, LC_SUPERPOSITION_EXCL, factors(1, 0), {})
                            .model();
    EXPECT_THAT(plan(model, situation(PERSISTENT)).idle, ElementsAre("A"));
    EXPECT_THAT(plan(model, situation(ACCIDENTAL)).idle, ElementsAre());
}

} // namespace
