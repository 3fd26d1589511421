#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "tests/combine/samples.h"

namespace {

using namespace samples;

TEST(NoLoadCases, HaveOneEmptyCombination)
{
    const Model empty = ModelBuilder().permanent({}).wind({}).model();
    EXPECT_EQ(governing(empty, situation(PERSISTENT), {}), "0 = 0");
    EXPECT_EQ(countChoices(plan(empty, situation(PERSISTENT))).all, 1);
    EXPECT_EQ(countDistinct(plan(empty, situation(PERSISTENT))).all, 1);
}

TEST(NoAccidentalAction, HasNoCombination)
{
    const Plan none = plan(ModelBuilder().permanent({1}).model(), situation(ACCIDENTAL));
    EXPECT_EQ(countChoices(none).all, 0);
    EXPECT_EQ(countDistinct(none).all, 0);
    EXPECT_TRUE(keysOf(none).empty());
    EXPECT_EQ(governing(ModelBuilder().permanent({1}).model(), situation(ACCIDENTAL), {1}), "none");
    const double row = 1;
    EXPECT_EQ(Envelope(none, {1}).extremes(&row)->max.expression, -1);
}

TEST(NoVariableAction, LeavesThePermanentOnes)
{
    EXPECT_EQ(governing(ModelBuilder().permanent({1}).model(), situation(PERSISTENT), {10}), "13.5 = 1.35*1");
}

TEST(ResponsesOfZero, KeepThePermanentActionsAlone)
{
    const Model model = ModelBuilder().permanent({1}).imposed({2}).wind({3}).model();
    EXPECT_EQ(governing(model, situation(PERSISTENT), {0, 0, 0}), "0 = 1.35*1");
}

TEST(ResponsesThatAreNoNumber, AreRefusedWithTheirColumn)
{
    const Plan made = plan(ModelBuilder().permanent({1}).imposed({2, 3, 4}).model(), situation(PERSISTENT));
    for (const double bad : {NAN, INFINITY, -INFINITY}) {
        for (std::size_t column = 0; column < 4; ++column) {
            std::vector<double> row{1, 2, 3, 4};
            row[column] = bad;
            Envelope envelope(made, {1, 2, 3, 4});
            EXPECT_FALSE(envelope.extremes(row.data()));
            EXPECT_FALSE(envelope.combination(row.data(), Envelope::Direction::Max));
            EXPECT_EQ(envelope.badColumn(row.data()), column);
        }
    }
}

TEST(LoadCaseWithoutAColumn, IsTold)
{
    const Plan made = plan(ModelBuilder().permanent({1}).imposed({2, 3}).model(), situation(PERSISTENT));
    EXPECT_THAT(Envelope(made, {3, 1}).missing(), ::testing::ElementsAre(2));
}

TEST(Columns, MayStandInAnyOrder)
{
    const Plan made = plan(ModelBuilder().permanent({1}).imposed({2, 3}).model(), situation(PERSISTENT));
    const std::vector<double> row{3, 100, 1, 2};
    EXPECT_DOUBLE_EQ(Envelope(made, {3, 99, 1, 2}).extremes(row.data())->max.value, 1.35 + 1.5 * 5);
}

TEST(ManyLoadCases, OfOneActionAreCombined)
{
    std::vector<int> numbers(999999);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        numbers[i] = static_cast<int>(i) + 1;
    }
    const Plan made = plan(ModelBuilder().wind(numbers).model(), situation(PERSISTENT));
    EXPECT_EQ(countChoices(made).all, 1000000);
    std::vector<double> row(numbers.size(), 1);
    row[777777] = 5;
    Envelope envelope(made, numbers);
    EXPECT_EQ(keyText(envelope.combination(row.data(), Envelope::Direction::Max)->key), "1.5*777778");
    numbers.resize(100000);
    const Plan all = plan(ModelBuilder().permanent(numbers).model(), situation(CHARACTERISTIC));
    EXPECT_TRUE(
        enumerate(all, 10, [&](const Combination& each) { return each.key.size() == numbers.size(); }));
}

TEST(ManyActions, AreCombined)
{
    ModelBuilder builder;
    std::vector<double> row;
    for (int i = 1; i <= 10000; ++i) {
        builder.action("Q_" + std::to_string(i), Category::Variable, LC_SUPERPOSITION_COND,
                       factors(1.5f, 0, 0.5f), {i});
        row.push_back(i == 5000 ? 2 : 1);
    }
    const Model model = builder.model();
    const Plan made = plan(model, situation(PERSISTENT));
    EXPECT_DOUBLE_EQ(Envelope(made, numbersOf(model)).extremes(row.data())->max.value, 3 + 0.75 * 9999);
    // n 2^(n-1) + 1
    EXPECT_EQ(countChoices(made).all, (BigInt(1) << 9999) * 10000 + 1);
}

} // namespace
