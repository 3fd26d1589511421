/// Numbers that others have published, or that can be worked out by hand.

#include <gmock/gmock.h>

#include "tests/combine/samples.h"

namespace {

using namespace samples;
using ::testing::IsSupersetOf;
using ::testing::UnorderedElementsAre;

constexpr auto Q = Category::Variable;

/// A roof: its weight, snow and wind of one load case each.
Model roof() { return ModelBuilder().permanent({1}).snow({2}).wind({3}).model(); }

TEST(SnowAndWind, PersistentCombinationsLetEachLead)
{
    const auto keys = keysOf(plan(roof(), situation(PERSISTENT)));
    EXPECT_THAT(keys, IsSupersetOf({"1.35*1+1.5*2+0.9*3", "1.35*1+0.75*2+1.5*3"}));
    // 1.35 or 1; nothing, S, W, S with W, W with S
    EXPECT_EQ(keys.size(), 10u);
}

TEST(SnowAndWind, CharacteristicCombinations)
{
    EXPECT_THAT(keysOf(plan(roof(), situation(CHARACTERISTIC))),
                UnorderedElementsAre("1*1", "1*1+1*2", "1*1+1*3", "1*1+1*2+0.6*3", "1*1+0.5*2+1*3"));
    const Model withImposed = ModelBuilder().permanent({1}).snow({2}).wind({3}).imposed({4}).model();
    EXPECT_THAT(keysOf(plan(withImposed, situation(CHARACTERISTIC))),
                IsSupersetOf({"1*1+1*2+0.7*4", "1*1+1*2+0.6*3", "1*1+0.5*2+1*3"}));
}

TEST(SnowAndWind, FrequentCombinations)
{
    EXPECT_THAT(keysOf(plan(roof(), situation(FREQUENT))),
                UnorderedElementsAre("1*1", "1*1+0.2*2", "1*1+0.2*3"));
    const Model withImposed = ModelBuilder().permanent({1}).snow({2}).imposed({4}).model();
    EXPECT_THAT(keysOf(plan(withImposed, situation(FREQUENT))), IsSupersetOf({"1*1+0.2*2+0.3*4"}));
}

TEST(UnitedKingdom, BeamByExpression610bHas5496KilonewtonsAMetre)
{
    const Model beam = ModelBuilder().permanent({1}).imposed({11}).constant("XSI", 0.925f).model();
    const Entries b = with(PERSISTENT, {{"G", "KFI*XSI*Gamu | Gamf"}});
    // 0.925 * 1.35 * 30.2 + 1.5 * 11.5 = 37.71225 + 17.25
    EXPECT_EQ(governing(beam, situation(b), {30.2, 11.5}), "54.96225 = 1.24875*1+1.5*11 (Q)");
}

Model hall(bool isOneImposedAction)
{
    ModelBuilder builder;
    builder.permanent({1, 2}, LC_SUPERPOSITION_PERC).wind({11, 12, 13, 14});
    if (isOneImposedAction) {
        return builder.imposed({21, 22, 23, 24}).model();
    }
    for (int i = 0; i < 4; ++i) {
        builder.action("Q_" + std::string(1, static_cast<char>('A' + i)), Q, LC_SUPERPOSITION_COND,
                       factors(1.5f, 0, 0.7f, 0.5f, 0.3f), {21 + i});
    }
    return builder.model();
}

TEST(Hall, FourExclusiveWindsAndFourImposedActionsHave900Choices)
{
    const Plan made = plan(hall(false), situation(PERSISTENT));
    EXPECT_EQ(countChoices(made).all, 900);
    EXPECT_EQ(countDistinct(made).all, 900);
    EXPECT_EQ(keysOf(made).size(), 900u);
}

TEST(Hall, OneImposedActionOfFourLoadCasesHas560Choices)
{
    EXPECT_EQ(countChoices(plan(hall(true), situation(PERSISTENT))).all, 560);
}

/// A canopy of which the lengths of the published lists are known: they are those of two permanent load cases with a
/// factor each, one snow, six exclusive winds, and an accidental load.
Model canopy()
{
    return ModelBuilder()
        .permanent({1, 2}, LC_SUPERPOSITION_PERC)
        .snow({11})
        .wind({21, 22, 23, 24, 25, 26})
        .action("A", Category::Accidental, LC_SUPERPOSITION_EXCL, factors(1, 0, 0, 0, 0), {31})
        .model();
}

TEST(Canopy, ListsHaveThePublishedLengths)
{
    const auto length = [](const Entries& entries) {
        return countDistinct(plan(canopy(), situation(entries))).all;
    };
    EXPECT_EQ(length(PERSISTENT), 80);
    EXPECT_EQ(length(CHARACTERISTIC), 19 + 1); // the published list leaves the weight alone out
    EXPECT_EQ(length(FREQUENT), 7 + 1);        // so does this one
    EXPECT_EQ(length(QUASI_PERMANENT), 1);
    EXPECT_EQ(length(ACCIDENTAL), 8);
}

/// A railway structure of which the lengths of the published lists are known, and not its model: three permanent load
/// cases with a factor each, two single variable ones and two temperatures are the smallest one that has them all.
Model railway()
{
    return ModelBuilder()
        .permanent({1, 2, 3}, LC_SUPERPOSITION_PERC)
        .action("L", Q, LC_SUPERPOSITION_EXCL, factors(1.5f, 0, 0.7f, 0.5f, 0), {11})
        .action("W", Q, LC_SUPERPOSITION_EXCL, factors(1.5f, 0, 1, 0, 0), {21})
        .action("T", Q, LC_SUPERPOSITION_EXCL, factors(1.5f, 0, 1, 0.6f, 0.5f), {31, 32})
        .action("A", Category::Accidental, LC_SUPERPOSITION_EXCL, factors(1, 0, 0, 0, 0), {41})
        .model();
}

TEST(Railway, ListsHaveThePublishedLengths)
{
    const auto length = [](const Entries& entries) {
        return countDistinct(plan(railway(), situation(entries))).all;
    };
    EXPECT_EQ(length(PERSISTENT), 136);
    EXPECT_EQ(length(CHARACTERISTIC), 16 + 1); // the published list leaves the weight alone out
    EXPECT_EQ(length(FREQUENT), 7 + 1);        // so does this one
    EXPECT_EQ(length(QUASI_PERMANENT), 3);
    EXPECT_EQ(length(ACCIDENTAL), 8);
}

} // namespace
