/// What holds for every model, over random ones.

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <functional>

#include "tests/combine/random_model.h"
#include "tests/combine/samples.h"

namespace {

using namespace samples;

class Properties : public ::testing::Test
{
  protected:
    /// Calls for random models with a row of responses, where there are combinations.
    void forModels(const std::function<void(const random_model::Case&, const std::vector<double>&)>& check)
    {
        std::mt19937 random(11);
        for (int i = 0; i < 150; ++i) {
            const random_model::Case each = random_model::make(random, 3);
            std::vector<double> row;
            for (std::size_t k = 0; k < each.model.loadCases.size(); ++k) {
                row.push_back(std::uniform_real_distribution<double>(-10, 10)(random));
            }
            if (extremes(each.model, each.situation, row).max.expression >= 0) {
                check(each, row);
            }
        }
    }

    static Extremes extremes(const Model& model, const LCM_Situation& situation,
                             const std::vector<double>& row)
    {
        const Plan made = plan(model, situation);
        return *Envelope(made, numbersOf(model)).extremes(row.data());
    }
};

/// Actions that lead with no less than they accompany with, as those of every code do.
Model sane(Model model)
{
    for (Action& action : model.actions) {
        action.factors[3] = std::min(action.factors[3], 1.0f);
        action.factors[5] = std::min(action.factors[5], action.factors[4]);
    }
    return model;
}

/// Whether a load case more lets an action act that did not act before, or takes a choice away from it.
bool isChangedByALoadCase(const Action& action, const Model& model)
{
    const bool isUsed = std::any_of(model.loadCases.begin(), model.loadCases.end(),
                                    [&](const LoadCase& loadCase) { return loadCase.action == action.name; });
    return action.superposition == LC_SUPERPOSITION_ALEX || action.superposition == LC_SUPERPOSITION_PERC ||
           !isUsed || action.category == Category::Accidental || action.category == Category::Seismic;
}

/// Whether an action in `short` must act: one more that acts then takes the place of the first short action from it.
bool mustAShortActionAct(const LCM_Situation& situation, const Model& model)
{
    return std::any_of(model.actions.begin(), model.actions.end(), [&](const Action& action) {
        const auto& names = situation.expressions.back().shortActions;
        const bool isShort = std::find(names.begin(), names.end(), action.name) != names.end();
        return isShort && (action.superposition == LC_SUPERPOSITION_PERM ||
                           action.superposition == LC_SUPERPOSITION_PERC ||
                           action.superposition == LC_SUPERPOSITION_ALEX);
    });
}

TEST_F(Properties, ALoadCaseWithoutResponseChangesNothing)
{
    const std::vector<LCM_Situation> situations{
        situation(PERSISTENT), situation(FREQUENT), situation(with(CHARACTERISTIC, {{"at-most", "2"}})),
        situation(with(PERSISTENT, {{"groups", "exclude"}, {"short", "S, W, T"}, {"second", "KFI*Gamu*0"}}))};
    forModels([&](const random_model::Case& each, const std::vector<double>& row) {
        const Model model = sane(each.model);
        std::vector<double> longer = row;
        longer.push_back(0);
        for (const Action& action : model.actions) {
            if (isChangedByALoadCase(action, model)) {
                continue;
            }
            Model more = model;
            LoadCase loadCase;
            loadCase.number = 9999;
            loadCase.action = action.name;
            more.loadCases.push_back(loadCase);
            for (const LCM_Situation& tried : situations) {
                if (mustAShortActionAct(tried, model)) {
                    continue;
                }
                EXPECT_NEAR(extremes(more, tried, longer).max.value, extremes(model, tried, row).max.value,
                            1e-9)
                    << action.name << " of\n"
                    << random_model::describe(each);
            }
        }
    });
}

TEST_F(Properties, ScalingResponsesScalesTheEnvelope)
{
    forModels([](const random_model::Case& each, const std::vector<double>& row) {
        std::vector<double> scaled = row;
        for (double& response : scaled) {
            response *= 4;
        }
        EXPECT_DOUBLE_EQ(extremes(each.model, each.situation, scaled).max.value,
                         4 * extremes(each.model, each.situation, row).max.value);
    });
}

TEST_F(Properties, TheOrderOfLoadCasesChangesNothing)
{
    forModels([](const random_model::Case& each, const std::vector<double>& row) {
        Model turned = each.model;
        std::reverse(turned.loadCases.begin(), turned.loadCases.end());
        std::reverse(turned.actions.begin(), turned.actions.end());
        EXPECT_NEAR(extremes(turned, each.situation, {row.rbegin(), row.rend()}).max.value,
                    extremes(each.model, each.situation, row).max.value, 1e-9);
    });
}

TEST_F(Properties, TheMinimumIsTheMaximumOfTheOtherSign)
{
    forModels([](const random_model::Case& each, const std::vector<double>& row) {
        std::vector<double> turned = row;
        for (double& response : turned) {
            response = -response;
        }
        EXPECT_DOUBLE_EQ(extremes(each.model, each.situation, row).min.value,
                         0.0 - extremes(each.model, each.situation, turned).max.value);
    });
}

TEST_F(Properties, AGreaterFactorNeverLowersTheMaximumOfUnfavourableTerms)
{
    forModels([](const random_model::Case& each, const std::vector<double>& row) {
        std::vector<double> unfavourable = row;
        for (double& response : unfavourable) {
            response = std::fabs(response);
        }
        Model greater = each.model;
        for (Action& action : greater.actions) {
            action.factors[0] += 0.25f;
        }
        EXPECT_GE(extremes(greater, each.situation, unfavourable).max.value + 1e-9,
                  extremes(each.model, each.situation, unfavourable).max.value)
            << random_model::describe(each);
    });
}

TEST_F(Properties, AUnionOfSituationsHasTheLargerOfTheirEnvelopes)
{
    const LCM_Situation a = situation(PERSISTENT);
    const LCM_Situation b = situation(CHARACTERISTIC);
    const LCM_Situation both = situation({}, {PERSISTENT, CHARACTERISTIC});
    forModels([&](const random_model::Case& each, const std::vector<double>& row) {
        EXPECT_DOUBLE_EQ(
            extremes(each.model, both, row).max.value,
            std::max(extremes(each.model, a, row).max.value, extremes(each.model, b, row).max.value));
    });
}

TEST_F(Properties, SeveralThreadsGiveWhatOneGives)
{
    forModels([](const random_model::Case& each, const std::vector<double>& row) {
        std::vector<double> rows;
        for (int i = 0; i < 600; ++i) {
            for (const double response : row) {
                rows.push_back(response * (i % 7 - 3));
            }
        }
        const Plan made = plan(each.model, each.situation);
        const auto one = extremesOfAll(made, numbersOf(each.model), rows.data(), 600, 1);
        const auto two = extremesOfAll(made, numbersOf(each.model), rows.data(), 600, 2);
        ASSERT_EQ(one->extremes.size(), 600u);
        for (std::size_t i = 0; i < one->extremes.size(); ++i) {
            ASSERT_EQ(one->extremes[i].max.value, two->extremes[i].max.value);
            ASSERT_EQ(one->extremes[i].min.leading, two->extremes[i].min.leading);
        }
        ASSERT_EQ(one->choices, two->choices);
    });
}

TEST_F(Properties, ResponsesSideBySideGiveTheSameAsEachAlone)
{
    forModels([](const random_model::Case& each, const std::vector<double>& row) {
        constexpr std::size_t COUNT = 7; // a number of which the last responses fill no block
        std::vector<double> rows;
        for (std::size_t i = 0; i < COUNT; ++i) {
            std::vector<double> turned = row;
            std::rotate(turned.begin(), turned.begin() + static_cast<std::ptrdiff_t>(i % row.size()),
                        turned.end());
            rows.insert(rows.end(), turned.begin(), turned.end());
        }
        const Plan made = plan(each.model, each.situation);
        const auto many = extremesOfAll(made, numbersOf(each.model), rows.data(), COUNT, 1);
        Envelope envelope(made, numbersOf(each.model));
        for (std::size_t i = 0; i < COUNT; ++i) {
            const double* const alone = rows.data() + i * row.size();
            const Extremes extremes = *envelope.extremes(alone);
            ASSERT_EQ(many->extremes[i].max.value, extremes.max.value);
            ASSERT_EQ(many->extremes[i].min.value, extremes.min.value);
            ASSERT_EQ(many->extremes[i].min.leading, extremes.min.leading);
            if (extremes.max.expression < 0) {
                continue;
            }
            const auto choice = many->choices.begin() + static_cast<std::ptrdiff_t>(2 * i * many->width);
            const std::vector<int> acts(choice, choice + static_cast<std::ptrdiff_t>(many->width));
            const Key key = envelope.combination(alone, Direction::Max, extremes.max.expression, acts).key;
            ASSERT_TRUE(key == envelope.combination(alone, Direction::Max)->key);
            ASSERT_NEAR(envelope.value(key, alone), extremes.max.value,
                        1e-12 * std::max(1.0, std::abs(extremes.max.value)));
        }
    });
}

} // namespace
