#include "tests/combine/random_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "tests/combine/oracle.h"

namespace {

constexpr double MOST_SELECTIONS = 2000; // full enumeration of each model
constexpr int MODELS = 500;              // a test; four of them run side by side

class RandomModels : public ::testing::TestWithParam<unsigned>
{
};

TEST_P(RandomModels, AgreeWithFullEnumerationAndWithTheChecker)
{
    std::mt19937 random(GetParam());
    for (int done = 0; done < MODELS;) {
        const random_model::Case each = random_model::make(random, done % 2 + 1);
        if (oracle::selections(each.model, each.situation) > MOST_SELECTIONS) {
            continue;
        }
        ++done;
        const auto plan = mrl::combine::plan(each.model, each.situation);
        ASSERT_EQ(random_model::compare(each, plan, random), "") << random_model::describe(each);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomModels, ::testing::Values(1u, 2u, 3u, 4u));

/// How many of some random models are found wrong once their plans are spoilt.
int foundWrong(const std::function<void(mrl::combine::Plan&)>& spoil)
{
    std::mt19937 random(5);
    int found = 0;
    for (int done = 0; done < 100;) {
        const random_model::Case each = random_model::make(random, 1);
        if (oracle::selections(each.model, each.situation) > MOST_SELECTIONS) {
            continue;
        }
        ++done;
        auto plan = mrl::combine::plan(each.model, each.situation);
        spoil(plan);
        found += random_model::compare(each, plan, random).empty() ? 0 : 1;
    }
    return found;
}

TEST(BrokenRules, ExclusiveLoadCasesThatActTogetherAreFound)
{
    EXPECT_GT(foundWrong([](mrl::combine::Plan& plan) {
                  for (mrl::combine::Act& act : plan.acts) {
                      act.pattern.marks = act.pattern.marks == mrl::combine::Marks::One
                                              ? mrl::combine::Marks::Some
                                              : act.pattern.marks;
                  }
              }),
              5);
}

TEST(BrokenRules, LeadingActionsOfWhichTwoMayLeadAreFound)
{
    EXPECT_GT(foundWrong([](mrl::combine::Plan& plan) {
                  for (mrl::combine::Graph& graph : plan.graphs) {
                      for (std::size_t i = 0; i < graph.edges.size(); ++i) {
                          // Where an action leads, going on as if nobody had led yet.
                          const int act = graph.edges[i].act;
                          if (act >= 0 && plan.acts[static_cast<std::size_t>(act)].leads()) {
                              const auto rest =
                                  std::find_if(graph.edges.begin(), graph.edges.end(), [&](const auto& edge) {
                                      return edge.from == graph.edges[i].from && edge.act < 0;
                                  });
                              graph.edges[i].to = rest == graph.edges.end() ? graph.edges[i].to : rest->to;
                          }
                      }
                  }
              }),
              5);
}

} // namespace
