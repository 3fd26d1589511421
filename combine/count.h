#pragma once

/// How many combinations there are, exactly.

#include <vector>

#include "combine/plan.h"

namespace mrl::combine {

/// A choice is a factor for each permanent action, a set of load cases that may act together, and which of the acting
/// variable actions leads; different choices may have equal factors.
struct Count
{
    std::vector<BigInt> ofExpressions;
    BigInt all = 0;
};

/// The number of choices; that of the situation is the sum of its expressions.
Count countChoices(const Plan& plan);

/// The number of different vectors of factors. That of the situation is at most the sum, since two expressions may
/// share some. Costs a pass over the load cases with as many states as there are different memories of them.
Count countDistinct(const Plan& plan);

} // namespace mrl::combine
