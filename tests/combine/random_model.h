#pragma once

/// Random models and situations for comparing combine/ with the oracle, and the comparison itself.

#include <random>
#include <string>
#include <vector>

#include "combine/plan.h"

namespace random_model {

struct Case
{
    mrl::combine::Model model;
    LCM_Situation situation;
    std::vector<std::string> text; ///< the situation's entries, for a message
};

/// A model and a situation with all superposition codes, categories, load groups and limits, alone and together.
/// @param size 1 for a few load cases; more gives more actions
Case make(std::mt19937& random, int size);

/// What differs between a plan and the oracle: counts, different vectors, the list, extremes, governing keys, and what
/// the checker says of them.
/// @return empty when all agree
std::string compare(const Case& each, const mrl::combine::Plan& plan, std::mt19937& random);

/// A model as text, for a message.
std::string describe(const Case& each);

} // namespace random_model
