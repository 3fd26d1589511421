#include <gmock/gmock.h>

#include "combine/checker.h"
#include "tests/combine/samples.h"

namespace {

using namespace samples;

TEST(StoredFactor, IsItsShortestDecimal)
{
    EXPECT_EQ(shortest(0.7f), 0.7);
    EXPECT_EQ(shortest(1.35f), 1.35);
    EXPECT_EQ(decimalText(rounded(shortest(1.5f) * shortest(0.7f))),
              "1.05"); // 1.04999998 in single precision
    EXPECT_EQ(decimalText(rounded(0.85 * 1.35)), "1.1475");
}

TEST(KeyText, TakesTheSignOfANegativeFactorInPlaceOfThePlus)
{
    const Key key{{1, 1.35}, {2, 1}, {11, -1.5}, {41, 0.9}};
    EXPECT_EQ(keyText(key), "1.35*1+1*2-1.5*11+0.9*41");
    EXPECT_EQ(readKey("1.35*1+1*2-1.5*11+0.9*41"), key);
    EXPECT_EQ(keyText({}), "0");
    EXPECT_EQ(readKey("0"), Key{});
    EXPECT_EQ(readKey("0.9*41-1.5*11+1*2+1.35*1"), key);
}

TEST(KeyText, ThatIsNoKeyIsRefused)
{
    for (const char* text :
         {"", "1.35", "1.35*", "1.35*1+", "*1", "1.35*1 + 1*2", "1,35*1", "nan*1", "1*0", "1*1x", "++1*1"}) {
        EXPECT_FALSE(readKey(text)) << text;
    }
}

TEST(Checker, TellsKeysThatTheSituationDoesntAllow)
{
    const Model model = ModelBuilder().permanent({1}).imposed({2, 3}).wind({4, 5}).model();
    const LCM_Situation persistent = situation(PERSISTENT);
    const Checker checker(model, persistent);
    const auto allows = [&](const char* key) { return checker.allows(*readKey(key)); };
    EXPECT_TRUE(allows("1.35*1+1.5*2+1.5*3+0.9*4"));
    EXPECT_TRUE(allows("1*1"));
    EXPECT_FALSE(allows("1.5*2"));            // the permanent action is missing
    EXPECT_FALSE(allows("1*1+1.5*4+1.5*5"));  // two exclusive winds
    EXPECT_FALSE(allows("1*1+1.5*2+1.5*4"));  // two lead
    EXPECT_FALSE(allows("1*1+1.05*2+0.9*4")); // nobody leads
    EXPECT_FALSE(allows("1*1+1.5*2+1.05*3")); // two factors within one action
    EXPECT_FALSE(allows("1*1-1.5*2"));
    EXPECT_FALSE(allows("1*1+1.5*77")); // no such load case
}

TEST(ConcurrentValues, AreThoseOfTheSameCombination)
{
    const Model model = ModelBuilder().permanent({1}).imposed({2}).wind({3}).model();
    const Plan made = plan(model, situation(PERSISTENT));
    Envelope envelope(made, {1, 2, 3});
    const std::vector<double> moment{10, 5, -2};
    const std::vector<double> force{100, -7, 3};
    const Key key = envelope.combination(moment.data(), Envelope::Direction::Max)->key;
    EXPECT_EQ(keyText(key), "1.35*1+1.5*2");
    EXPECT_DOUBLE_EQ(envelope.value(key, force.data()), 135 - 10.5);
}

TEST(GoverningList, HasTheEnvelopeOfAllCombinations)
{
    const Model model = ModelBuilder().permanent({1}).imposed({2, 3, 4}).wind({5, 6}).snow({7}).model();
    const Plan made = plan(model, situation(PERSISTENT));
    GoverningList list(made, numbersOf(model));
    Envelope envelope(made, numbersOf(model));
    std::vector<std::vector<double>> rows;
    for (int i = 0; i < 40; ++i) {
        rows.emplace_back();
        for (int k = 0; k < 7; ++k) {
            rows.back().push_back((i * 13 + k * 29) % 17 - 8);
        }
        EXPECT_TRUE(list.add(rows.back().data()));
    }
    EXPECT_LT(list.combinations().size(), 80u);
    for (const std::vector<double>& row : rows) {
        double most = -1e9;
        for (const Combination& each : list.combinations()) {
            most = std::max(most, envelope.value(each.key, row.data()));
        }
        EXPECT_NEAR(most, envelope.extremes(row.data())->max.value, 1e-9);
    }
}

TEST(Enumeration, IsRefusedAboveItsLimitAndStopsWhenAsked)
{
    const Plan made = plan(ModelBuilder().permanent({1}).imposed({2, 3, 4}).model(), situation(PERSISTENT));
    ASSERT_EQ(countChoices(made).all, 16);
    int told = 0;
    EXPECT_FALSE(enumerate(made, 15, [&](const Combination&) { return ++told > 0; }));
    EXPECT_EQ(told, 0);
    EXPECT_TRUE(enumerate(made, 16, [&](const Combination&) { return ++told < 3; }));
    EXPECT_EQ(told, 3);
}

} // namespace
